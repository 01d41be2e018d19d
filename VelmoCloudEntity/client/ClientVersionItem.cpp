#include <VelmoCloudEntity/client/ClientVersionItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ClientVersionItem);

} // namespace VelmoCloudEntity
