#include <PerchAppLibrary/record/Filling.hpp>

#include <PerchAppLibrary/record/Conversion.hpp>
#include <PerchAppLibrary/record/NameIndex.hpp>

#include <concepts>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

/// Whether the value is T{}.
template <class T>
bool isEmpty(const T& value) {
    if constexpr (std::same_as<T, float>)
        return std::bit_cast<std::uint32_t>(value) == 0; // -0 is another value
    else if constexpr (std::is_scalar_v<T>)
        return value == T{};
    else if constexpr (std::same_as<T, JSON>)
        return value.isNull();
    else if constexpr (requires { value.has_value(); })
        return !value.has_value();
    else
        return value.empty();
}

/// Fills the field of a property, unless it holds something that may have to stay: a later member with the same key may not convert.
struct FieldFiller {
    BaseEntity& record;
    dom::element element;
    bool isFilled; // by an earlier member with the same key

    /// Whether the element was looked at. Where it does not convert, the field is empty, as it was before the first one.
    template <class T>
    bool operator()(const FieldAccess<T>& access) const {
        T& field = record.*access.field;
        if (!isFilled && !isEmpty(field))
            return false;
        if (!convertElement(element, field))
            field = T{};
        if (access.effect != nullptr)
            (record.*access.effect)();
        return true;
    }

    bool operator()(const RecordsAccess&) const { return false; }
    bool operator()(const ComputedAccess&) const { return false; }
};

/// Sets one property through its setter where the element converts.
struct Setter {
    BaseEntity& record;
    dom::element element;

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        T value{};
        if (access.set != nullptr && convertElement(element, value))
            (record.*access.set)(std::move(value));
    }

    void operator()(const RecordsAccess&) const {}
    void operator()(const ComputedAccess&) const {}
};

} // namespace

Filling::Filling(BaseEntity& record)
    : m_record(record),
      m_schema(record.schema()),
      m_slots(m_schema.properties().size(), boost::container::default_init),
      m_kept((m_slots.size() + wordBits - 1) / wordBits) {
    const std::span<const Way> ways = m_schema.ways();
    if (typeid(record) == m_schema.type())
        m_ways.assign(ways.begin(), ways.end());
    else
        m_ways.assign(ways.size(), Way::setter);
}

void Filling::add(dom::object members) {
    // The text of a key lies in the document, where other texts follow, and the reader's padding at the end.
    static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
    const NameIndex& names = m_schema.names();
    const Property* const properties = m_schema.properties().data();
    Way* const ways = m_ways.data();
    const auto end = members.end();
    for (auto member = members.begin(); member != end; ++member) {
        const std::size_t index = names.findReadable(member.key());
        if (index == NameIndex::notFound)
            continue;
        Way& way = ways[index];
        const dom::element element = member.value();
        if (way >= Way::field &&
            std::visit(FieldFiller{m_record, element, way == Way::filledField}, properties[index].access))
            way = Way::filledField;
        else
            keep(index, element);
    }
}

std::optional<dom::element> Filling::excluded(std::size_t index) const {
    if ((m_kept[index / wordBits] >> (index % wordBits) & 1) == 0)
        return std::nullopt;
    return m_slots[index].element;
}

void Filling::finish() const {
    for (std::size_t word = 0; word < m_kept.size(); ++word)
        for (std::uint64_t left = m_kept[word]; left != 0; left &= left - 1) { // clears the lowest bit
            const std::size_t index = word * wordBits + static_cast<std::size_t>(std::countr_zero(left));
            if (m_ways[index] != Way::excluded)
                std::visit(Setter{m_record, m_slots[index].element}, m_schema.properties()[index].access);
        }
}

} // namespace PerchAppLibrary
