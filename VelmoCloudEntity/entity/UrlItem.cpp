#include <VelmoCloudEntity/entity/UrlItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UrlItem);

} // namespace VelmoCloudEntity
