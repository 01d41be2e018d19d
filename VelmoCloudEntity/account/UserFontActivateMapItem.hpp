#pragma once

#include <VelmoCloudEntity/account/UserFontMap.hpp>

namespace VelmoCloudEntity {

/// The fonts that a user has activated, that is, made available to the system.
class UserFontActivateMapItem : public UserFontMap {
    PERCH_RECORD(UserFontActivateMapItem, UserFontMap);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(UserLabels, UserFontsLabels);
};

} // namespace VelmoCloudEntity
