#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ZRFontEffectEntity);

} // namespace VelmoCloudEntity
