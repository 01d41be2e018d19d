#include "RecordTypes.hpp"

#include "AllRecords.hpp"
#include "Commands.hpp"
#include "ExitStatus.hpp"

#include <PerchAppLibrary/record/explain.hpp>

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace velmo {
namespace {

using namespace VelmoCloudEntity;
using PerchAppLibrary::BaseEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::Property;
using PerchAppLibrary::RecordSchema;
using PerchAppLibrary::toValue;
using PerchAppLibrary::Value;
using PerchAppLibrary::ValueArray;

/// Returns a record that is filled from the JSON.
template <class Record>
std::shared_ptr<Record> make(const JSON& json) {
    if constexpr (requires { Record::create(json); }) {
        return Record::create(json);
    } else {
        auto record = Record::create(); // ConfigItem, which the service does not send
        record->setValue(json);
        return record;
    }
}

Dictionary describeProperty(std::string_view name, const std::string& kind, Value defaultValue) {
    return {{"name", name}, {"kind", kind}, {"default", std::move(defaultValue)}};
}

template <class Record>
RecordType record() {
    return {std::string(Record::recordName), "",
            [](const JSON& json) { return toValue(make<Record>(json)->properties()); },
            &PerchAppLibrary::RecordAccess::schema<Record>,
            [] {
                const std::shared_ptr<Record> record = make<Record>(JSON::null);
                const BaseEntity base;
                ValueArray properties;
                for (const Property& property : record->schema().properties())
                    if (property.isStored() &&
                        base.schema().find(property.name) == RecordSchema::notFound)
                        properties.push_back(describeProperty(property.name, property.kind(),
                                                              property.value(*record)));
                return properties;
            }};
}

template <class List>
auto itemsOf(const List& list) {
    if constexpr (requires { list.List(); })
        return list.List();
    else
        return list.list();
}

template <class List>
RecordType list(const char* name) {
    using Item = std::remove_cvref_t<decltype(*itemsOf(std::declval<const List&>()).front())>;
    return {name, std::string(Item::recordName),
            [](const JSON& json) {
                ValueArray array;
                for (const auto& item : itemsOf(List(json)))
                    array.push_back(item->properties());
                return Value(std::move(array));
            },
            &PerchAppLibrary::RecordAccess::schema<Item>,
            [] {
                const List empty;
                const char* const property =
                    requires { empty.List(); } ? "List" : "list"; // the name of its accessor
                return ValueArray{describeProperty(
                    property, "array of " + std::string(Item::recordName), ValueArray())};
            }};
}

} // namespace

const std::vector<RecordType>& recordTypes() {
    static const std::vector<RecordType> types = [] {
        std::vector<RecordType> all = []<class... Records>(PerchAppLibrary::TypeList<Records...>) {
            return std::vector{record<Records>()...};
        }(AllRecords());
        all.insert(all.end(),
                   {list<FontCollectionList>("FontCollectionList"), list<FontList>("FontList"),
                    list<FontSearchList>("FontSearchList"), list<FontTagList>("FontTagList"),
                    list<PhoneNumberPrefixList>("PhoneNumberPrefixList"),
                    list<UrlList>("UrlList")});
        std::ranges::sort(all, {}, &RecordType::name);
        return all;
    }();
    return types;
}

std::vector<std::string> namesOfTypes() {
    std::vector<std::string> names;
    for (const RecordType& type : recordTypes())
        names.push_back(type.name);
    return names;
}

const RecordType& recordType(const std::string& text) {
    const std::string prefix = lowercase(text);
    std::vector<const RecordType*> matches;
    for (const RecordType& type : recordTypes()) {
        const std::string name = lowercase(type.name);
        if (name == prefix)
            return type;
        if (name.starts_with(prefix))
            matches.push_back(&type);
    }
    if (matches.size() == 1)
        return *matches.front();
    if (matches.empty())
        throw Failure("unknown TYPE \"" + text + "\"" + suggestion(text, namesOfTypes()) +
                      " (velmo read --types lists the types)");
    std::string names;
    for (const RecordType* const type : matches)
        names.append(names.empty() ? "" : ", ").append(type->name);
    throw Failure(fmt::format("TYPE \"{}\" is ambiguous; it may be {}", text, names));
}

} // namespace velmo
