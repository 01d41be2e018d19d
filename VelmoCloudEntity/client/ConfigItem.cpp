#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(ConfigItem);

bool ConfigItem::UseFixPreviewTag() const {
    constexpr std::array fixedTags{"S", "F", "N", "E"};
    return std::ranges::find(fixedTags, PreviewTag()) != fixedTags.end();
}

std::string ConfigItem::InteractionAppTagName() const {
    constexpr std::array names{"ps", "ai", "id", "ppt", "word", "sketch", "keynote"};
    const std::int64_t tag = InteractionAppTag();
    return tag >= 0 && std::cmp_less(tag, names.size()) ? names[static_cast<std::size_t>(tag)] : "";
}

PerchAppLibrary::Dictionary ConfigItem::Dict() const { return properties(); }

} // namespace VelmoCloudEntity
