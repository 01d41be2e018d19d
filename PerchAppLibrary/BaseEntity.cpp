#include <PerchAppLibrary/BaseEntity.hpp>

#include <PerchAppLibrary/CommonStorage.hpp>
#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/record/Conversion.hpp>
#include <PerchAppLibrary/record/NameIndex.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>
#include <typeinfo>
#include <variant>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

/// Records of up to this many properties are filled without a separate allocation.
constexpr std::size_t usualPropertyCount = 64;

/// Which properties have an element: a bit for each.
class PropertySet {
public:
    explicit PropertySet(std::size_t propertyCount) : m_words((propertyCount + wordBits - 1) / wordBits) {}

    void insert(std::size_t index) { m_words[index / wordBits] |= bit(index); }

    /// Whether it was there.
    bool erase(std::size_t index) {
        const bool wasThere = (m_words[index / wordBits] & bit(index)) != 0;
        m_words[index / wordBits] &= ~bit(index);
        return wasThere;
    }

    /// Calls `visit(index)` for each property of the set, in order.
    template <class Visitor>
    void forEach(Visitor&& visit) const {
        for (std::size_t word = 0; word < m_words.size(); ++word)
            for (std::uint64_t left = m_words[word]; left != 0; left &= left - 1) // clears the lowest bit
                visit(word * wordBits + static_cast<std::size_t>(std::countr_zero(left)));
    }

private:
    static constexpr std::size_t wordBits = 64;

    static std::uint64_t bit(std::size_t index) { return std::uint64_t{1} << (index % wordBits); }

    boost::container::small_vector<std::uint64_t, usualPropertyCount / wordBits> m_words;
};

/// Sets one property from an element where that converts.
struct Setter {
    BaseEntity& record;
    dom::element element;
    bool isOverridable; // the accessors that were declared with the property may not be the ones that count

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        if (!isOverridable && access.field != nullptr) {
            if (convertElement(element, record.*access.field) && access.effect != nullptr)
                (record.*access.effect)();
            return;
        }
        T value{};
        if (access.set != nullptr && convertElement(element, value))
            (record.*access.set)(std::move(value));
    }

    void operator()(const RecordsAccess&) const {}
    void operator()(const ComputedAccess&) const {}
};

} // namespace

/// The elements of a JSON object that belong to properties; of a repeated key the last.
class BaseEntity::Elements {
public:
    Elements(const RecordSchema& schema, dom::object members)
        : m_schema(schema),
          m_slots(schema.properties().size(), boost::container::default_init),
          m_found(m_slots.size()) {
        // The text of a key lies in the document, where other texts follow, and the reader's padding at the end.
        static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
        const NameIndex& names = schema.names();
        const auto end = members.end();
        for (auto member = members.begin(); member != end; ++member)
            if (const std::size_t index = names.findReadable(member.key()); index != NameIndex::notFound) {
                m_slots[index].element = member.value();
                m_found.insert(index);
            }
    }

    const RecordSchema& schema() const { return m_schema; }

    /// Takes the element under the key out of these.
    std::optional<dom::element> take(std::string_view key) {
        const std::size_t index = m_schema.find(key);
        if (index == RecordSchema::notFound || !m_found.erase(index))
            return std::nullopt;
        return m_slots[index].element;
    }

    /// Calls `visit(index, element)` for each, in the order of the properties.
    template <class Visitor>
    void forEach(Visitor&& visit) const {
        m_found.forEach([&](std::size_t index) { visit(index, m_slots[index].element); });
    }

private:
    /// Without an element until it is set, since most properties of most records have none.
    union Slot {
        Slot() noexcept {} // NOLINT(modernize-use-equals-default): the member has a constructor of its own
        dom::element element;
    };

    const RecordSchema& m_schema;
    boost::container::small_vector<Slot, usualPropertyCount> m_slots;
    PropertySet m_found;
};

BaseEntity::BaseEntity() = default;
BaseEntity::~BaseEntity() = default;

const RecordSchema& BaseEntity::schema() const {
    static const RecordSchema schema("BaseEntity", typeid(BaseEntity), nullptr,
                                     PropertyCollector<BaseEntity>::collect());
    return schema;
}

void BaseEntity::setValue(const JSON& json) { setValue(json, Excluded()); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): a list of keys is two pointers
void BaseEntity::setValue(const JSON& json, Excluded excluded) {
    const std::optional<dom::element> element = JSONElement::of(json);
    dom::object members;
    if (!element || element->get(members) != simdjson::SUCCESS)
        return;
    Elements elements(schema(), members);
    for (const std::string& key : excluded.keys())
        elements.take(key);
    fillFrom(elements);
}

JSON BaseEntity::mapAround(std::string_view key, const JSON& json) {
    const std::optional<dom::element> element = JSONElement::of(json);
    dom::object members;
    if (!element || element->get(members) != simdjson::SUCCESS)
        return JSON::null;
    Elements elements(schema(), members);
    const std::optional<dom::element> left = elements.take(key);
    fillFrom(elements);
    return left ? JSONElement::inDocumentOf(json, *left) : JSON::null;
}

void BaseEntity::fillFrom(const Elements& elements) {
    // Nothing can have overridden the accessors of the properties that the record's very class declares.
    const RecordSchema& recordSchema = elements.schema();
    const bool isOfDeclaringClass = typeid(*this) == recordSchema.type();
    const std::span<const Property> properties = recordSchema.properties();
    const std::size_t overridableEnd = isOfDeclaringClass ? recordSchema.firstOwn() : properties.size();
    elements.forEach([this, properties, overridableEnd](std::size_t index, dom::element element) {
        std::visit(Setter{*this, element, index < overridableEnd}, properties[index].access);
    });
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

Dictionary BaseEntity::properties() const { return reflect({}); }

Dictionary BaseEntity::properties(const Storage& storage) const { return reflect({}, storage); }

Dictionary BaseEntity::reflect(const Excluded& excluded) const {
    return reflect(excluded, storageForDict().get());
}

CommonStorage BaseEntity::storageForDict(std::size_t members) const {
    constexpr std::size_t usualSize = 60; // of a property, its key and a short text
    return CommonStorage((1 + members) * schema().properties().size() * usualSize);
}

Dictionary BaseEntity::reflect(const Excluded& excluded, const Storage& storage) const {
    const std::vector<const Property*> left = schema().storedWithout(excluded);
    Dictionary dictionary(storage);
    dictionary.reserve(left.size() + 1); // nested records that a class adds
    for (const Property* const property : left)
        dictionary.insert_or_assign(property->name, property->value(*this, storage));
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
