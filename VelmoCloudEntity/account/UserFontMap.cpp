#include <VelmoCloudEntity/account/UserFontMap.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontMap);

} // namespace VelmoCloudEntity
