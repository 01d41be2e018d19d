#pragma once

#include <VelmoCloudEntity/account/UserFontMap.hpp>

namespace VelmoCloudEntity {

/// The font groups of a user.
class UserFontGroupMapItem : public UserFontMap {
    PERCH_RECORD(UserFontGroupMapItem, UserFontMap);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(UserLabels, UserFontsLabels);
};

} // namespace VelmoCloudEntity
