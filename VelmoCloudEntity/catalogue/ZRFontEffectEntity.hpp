#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// An effect offered for a font. It is always made from JSON: `create(json)`, which runs the
/// virtual setValue().
class ZRFontEffectEntity : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD_FROM_JSON(ZRFontEffectEntity, PerchAppLibrary::BaseEntity);

    /// Name of the effect.
    PERCH_PROPERTY(std::string, ProductName);
    /// The user has marked the effect as a favourite.
    PERCH_PROPERTY(bool, IsFavorite);
    /// The effect is reserved to members.
    PERCH_PROPERTY(bool, IsMemberEffect);
    /// Font that the effect belongs to.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Address of the effect.
    PERCH_PROPERTY(std::string, Url);
    /// Disabled entries are included.
    PERCH_PROPERTY(bool, ContainDisabled, true);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
