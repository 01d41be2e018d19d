#include <VelmoCloudEntity/account/EsUserItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(EsUserItem);

PerchAppLibrary::Dictionary EsUserItem::Dict() const { return properties(); }

} // namespace VelmoCloudEntity
