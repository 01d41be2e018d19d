#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// An effect for a font. Made from JSON only, by create(json), which calls the virtual setValue().
class ZRFontEffectEntity : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD_FROM_JSON(ZRFontEffectEntity, PerchAppLibrary::BaseEntity);

    /// Name of the effect.
    PERCH_PROPERTY(std::string, ProductName);
    /// The effect is a favourite of the user.
    PERCH_PROPERTY(bool, IsFavorite);
    /// The effect is available to members only.
    PERCH_PROPERTY(bool, IsMemberEffect);
    /// Identifier of the font that the effect belongs to.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Address of the effect.
    PERCH_PROPERTY(std::string, Url);
    /// Disabled entries are included. True by default.
    PERCH_PROPERTY(bool, ContainDisabled, true);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
