#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include <simdjson.h>

#include <cstddef>
#include <span>
#include <vector>

namespace PerchAppLibrary {

class Filling;

/// How the properties of a class of records are filled: what a Filling goes by. Immutable.
class FillPlan {
public:
    /// The properties of the class, which live as long as the plan.
    FillPlan(std::span<const Property> properties, bool overridesSetters);

    /// What is done with an element that has been found for a property.
    struct Step {
        void (*take)(Filling& filling, const Step& step, std::size_t index, simdjson::dom::element element);
        const void* access; // FieldAccess<T> of the T that `take` is for
    };

    /// Member function to call after the fields of some of the properties have changed.
    struct Effect {
        void (BaseEntity::*call)();
        std::vector<std::size_t> properties;
    };

    const NameIndex& names() const noexcept { return m_names; }

    /// A step for each property of a record that nobody but the mapping sees while it runs, and one for what is none.
    std::span<const Step> directSteps() const noexcept { return m_directSteps; }

    /// Whether a field is filled by its direct step.
    bool isDirect(std::size_t index) const noexcept { return m_directSteps[index].access != nullptr; }

    /// The same for another record: the setters have their turns later.
    std::span<const Step> stepsForSetters() const noexcept { return m_stepsForSetters; }

    /// The effects of the direct steps.
    std::span<const Effect> effects() const noexcept { return m_effects; }

private:
    Effect& effect(void (BaseEntity::*call)());

    NameIndex m_names;
    std::vector<Step> m_stepsForSetters;
    std::vector<Step> m_directSteps;
    std::vector<Effect> m_effects; // different ones
};

} // namespace PerchAppLibrary
