#include <VelmoCloudEntity/catalogue/FontCollectionItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(FontCollectionItem);

} // namespace VelmoCloudEntity
