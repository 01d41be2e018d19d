#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::KeyList;
using PerchAppLibrary::NoDestructor;

PERCH_RECORD_SCHEMA(FontSearchItem);

PerchAppLibrary::Dictionary FontSearchItem::Dict() const {
    static const NoDestructor<KeyList> keys(
        KeyList{"UserGuid", "ProductId", "SearchKey", "PlatformId", "SearchCount", "Ranking"});
    return select(keys->keys());
}

} // namespace VelmoCloudEntity
