#include <PerchAppLibrary/record/BaseEntity.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/internal/DictionaryArena.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/fillRecord.hpp>
#include <PerchAppLibrary/record/internal/RecordWriter.hpp>

#include <algorithm>
#include <typeinfo>
#include <variant>
#include <vector>

namespace PerchAppLibrary {
namespace {

bool contains(const KeyList& list, std::string_view key) {
    return std::ranges::find(list.keys(), key) != list.keys().end();
}

Excluded merged(const Excluded& left, const Excluded& right) {
    if (left.keys().empty())
        return right;
    std::vector<std::string> keys(left.keys().begin(), left.keys().end());
    keys.insert(keys.end(), right.keys().begin(), right.keys().end());
    return Excluded(std::move(keys));
}

} // namespace

const RecordSchema& BaseEntity::perchSchema() {
    static const NoDestructor<RecordSchema> schema("BaseEntity", typeid(BaseEntity), nullptr,
                                                   PropertyCollector<BaseEntity>::collect(),
                                                   Overrides{}, perchEffect);
    return *schema;
}

const RecordSchema& BaseEntity::schema() const { return perchSchema(); }

void BaseEntity::setValue(const JSON& json) { fill(json); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): a list of keys is two pointers
void BaseEntity::setValue(const JSON& json, Excluded excluded) { mapRecord(*this, json, excluded); }

void BaseEntity::fill(const JSON& json, const Excluded& further) {
    const RecordSchema& recordSchema = schema();
    if (isExactly(*this, recordSchema.type()) && !recordSchema.overrides().mapping) {
        fillByBase(json, further);
        return;
    }
    // `json` may be a property of the record, which the mapping sets.
    const JSON document = json; // NOLINT(performance-unnecessary-copy-initialization)
    setValue(document, merged(further, recordSchema.arrays()));
    for (const std::string& name : recordSchema.arrays().keys()) {
        if (contains(further, name))
            continue;
        const Property& property = recordSchema.properties()[recordSchema.find(name)];
        fillArray(*std::get_if<RecordsAccess>(&property.access), *this, document[name]);
    }
}

void BaseEntity::fillByBase(const JSON& json, const Excluded& further) {
    fillRecord(*this, json, further);
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

Dictionary BaseEntity::properties() const { return properties(arenaForDict().get()); }

Dictionary BaseEntity::properties(const Storage& storage) const {
    return schema().writer().dictionary(*this, storage);
}

Dictionary BaseEntity::reflect(const Excluded& excluded) const {
    return reflect(excluded, arenaForDict().get());
}

Dictionary BaseEntity::reflect(const Excluded& excluded, const Storage& storage) const {
    return RecordWriter(schema(), excluded).dictionary(*this, storage);
}

DictionaryArena BaseEntity::arenaForDict(std::size_t members) const {
    constexpr std::size_t usualSize = 60; // bytes of a property, its key and a short text
    return DictionaryArena((1 + members) * schema().properties().size() * usualSize);
}

Dictionary BaseEntity::select(const std::vector<std::string>& names) const {
    Dictionary dictionary;
    dictionary.reserve(names.size());
    for (const std::string& name : names)
        dictionary.insert_or_assign(name, value(name));
    return dictionary;
}

} // namespace PerchAppLibrary
