#include <VelmoCloudEntity/client/ClientOperaItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ClientOperaItem);

} // namespace VelmoCloudEntity
