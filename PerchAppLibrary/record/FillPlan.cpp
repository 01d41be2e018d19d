#include <PerchAppLibrary/record/FillPlan.hpp>

#include <PerchAppLibrary/record/Filling.hpp>

#include <algorithm>
#include <string_view>
#include <variant>

namespace PerchAppLibrary {
namespace {

std::vector<std::string_view> namesOf(std::span<const Property> properties) {
    std::vector<std::string_view> names;
    names.reserve(properties.size());
    for (const Property& property : properties)
        names.push_back(property.name);
    return names;
}

struct EffectOf {
    template <class T>
    void (BaseEntity::* operator()(const FieldAccess<T>& access) const)() {
        return access.field == nullptr ? nullptr : access.effect;
    }
    void (BaseEntity::* operator()(const RecordsAccess&) const)() { return nullptr; }
    void (BaseEntity::* operator()(const ComputedAccess&) const)() { return nullptr; }
};

} // namespace

FillPlan::FillPlan(std::span<const Property> properties, bool overridesSetters)
    : m_names(namesOf(properties)), m_stepsForSetters(properties.size(), Filling::keepingStep()) {
    m_stepsForSetters.push_back(Filling::ignoringStep());
    m_directSteps = m_stepsForSetters;
    if (overridesSetters) // which may look at other properties: all keep their turns then
        return;
    for (std::size_t index = 0; index < properties.size(); ++index) {
        m_directSteps[index] = Filling::directStep(properties[index]);
        if (const auto call = std::visit(EffectOf(), properties[index].access); call != nullptr)
            effect(call).properties.push_back(index);
    }
}

FillPlan::Effect& FillPlan::effect(void (BaseEntity::*call)()) {
    const auto known = std::ranges::find_if(m_effects, [call](const Effect& effect) {
        return effect.call == call; // unspecified for a virtual one, which may then be called more than once
    });
    return known == m_effects.end() ? m_effects.emplace_back(Effect{call, {}}) : *known;
}

} // namespace PerchAppLibrary
