#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::KeyList;
using PerchAppLibrary::NoDestructor;

PERCH_RECORD_SCHEMA(FontUploadItem);

PerchAppLibrary::Dictionary FontUploadItem::Dict() const {
    static const NoDestructor<KeyList> keys(KeyList{"UserGuid", "ProductFileName"});
    return select(keys->keys());
}

} // namespace VelmoCloudEntity
