#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(FontUploadItem);

PerchAppLibrary::Dictionary FontUploadItem::Dict() const {
    static const PerchAppLibrary::KeyList keys{"UserGuid", "ProductFileName"};
    return select(keys.keys());
}

} // namespace VelmoCloudEntity
