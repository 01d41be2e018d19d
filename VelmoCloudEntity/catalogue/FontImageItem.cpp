#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::KeyList;
using PerchAppLibrary::NoDestructor;

PERCH_RECORD_SCHEMA(FontImageItem);

PerchAppLibrary::Dictionary FontImageItem::Dict() const {
    static const NoDestructor<KeyList> keys(
        KeyList{"ProductId", "PreviewText", "BackColor", "ForeColor", "EmSize"});
    return select(keys->keys());
}

} // namespace VelmoCloudEntity
