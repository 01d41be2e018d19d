#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontFavoriteMapItem);

} // namespace VelmoCloudEntity
