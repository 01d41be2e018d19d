#pragma once

#include <VelmoCloudEntity/account/UserFontMap.hpp>

namespace VelmoCloudEntity {

/// The favourite fonts of a user.
class UserFontFavoriteMapItem : public UserFontMap {
    PERCH_RECORD(UserFontFavoriteMapItem, UserFontMap);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(UserLabels, UserFontsLabels);
};

} // namespace VelmoCloudEntity
