#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ZRMessageBubbleItem);

} // namespace VelmoCloudEntity
