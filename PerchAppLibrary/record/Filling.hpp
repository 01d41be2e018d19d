#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/record/FillPlan.hpp>
#include <PerchAppLibrary/record/MemberOrder.hpp>

#include <boost/container/small_vector.hpp>

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace PerchAppLibrary {

/// One filling of a record from a JSON object: exclude() what the mapping leaves alone, add() the members, finish().
///
/// Fields that nobody but the mapping sees while it runs are filled at once, in one pass over the members. The other properties are
/// set by finish(): in their order, each to the last value under its key.
class Filling {
public:
    explicit Filling(BaseEntity& record)
        : m_record(record),
          m_schema(record.schema()),
          m_plan(m_schema.fillPlan()),
          m_isDirect(isExactly(record, m_schema.type())),
          m_marks(m_usualMarks.data()) {
        if (const std::size_t count = m_schema.properties().size(); count > usualCount) {
            m_manyMarks.resize(count);
            m_marks = m_manyMarks.data();
        }
    }

    const RecordSchema& schema() const { return m_schema; }

    void exclude(std::size_t index) {
        m_marks[index] = Mark::excluded;
        m_isDirect = m_isDirect && !m_plan.isDirect(index);
    }

    /// The members of the object; once. With an order, for one of many objects.
    void add(simdjson::dom::object members);
    void add(simdjson::dom::object members, MemberOrder& order);

    /// The last element under the key of an excluded property, if there is one.
    std::optional<simdjson::dom::element> excluded(std::size_t index) const {
        const auto kept = std::ranges::find(m_kept, index, &Kept::index);
        return kept == m_kept.end() ? std::nullopt : std::optional(kept->element);
    }

    void finish() {
        if (m_isDirect)
            callEffects();
        if (!m_kept.empty())
            setKept();
    }

    /// The step that keeps an element for finish().
    static FillPlan::Step keepingStep() { return {&keep, nullptr}; }

    /// The step for an element that belongs to no property.
    static FillPlan::Step ignoringStep() { return {&ignore, nullptr}; }

    /// The step that fills the property's field; the other where it has none.
    static FillPlan::Step directStep(const Property& property);

private:
    enum class Mark : std::uint8_t { none, excluded, kept, filled };

    struct Kept {
        std::size_t index;
        simdjson::dom::element element;
    };

    template <class Find>
    void addEach(simdjson::dom::object members, Find find);

    template <class T>
    static FillPlan::Step stepFor(const FieldAccess<T>& access);

    static void ignore(Filling& filling, const FillPlan::Step& step, std::size_t index,
                       simdjson::dom::element element);
    static void keep(Filling& filling, const FillPlan::Step& step, std::size_t index,
                     simdjson::dom::element element);

    template <class T>
    static void fillField(Filling& filling, const FillPlan::Step& step, std::size_t index,
                          simdjson::dom::element element);

    /// What fillField() does where the field is not empty or the element not of its kind. Apart from it, which runs for each member,
    /// so that it needs few registers.
    template <class T>
    [[gnu::noinline]] static void fillOtherField(Filling& filling, const FillPlan::Step& step,
                                                 std::size_t index, simdjson::dom::element element, T& field);

    void callEffects() {
        const auto isFilled = [this](std::size_t index) { return m_marks[index] == Mark::filled; };
        for (const FillPlan::Effect& effect : m_plan.effects())
            if (std::ranges::any_of(effect.properties, isFilled))
                (m_record.*effect.call)();
    }

    void setKept();

    /// Records of up to this many properties are filled without an allocation.
    static constexpr std::size_t usualCount = 64;

    BaseEntity& m_record;
    const RecordSchema& m_schema;
    const FillPlan& m_plan;
    bool m_isDirect; // by fields where there are some, not by setters
    std::array<Mark, usualCount> m_usualMarks{};
    std::vector<Mark> m_manyMarks;
    Mark* m_marks;                                           // of all properties
    boost::container::small_vector<Kept, usualCount> m_kept; // one for a property
};

} // namespace PerchAppLibrary
