#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <PerchAppLibrary/record/detail/FillPlan.hpp>
#include <PerchAppLibrary/record/detail/PropertyKind.hpp>
#include <PerchAppLibrary/record/internal/RecordWriter.hpp>

#include <algorithm>
#include <iterator>

namespace PerchAppLibrary {
namespace {

/// Returns the base's properties, without those that the class redeclares, and then its own. An
/// array that has other elements keeps its place.
std::vector<Property> inheritedAndOwn(const RecordSchema* base, std::vector<Property> own) {
    std::vector<Property> properties;
    if (base != nullptr)
        properties.assign(base->properties().begin(), base->properties().end());
    for (Property& each : own) {
        const auto* const records = std::get_if<RecordsAccess>(&each.access);
        const bool keepsPlace = records != nullptr && records->isNarrowed;
        const auto inherited = std::ranges::find(properties, each.name, &Property::name);
        if (inherited != properties.end() && keepsPlace)
            *inherited = std::move(each);
        else {
            if (inherited != properties.end())
                properties.erase(inherited);
            properties.push_back(std::move(each));
        }
    }
    for (Property& property : properties)
        property.textKey = ",\"" + std::string(property.name) + "\":";
    return properties;
}

Excluded namesOfArrays(std::span<const Property> properties) {
    std::vector<std::string> names;
    for (const Property& property : properties)
        if (std::holds_alternative<RecordsAccess>(property.access))
            names.emplace_back(property.name);
    return names.empty() ? Excluded() : Excluded(std::move(names));
}

std::vector<EffectOfChange> inheritedAndOwn(const RecordSchema* base, EffectOfChange own) {
    std::vector<EffectOfChange> effects;
    if (base != nullptr)
        effects.assign(base->effects().begin(), base->effects().end());
    if (own != nullptr && std::ranges::find(effects, own) == effects.end())
        effects.push_back(own);
    return effects;
}

} // namespace

RecordSchema::RecordSchema(std::string_view className, const std::type_info& type,
                           const RecordSchema* base, std::vector<Property> own, Overrides overrides,
                           EffectOfChange effect)
    : m_className(className),
      m_type(&type),
      m_overrides(overrides),
      m_properties(inheritedAndOwn(base, std::move(own))),
      m_arrays(namesOfArrays(m_properties)),
      m_effects(inheritedAndOwn(base, effect)),
      m_fillPlan(std::make_unique<const FillPlan>(m_properties, overrides.setters)),
      m_writer(std::make_unique<const RecordWriter>(*this, Excluded())) {}

RecordSchema::~RecordSchema() = default;

std::size_t RecordSchema::find(std::string_view name) const noexcept {
    const std::size_t index = m_fillPlan->names().find(name);
    return index < m_properties.size() ? index : notFound;
}

void addProperty(std::vector<Property>& properties, std::string_view name,
                 const ValueTypes::Apply<AnyAccess>& access) {
    properties.push_back({name, access});
}

void assignRecord(Value& place, const BaseEntity* record) {
    if (record != nullptr)
        assign(place, record->properties());
}

std::string Property::kind() const {
    return std::visit(
        []<class Access>(const Access& each) -> std::string {
            if constexpr (requires { typename Access::Value; })
                return PropertyKind<typename Access::Value>::name();
            else if constexpr (requires { each.className; })
                return (each.isSingle ? "" : "array of ") + std::string(each.className);
            else
                return "any";
        },
        access);
}

Value Property::value(const BaseEntity& record) const {
    return std::visit(
        [&]<class Access>(const Access& each) -> Value {
            if constexpr (requires { typename Access::Value; }) {
                return toValue((record.*each.get)());
            } else if constexpr (requires { each.read; }) {
                Value value;
                each.read(record, value);
                return value;
            } else {
                ValueArray values;
                for (const BaseEntity* const item : each.get(record))
                    assignRecord(values.emplace_back(nullptr), item);
                return each.isSingle ? std::move(values.front()) : Value(std::move(values));
            }
        },
        access);
}

} // namespace PerchAppLibrary
