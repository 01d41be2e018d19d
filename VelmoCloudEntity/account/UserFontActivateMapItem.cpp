#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontActivateMapItem);

} // namespace VelmoCloudEntity
