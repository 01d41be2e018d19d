#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>

#include <PerchAppLibrary/container/internal/IdSet.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <utility>

namespace VelmoCloudEntity {

using PerchAppLibrary::IdSet;

PERCH_RECORD_SCHEMA(FontTagItem);

FontTagItem::FontTagItem() = default;

FontTagItem::~FontTagItem() {
    detail::releaseTree(m_Children, [](FontTagItem& tag) { return std::move(tag.m_Children); });
}

std::optional<IdSet::Ids> FontTagItem::CheckedFontTagFontIdList() const {
    if (!IsGroup())
        return IsChecked() ? std::optional(FontIdList()) : std::nullopt;
    std::vector<const IdSet::Ids*> lists;
    for (const std::shared_ptr<FontTagItem>& child : Children())
        if (child->IsChecked())
            lists.push_back(&child->FontIdList());
    if (lists.empty())
        return std::nullopt;
    const std::string& type = SubTagFilterType();
    if (lists.size() > 1 && type == "Or")
        return PerchAppLibrary::unionOf(lists);
    if (lists.size() > 1 && type == "And")
        return PerchAppLibrary::intersectionOf(lists);
    return *lists.front();
}

} // namespace VelmoCloudEntity
