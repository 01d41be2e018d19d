#include "DocumentType.hpp"

#include "Document.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace velmo {
namespace {

using PerchAppLibrary::BaseEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::Value;

constexpr std::string_view listKind = "a list";
constexpr std::string_view objectKind = "an object";
constexpr std::string_view scalarKind = "a single value";

std::string_view kindOf(const JSON& json) {
    const JSON::Type type = json.type();
    if (type == JSON::Type::array)
        return listKind;
    return type == JSON::Type::dictionary ? objectKind : scalarKind;
}

/// Returns the object, or the objects among the first elements of the list. Leaves out objects with
/// very many members, since each lookup of a key visits all of them.
std::vector<JSON> firstRecords(const JSON& document) {
    constexpr std::size_t maxElements = 16;
    constexpr std::size_t maxMembers = 1000;
    std::vector<JSON> records{document};
    for (const JSON& element : document) {
        if (records.size() > maxElements)
            break;
        records.push_back(element);
    }
    std::erase_if(records, [](const JSON& record) {
        return kindOf(record) != objectKind || record.count() > maxMembers;
    });
    return records;
}

/// The number of a type's own properties that are keys of the records, then minus the number of the
/// others. A greater value is a better fit.
using Fit = std::pair<std::ptrdiff_t, std::ptrdiff_t>;

Fit fitOf(const RecordType& type, const std::vector<JSON>& records) {
    const auto properties = type.properties();
    const std::ptrdiff_t present = std::ranges::count_if(properties, [&](const Value& property) {
        const std::string_view name = property.at("name").as_string();
        return std::ranges::any_of(records,
                                   [name](const JSON& record) { return !record[name].isNull(); });
    });
    return {present, present - std::ssize(properties)};
}

/// Returns the types of record that fit best, several if they fit equally, none if none has a key.
std::vector<const RecordType*> bestTypes(const std::vector<JSON>& records) {
    std::vector<const RecordType*> types;
    Fit best;
    for (const RecordType& type : recordTypes()) {
        const Fit fit = type.item.empty() ? fitOf(type, records) : Fit();
        if (fit.first == 0 || fit < best)
            continue;
        if (fit > best)
            types.clear();
        types.push_back(&type);
        best = fit;
    }
    return types;
}

/// Returns the name, with an article, of the type of a record or of a list of such records.
std::string nameWithArticle(const RecordType& record, bool inList) {
    if (!inList)
        return (record.name.starts_with('E') ? "an " : "a ") + record.name;
    const auto found = std::ranges::find(recordTypes(), record.name, &RecordType::item);
    return found == recordTypes().end() ? "an array of " + record.name : "a " + found->name;
}

/// Returns how the document differs from the expected type. Empty if it seems to be of that type.
std::string describeDifference(const JSON& document, const RecordType& expected) {
    const std::string_view kind = kindOf(document);
    if (kind == scalarKind ? document.isNull() : document.count() == 0)
        return "";
    const std::vector<JSON> records = firstRecords(document);
    const std::vector<const RecordType*> types = bestTypes(records);
    std::string names;
    for (const RecordType* const type : types)
        names.append(names.empty() ? "" : " or ").append(nameWithArticle(*type, kind == listKind));

    const std::string_view expectedKind = expected.item.empty() ? objectKind : listKind;
    if (kind != expectedKind)
        return fmt::format("is {}{}, {} was expected", kind,
                           names.empty() ? "" : " that looks like " + names, expectedKind);
    const RecordType& record = kind == listKind ? recordType(expected.item) : expected;
    if (types.empty() || fitOf(*types.front(), records).first <= fitOf(record, records).first)
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

/// Returns the error of an error reply. Empty for any other document, such as a record of the
/// expected type that reports an error beside its own properties.
std::string describeError(const JSON& document, const RecordType& expected) {
    BaseEntity reply;
    reply.setValue(document);
    const bool hasError = reply.Exception() || reply.ErrorCode() != 0 ||
                          !reply.ExceptionCode().empty() || !reply.ExceptionMessage().empty();
    if (!hasError || (expected.item.empty() && !keepsDefaults(document, expected)))
        return "";
    std::string code = reply.ExceptionCode();
    if (code.empty() && reply.ErrorCode() != 0)
        code = std::to_string(reply.ErrorCode());
    std::string message = reply.ExceptionMessage();
    const VelmoCloudEntity::ExceptionItem errors;
    const auto known = errors.Dict().find(code);
    if (known != errors.Dict().end() && !known->second->msgDict().at("En").empty())
        message = known->second->msgDict().at("En");
    const std::string details = code + (code.empty() || message.empty() ? "" : ", ") + message;
    return "is an error reply" + (details.empty() ? "" : ": " + details);
}

} // namespace

void warnOfOtherType(const std::string& file, const JSON& document, const RecordType& expected) {
    std::string difference = describeError(document, expected);
    if (difference.empty())
        difference = describeDifference(document, expected);
    if (!difference.empty())
        warn(fmt::format("warning: {}: {}", nameOf(file), difference));
}

} // namespace velmo
