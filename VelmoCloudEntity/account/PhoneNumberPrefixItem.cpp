#include <VelmoCloudEntity/account/PhoneNumberPrefixItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(PhoneNumberPrefixItem);

} // namespace VelmoCloudEntity
