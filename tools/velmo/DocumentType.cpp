#include "DocumentType.hpp"

#include "Document.hpp"
#include "ExitStatus.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/entity/ServiceError.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/explain.hpp>

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace velmo {
namespace {

using PerchAppLibrary::BaseEntity;
using PerchAppLibrary::explain;
using PerchAppLibrary::JSON;
using PerchAppLibrary::RecordSchema;
using PerchAppLibrary::Value;
using VelmoCloudEntity::ServiceError;

constexpr std::string_view listKind = "a list";
constexpr std::string_view objectKind = "an object";
constexpr std::string_view scalarKind = "a single value";

std::string_view kindOf(const JSON& json) {
    const JSON::Type type = json.type();
    if (type == JSON::Type::array)
        return listKind;
    return type == JSON::Type::dictionary ? objectKind : scalarKind;
}

bool isEmpty(const JSON& document) {
    return kindOf(document) == scalarKind ? document.isNull() : document.count() == 0;
}

/// The number of values in the first records that filling uses for a type's own properties, then
/// minus the number of those properties. A greater value is a better fit.
using Fit = std::pair<std::ptrdiff_t, std::ptrdiff_t>;

Fit fitOf(const JSON& document, const RecordType& type) {
    constexpr std::size_t maxRecords = 16;
    const bool isList = kindOf(document) == listKind;
    const auto used = [&](const RecordSchema& schema) {
        return static_cast<std::ptrdiff_t>(explain(document, schema, isList, maxRecords).used);
    };
    return {used(type.schema()) - used(PerchAppLibrary::RecordAccess::schema<BaseEntity>()),
            -std::ssize(type.properties())};
}

/// Returns the types of record that fit best, several if they fit equally, none if none has a key.
std::vector<const RecordType*> bestTypes(const JSON& document) {
    std::vector<const RecordType*> types;
    Fit best;
    for (const RecordType& type : recordTypes()) {
        const Fit fit = type.item.empty() ? fitOf(document, type) : Fit();
        if (fit.first <= 0 || (!types.empty() && fit < best))
            continue;
        if (fit > best || types.empty())
            types.clear();
        types.push_back(&type);
        best = fit;
    }
    return types;
}

/// Returns the type of lists of such records, or null if there is none.
const RecordType* listOf(const RecordType& record) {
    const auto found = std::ranges::find(recordTypes(), record.name, &RecordType::item);
    return found == recordTypes().end() ? nullptr : &*found;
}

/// Returns the name, with an article, of the type of a record or of a list of such records.
std::string nameWithArticle(const RecordType& record, bool inList) {
    if (!inList)
        return (record.name.starts_with('E') ? "an " : "a ") + record.name;
    const RecordType* const list = listOf(record);
    return list == nullptr ? "an array of " + record.name : "a " + list->name;
}

/// Returns how the document differs from the expected type. Empty if it seems to be of that type.
std::string describeDifference(const JSON& document, const RecordType& expected) {
    const std::string_view kind = kindOf(document);
    if (isEmpty(document))
        return "";
    const std::vector<const RecordType*> types = bestTypes(document);
    std::string names;
    for (const RecordType* const type : types)
        names.append(names.empty() ? "" : " or ").append(nameWithArticle(*type, kind == listKind));

    const std::string_view expectedKind = expected.item.empty() ? objectKind : listKind;
    if (kind != expectedKind)
        return fmt::format("is {}{}, {} was expected", kind,
                           names.empty() ? "" : " that looks like " + names, expectedKind);
    const RecordType& record = kind == listKind ? recordType(expected.item) : expected;
    if (types.empty() || fitOf(document, *types.front()).first <= fitOf(document, record).first)
        return "";
    return fmt::format("looks like {}, not {}", names, nameWithArticle(record, kind == listKind));
}

/// Returns whether reading the document as a record of the type sets none of its own properties.
bool keepsDefaults(const JSON& document, const RecordType& type) {
    const Value record = type.read(document);
    return std::ranges::all_of(type.properties(), [&record](const Value& property) {
        return record.at(property.at("name").as_string()) == property.at("default");
    });
}

/// Returns the error of an error reply. Empty for any other document.
std::string describeError(const JSON& document) {
    const auto error = VelmoCloudEntity::serviceError(document);
    if (!error)
        return "";
    const std::string text = error->text("En");
    const std::string separator = error->code.empty() || text.empty() ? "" : ", ";
    const std::string details = error->code + separator + text;
    return "is an error reply" + (details.empty() ? "" : ": " + details);
}

} // namespace

const RecordType* typeOf(const JSON& document) {
    const auto types = bestTypes(document);
    if (types.empty())
        return nullptr;
    const RecordType* const list = kindOf(document) == listKind ? listOf(*types.front()) : nullptr;
    return list == nullptr ? types.front() : list;
}

std::string describeWithoutType(const JSON& document) {
    const std::string error = describeError(document);
    return error.empty() && !isEmpty(document) ? "is of no known type" : error;
}

std::string differenceFrom(const RecordType& expected, const JSON& document) {
    const std::string error = describeError(document);
    // A record may report an error beside its own properties.
    const bool isBare =
        !expected.item.empty() || error.empty() || keepsDefaults(document, expected);
    return error.empty() || !isBare ? describeDifference(document, expected) : error;
}

void requireType(const std::string& file, const JSON& document, const RecordType& expected,
                 bool isForced) {
    const std::string difference = differenceFrom(expected, document);
    if (difference.empty())
        return;
    const std::string message = nameOf(file) + ": " + difference;
    if (!isForced)
        throw Failure(message + " (use --force to read it)");
    warn("warning: " + message);
}

} // namespace velmo
