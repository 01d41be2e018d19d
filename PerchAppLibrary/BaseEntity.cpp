#include <PerchAppLibrary/BaseEntity.hpp>

#include <PerchAppLibrary/CommonStorage.hpp>
#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/record/Filling.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <optional>
#include <span>
#include <typeinfo>
#include <vector>

namespace PerchAppLibrary {

namespace dom = simdjson::dom;

BaseEntity::BaseEntity() = default;
BaseEntity::~BaseEntity() = default;

const RecordSchema& BaseEntity::schema() const {
    static const RecordSchema schema("BaseEntity", typeid(BaseEntity), nullptr,
                                     PropertyCollector<BaseEntity>::collect(), false);
    return schema;
}

void BaseEntity::setValue(const JSON& json) { setValue(json, Excluded()); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): a list of keys is two pointers
void BaseEntity::setValue(const JSON& json, Excluded excluded) {
    const std::optional<dom::element> element = JSONElement::of(json);
    dom::object members;
    if (!element || element->get(members) != simdjson::SUCCESS)
        return;
    Filling filling(*this);
    for (const std::string& key : excluded.keys())
        if (const std::size_t index = filling.schema().find(key); index != RecordSchema::notFound)
            filling.exclude(index);
    filling.add(members);
    filling.finish();
}

std::optional<JSON> BaseEntity::mapAround(std::size_t index, const JSON& json, MemberOrder& order) {
    const std::optional<dom::element> element = JSONElement::of(json);
    dom::object members;
    if (!element || element->get(members) != simdjson::SUCCESS)
        return std::nullopt;
    Filling filling(*this);
    filling.exclude(index);
    filling.add(members, order);
    filling.finish();
    const std::optional<dom::element> left = filling.excluded(index);
    return left ? std::optional(JSONElement::inDocumentOf(json, *left)) : std::nullopt;
}

void BaseEntity::clearException() {
    setException(false);
    setErrorCode(0);
    setExceptionCode({});
    setExceptionMessage({});
}

Value BaseEntity::value(std::string_view name) const {
    const RecordSchema& recordSchema = schema();
    const std::size_t index = recordSchema.find(name);
    if (index == RecordSchema::notFound)
        throw UndefinedKeyError(recordSchema.className(), name);
    return recordSchema.properties()[index].value(*this);
}

Dictionary BaseEntity::properties() const { return reflect(Excluded()); }

Dictionary BaseEntity::properties(const Storage& storage) const { return reflect(Excluded(), storage); }

Dictionary BaseEntity::reflect(const Excluded& excluded) const {
    return reflect(excluded, storageForDict().get());
}

CommonStorage BaseEntity::storageForDict(std::size_t members) const {
    constexpr std::size_t usualSize = 60; // of a property, its key and a short text
    return CommonStorage((1 + members) * schema().properties().size() * usualSize);
}

Dictionary BaseEntity::reflect(const Excluded& excluded, const Storage& storage) const {
    return reflect(schema().storedWithout(excluded), storage);
}

Dictionary BaseEntity::reflect(std::span<const Property* const> properties, const Storage& storage) const {
    Dictionary dictionary(storage);
    dictionary.reserve(properties.size() + 1); // nested records that a class adds
    for (const Property* const property : properties)
        property->addTo(dictionary, *this);
    return dictionary;
}

Dictionary BaseEntity::select(std::span<const std::string> names) const {
    Dictionary dictionary;
    dictionary.reserve(names.size());
    for (const std::string& name : names)
        dictionary.insert_or_assign(name, value(name));
    return dictionary;
}

} // namespace PerchAppLibrary
