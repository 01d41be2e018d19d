#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(FontSearchItem);

PerchAppLibrary::Dictionary FontSearchItem::Dict() const {
    static const PerchAppLibrary::KeyList keys{"UserGuid",   "ProductId",   "SearchKey",
                                               "PlatformId", "SearchCount", "Ranking"};
    return select(keys.keys());
}

} // namespace VelmoCloudEntity
