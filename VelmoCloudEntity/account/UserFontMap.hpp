#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// What the records that tie a user to a list of fonts have in common. Each of them is a class of
/// its own name with nothing but the ways of making one, since a reply is read into the class that
/// says what its list means.
class UserFontMap : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(UserFontMap, PerchAppLibrary::BaseEntity);

    /// The user.
    PERCH_PROPERTY(std::string, UserGuid);
    /// The user's fonts, shared with whoever else holds them.
    PERCH_PROPERTY(Records<FontItem>, FontList);

    PERCH_RECORD_END;

    /// Labels of a map without fonts, create({.userGuid = "u"}), and of one with the given fonts.
    PERCH_LABELS(UserLabels, (userGuid, UserGuid));
    PERCH_LABELS(UserFontsLabels, (userGuid, UserGuid), (fontList, FontList));

    /// Overrides of the mapping and of setValue() do not run in create(json).
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
