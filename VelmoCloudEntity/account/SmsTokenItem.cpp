#include <VelmoCloudEntity/account/SmsTokenItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(SmsTokenItem);

} // namespace VelmoCloudEntity
