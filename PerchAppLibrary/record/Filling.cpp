#include <PerchAppLibrary/record/Filling.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>

#include <bit>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
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

/// Fills an empty field from an element of its very kind, as nearly all are: what convertElement() does with one, in less time.
template <class T>
bool takeVeryKind(dom::element element, T& field) {
    if constexpr (std::integral<T>) {
        return element.get(field) == simdjson::SUCCESS;
    } else if constexpr (std::same_as<T, std::string>) {
        std::string_view text;
        if (element.get(text) != simdjson::SUCCESS)
            return false;
        field.append(text);
        return true;
    } else {
        return false;
    }
}

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

FillPlan::Step Filling::directStep(const Property& property) {
    return std::visit(
        []<class Access>(const Access& access) {
            if constexpr (requires { access.field; })
                return access.field == nullptr ? keepingStep() : stepFor(access);
            else
                return keepingStep();
        },
        property.access);
}

template <class T>
FillPlan::Step Filling::stepFor(const FieldAccess<T>& access) {
    return {&fillField<T>, &access};
}

void Filling::ignore(Filling& /*filling*/, const FillPlan::Step& /*step*/, std::size_t /*index*/,
                     dom::element /*element*/) {}

void Filling::keep(Filling& filling, const FillPlan::Step& /*step*/, std::size_t index,
                   dom::element element) {
    Mark& mark = filling.m_marks[index];
    if (mark == Mark::none) {
        mark = Mark::kept;
    } else if (const auto earlier = std::ranges::find(filling.m_kept, index, &Kept::index);
               earlier != filling.m_kept.end()) {
        earlier->element = element;
        return;
    }
    filling.m_kept.push_back({index, element});
}

template <class T>
void Filling::fillField(Filling& filling, const FillPlan::Step& step, std::size_t index,
                        dom::element element) {
    T& field = filling.m_record.*static_cast<const FieldAccess<T>*>(step.access)->field;
    if (isEmpty(field)) [[likely]] {
        filling.m_marks[index] = Mark::filled;
        if (takeVeryKind(element, field)) [[likely]]
            return;
    }
    fillOtherField(filling, step, index, element, field);
}

template <class T>
void Filling::fillOtherField(Filling& filling, const FillPlan::Step& step, std::size_t index,
                             dom::element element, T& field) {
    // What the field held before may have to stay: a later member with the same key may not convert.
    if (filling.m_marks[index] != Mark::filled) {
        keep(filling, step, index, element);
        return;
    }
    // Where this one does not convert, the field is empty, as it was before the first one.
    if (!convertElement(element, field))
        field = T{};
}

template <class Find>
void Filling::addEach(dom::object members, Find find) {
    // The text of a key lies in the document, where other texts follow, and the reader's padding at the end.
    static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
    const FillPlan::Step* const steps = (m_isDirect ? m_plan.directSteps() : m_plan.stepsForSetters()).data();
    const auto end = members.end();
    for (auto member = members.begin(); member != end; ++member) {
        const std::uint32_t index = find(member.key());
        steps[index].take(*this, steps[index], index, member.value());
    }
}

void Filling::add(dom::object members) {
    addEach(members, [&names = m_plan.names()](std::string_view key) { return names.findReadable(key); });
}

void Filling::add(dom::object members, MemberOrder& order) {
    order.startRecord(m_plan.names());
    std::uint32_t* guess = &order.first();
    addEach(members, [&order, guess, &names = m_plan.names()](std::string_view key) mutable {
        const std::uint32_t index = names.findReadable(key, *guess);
        guess = &order.behind(*guess);
        return index;
    });
}

void Filling::setKept() {
    std::ranges::sort(m_kept, {}, &Kept::index);
    for (const Kept& kept : m_kept)
        if (m_marks[kept.index] != Mark::excluded)
            std::visit(Setter{m_record, kept.element}, m_schema.properties()[kept.index].access);
}

} // namespace PerchAppLibrary
