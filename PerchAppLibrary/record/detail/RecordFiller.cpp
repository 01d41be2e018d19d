#include <PerchAppLibrary/record/detail/RecordFiller.hpp>

#include <PerchAppLibrary/record/detail/DocumentSource.hpp>

namespace PerchAppLibrary {

template class RecordFiller<DocumentSource>;

namespace {

std::vector<std::string_view> namesOf(std::span<const Property> properties) {
    std::vector<std::string_view> names;
    names.reserve(properties.size());
    for (const Property& property : properties)
        names.push_back(property.name);
    return names;
}

/// Returns the step that puts a value in its place.
FillPlan::Step directStepOf(const Property& property) {
    return std::visit(
        [&]<class Access>(const Access& access) -> FillPlan::Step {
            if constexpr (requires { access.place; })
                switch (access.place) {
                case Place::field:
                    return {static_cast<std::uint8_t>(FillPlan::fillFirstField + property.access.index()),
                            &access};
                case Place::flag:
                    return {FillPlan::fillFlag, &access};
                case Place::sparse:
                    return {FillPlan::fillSparseText, &access};
                case Place::none:
                    break;
                }
            return {FillPlan::defer, nullptr};
        },
        property.access);
}

EffectOfChange effectOf(const Property& property) {
    return std::visit(
        []<class Access>(const Access& access) -> EffectOfChange {
            if constexpr (requires { access.effect; })
                return access.effect;
            else
                return nullptr; // the setter of an array calls it
        },
        property.access);
}

} // namespace

FillPlan::FillPlan(std::span<const Property> properties, bool overridesSetters)
    : m_names(namesOf(properties)), m_setterSteps(properties.size(), Step{defer, nullptr}) {
    m_setterSteps.push_back({ignore, nullptr});
    m_directSteps = m_setterSteps;
    for (std::size_t index = 0; index < properties.size(); ++index) {
        const Property& property = properties[index];
        if (std::holds_alternative<RecordsAccess>(property.access))
            m_arrays.push_back(index);
        if (overridesSetters) // they may read other properties, so all wait for their turns
            continue;
        m_directSteps[index] = directStepOf(property);
        if (const EffectOfChange call = effectOf(property); call != nullptr) {
            auto known = std::ranges::find(m_effects, call, &Effect::call);
            if (known == m_effects.end())
                known = m_effects.insert(known, Effect{call, {}});
            known->properties.push_back(index);
        }
    }
}

void readRecords(const JSON& json, bool onlyObjects, RecordSink& sink) {
    const DocumentSource source(json);
    if (const auto root = source.root())
        RecordFiller(source).readInto(sink, *root, onlyObjects);
}

} // namespace PerchAppLibrary
