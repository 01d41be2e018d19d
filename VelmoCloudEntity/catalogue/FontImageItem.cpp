#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(FontImageItem);

PerchAppLibrary::Dictionary FontImageItem::Dict() const {
    static const PerchAppLibrary::KeyList keys{"ProductId", "PreviewText", "BackColor", "ForeColor",
                                               "EmSize"};
    return select(keys.keys());
}

} // namespace VelmoCloudEntity
