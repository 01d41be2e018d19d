#include "DocumentType.hpp"

#include "Document.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/entity/ServiceError.hpp>

#include <fmt/format.h>

#include <algorithm>

namespace velmo {
namespace {

using PerchAppLibrary::Explanation;
using PerchAppLibrary::JSON;
using VelmoCloudEntity::ServiceError;

/// How many more values of the first records the type uses than it ignores.
std::ptrdiff_t fitOf(const JSON& document, const RecordType& type) {
    constexpr std::size_t maxRecords = 16;
    const Explanation explanation = type.explain(document, maxRecords);
    return static_cast<std::ptrdiff_t>(explanation.used - explanation.ignored);
}

std::string withArticle(const std::string& name) {
    return (name.starts_with('E') ? "an " : "a ") + name;
}

std::string describe(const ServiceError& error) {
    const std::string text = error.text("En");
    const std::string separator = error.code.empty() || text.empty() ? "" : ", ";
    const std::string details = error.code + separator + text;
    return "is an error reply" + (details.empty() ? "" : ": " + details);
}

} // namespace

const RecordType* typeOf(const JSON& document) {
    const auto fit = [&document](const RecordType& type) { return fitOf(document, type); };
    const auto best = std::ranges::max_element(recordTypes(), {}, fit);
    return fit(*best) > 0 ? &*best : nullptr;
}

void warnOfOtherType(const std::string& file, const JSON& document, const RecordType& expected) {
    // A record may report an error beside its own properties.
    const bool isBare = expected.explain(document, 1).used <=
                        PerchAppLibrary::explain<PerchAppLibrary::BaseEntity>(document).used;
    if (const auto error = VelmoCloudEntity::serviceError(document); error && isBare) {
        warn(fmt::format("warning: {}: {}", nameOf(file), describe(*error)));
    } else if (const std::ptrdiff_t fit = fitOf(document, expected); fit < 0) {
        const RecordType* const type = typeOf(document);
        warn(fmt::format("warning: {}: {}, not {}", nameOf(file),
                         type == nullptr ? "is of an unknown type"
                                         : "looks like " + withArticle(type->name),
                         withArticle(expected.name)));
    }
}

} // namespace velmo
