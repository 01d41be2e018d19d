#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <PerchAppLibrary/container/internal/IdSet.hpp>

#include <optional>

namespace VelmoCloudEntity {

using PerchAppLibrary::IdSet;

Records<FontTagItem> FontTagList::getCheckedFontTagList(const Records<FontTagItem>& tags) {
    return leavesWhere(tags, [](const FontTagItem& tag) { return tag.IsChecked(); });
}

void FontTagList::setFontTagItemCheck(const Records<FontTagItem>& tags, bool check) {
    forEachLeaf(tags,
                [check](const std::shared_ptr<FontTagItem>& tag) { tag->setIsChecked(check); });
}

IdSet::Ids FontTagList::getCheckedFontTagFontIdList(const Records<FontTagItem>& tags,
                                                    const IdSet::Ids& fontIdList) {
    std::vector<IdSet::Ids> groupLists;
    groupLists.reserve(tags.size()); // keeps the pointers below valid
    std::vector<const IdSet::Ids*> lists{&fontIdList};
    for (const std::shared_ptr<FontTagItem>& tag : tags) {
        if (!tag->IsGroup()) {
            if (tag->IsChecked() && !tag->Children().empty())
                lists.push_back(&tag->FontIdList());
        } else if (std::optional<IdSet::Ids> ids = tag->CheckedFontTagFontIdList()) {
            groupLists.push_back(*std::move(ids));
            lists.push_back(&groupLists.back());
        }
    }
    return lists.size() == 1 ? fontIdList : PerchAppLibrary::intersectionOf(lists);
}

} // namespace VelmoCloudEntity
