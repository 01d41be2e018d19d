#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(FontApplyItem);

} // namespace VelmoCloudEntity
