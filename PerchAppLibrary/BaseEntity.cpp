#include <PerchAppLibrary/BaseEntity.hpp>

#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/record/Conversion.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <boost/container/small_vector.hpp>

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

/// The element found for a property; without one until it is set, since most properties of most records have none.
union Slot {
    Slot() noexcept {} // NOLINT(modernize-use-equals-default): the member has a constructor of its own
    dom::element element;
};

/// Which properties have an element: a bit for each.
class PropertySet {
public:
    explicit PropertySet(std::size_t propertyCount) : m_words((propertyCount + wordBits - 1) / wordBits) {}

    void insert(std::size_t index) { m_words[index / wordBits] |= bit(index); }
    void erase(std::size_t index) { m_words[index / wordBits] &= ~bit(index); }

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

/// Finds the properties that the members of a JSON object belong to, and leaves the last element of each in its slot.
PropertySet findElements(const RecordSchema& schema, dom::object members, std::span<Slot> slots) {
    PropertySet found(slots.size());
    std::size_t guess = 0;
    const auto end = members.end();
    for (auto member = members.begin(); member != end; ++member) {
        if (const std::size_t index = schema.find(member.key(), guess); index != RecordSchema::notFound) {
            slots[index].element = member.value();
            found.insert(index);
            guess = index + 1; // the service sends properties in their order, leaving some out
        }
    }
    return found;
}

/// Sets one property from an element where that converts.
struct Setter {
    BaseEntity& record;
    const dom::element& element;
    bool isOverridable; // the accessors that were declared with the property may not be the ones that count

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        if (!isOverridable && access.field != nullptr) {
            convertElement(element, record.*access.field);
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
    const RecordSchema& recordSchema = schema();
    boost::container::small_vector<Slot, usualPropertyCount> slots(recordSchema.properties().size(),
                                                                   boost::container::default_init);
    PropertySet found = findElements(recordSchema, members, slots);
    for (const std::string& key : excluded.keys())
        if (const std::size_t index = recordSchema.find(key); index != RecordSchema::notFound)
            found.erase(index);

    // Nothing can have overridden the accessors of the properties that the record's very class declares.
    const bool isOfDeclaringClass = typeid(*this) == recordSchema.type();
    found.forEach([&](std::size_t index) {
        const bool isOverridable = !isOfDeclaringClass || index < recordSchema.firstOwn();
        std::visit(Setter{*this, slots[index].element, isOverridable},
                   recordSchema.properties()[index].access);
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

Dictionary BaseEntity::reflect(const Excluded& excluded) const {
    const std::vector<const Property*> left = schema().storedWithout(excluded);
    Dictionary dictionary;
    dictionary.reserve(left.size() + 1); // nested records that a class adds
    for (const Property* const property : left)
        dictionary.insert_or_assign(property->name, property->value(*this));
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
