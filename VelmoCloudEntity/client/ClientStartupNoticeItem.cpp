#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ClientStartupNoticeItem);

} // namespace VelmoCloudEntity
