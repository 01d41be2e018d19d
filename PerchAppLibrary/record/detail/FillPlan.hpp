#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace PerchAppLibrary {

/// The action for a value under a property's key.
struct FillAction {
    /// Ignores the value, defers it until the property's turn, or stores it in its place at once.
    /// Each type of Property::access has a kind for its fields, from fillFirstField, in their
    /// order.
    enum Kind : std::uint8_t {
        ignore,
        defer,
        fillNearFlag,
        fillRareText,
        fillArray,
        fillFirstField
    };

    std::uint8_t kind;
    const void* access; // of the property, if the action stores a value, else null

    /// True for the actions that store a value even if the property is excluded.
    bool ignoresState() const noexcept { return kind >= fillNearFlag && kind != fillArray; }
};

/// The plan by which the records of a class are filled. Immutable.
class FillPlan {
public:
    /// Requires that the properties outlive the plan.
    FillPlan(std::span<const Property> properties, bool overridesSetters);

    const NameIndex& names() const noexcept { return m_names; }

    /// The index in the actions for an unknown key.
    std::uint32_t unknownKey() const noexcept { return m_names.count(); }

    /// Returns one action for each property, then one for unknown keys, at unknownKey(). For a
    /// record of exactly the class, which no code but the filler reads meanwhile.
    std::span<const FillAction> directActions() const noexcept { return m_directActions; }

    /// Like directActions(), but defers all values. For a record of a subclass, or with excluded
    /// properties.
    std::span<const FillAction> setterActions() const noexcept { return m_setterActions; }

    /// Returns the indexes of the arrays of records.
    std::span<const std::size_t> arrays() const noexcept { return m_arrays; }

private:
    NameIndex m_names;
    std::vector<FillAction> m_setterActions;
    std::vector<FillAction> m_directActions;
    std::vector<std::size_t> m_arrays;
};

} // namespace PerchAppLibrary
