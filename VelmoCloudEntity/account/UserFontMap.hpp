#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// The base class of the records that connect a user with a list of fonts. A derived class adds no
/// properties; its name says what the list means.
class UserFontMap : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(UserFontMap, PerchAppLibrary::BaseEntity);

    /// Global identifier of the user.
    PERCH_PROPERTY(std::string, UserGuid);
    /// The user's fonts. Other arrays may share them.
    PERCH_PROPERTY(Records<FontItem>, FontList);

    PERCH_RECORD_END;

    /// Labels of a map without fonts: create({.userGuid = "u"}).
    PERCH_LABELS(UserLabels, (userGuid, UserGuid));

    /// Labels of a map with fonts: create({.userGuid = "u", .fontList = fonts}).
    PERCH_LABELS(UserFontsLabels, (userGuid, UserGuid), (fontList, FontList));

    /// create(json) does not call overrides of the mapping or of setValue().
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
