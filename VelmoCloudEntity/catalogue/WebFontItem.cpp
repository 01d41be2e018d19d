#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(WebFontItem);

} // namespace VelmoCloudEntity
