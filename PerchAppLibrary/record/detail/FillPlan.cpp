#include <PerchAppLibrary/record/detail/FillPlan.hpp>

#include <concepts>
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

/// Returns the action that stores a value in its place.
FillAction directActionOf(const Property& property) {
    return std::visit(
        [&]<class Access>(const Access& access) -> FillAction {
            if constexpr (requires { access.place; })
                switch (access.place) {
                case Place::field:
                    return {static_cast<std::uint8_t>(FillAction::fillFirstField +
                                                      property.access.index()),
                            &access};
                case Place::near:
                    return {FillAction::fillNearFlag, &access};
                case Place::rare:
                    return {FillAction::fillRareText, &access};
                case Place::none:
                    break;
                }
            if constexpr (std::same_as<Access, RecordsAccess>)
                return {FillAction::fillArray, &access};
            else
                return {FillAction::defer, nullptr};
        },
        property.access);
}

} // namespace

FillPlan::FillPlan(std::span<const Property> properties, bool overridesSetters)
    : m_names(namesOf(properties)),
      m_setterActions(properties.size(), FillAction{FillAction::defer, nullptr}) {
    m_setterActions.push_back({FillAction::ignore, nullptr});
    m_directActions = m_setterActions;
    for (std::size_t index = 0; index < properties.size(); ++index) {
        const Property& property = properties[index];
        if (std::holds_alternative<RecordsAccess>(property.access))
            m_arrays.push_back(index);
        if (!overridesSetters) // A setter may read other properties, so all are set in order.
            m_directActions[index] = directActionOf(property);
    }
}

} // namespace PerchAppLibrary
