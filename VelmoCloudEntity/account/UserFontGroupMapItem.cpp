#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontGroupMapItem);

} // namespace VelmoCloudEntity
