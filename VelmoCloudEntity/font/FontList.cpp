#include <VelmoCloudEntity/font/FontList.hpp>

#include <VelmoCloudEntity/font/FontReferences.hpp>
#include <VelmoCloudEntity/font/LeafWalk.hpp>

namespace VelmoCloudEntity {
namespace {

void markMatching(const Records<FontItem>& list, const Records<FontItem>& references,
                  void (FontItem::*setFlag)(bool)) {
    if (list.empty() || references.empty())
        return;
    FontReferences index(references);
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>& leaf) {
        if (index.match(*leaf))
            ((*leaf).*setFlag)(true);
    });
}

} // namespace

Records<FontItem> FontList::getActivatedFont(const Records<FontItem>& list) {
    return leavesWhere(list, [](const FontItem& leaf) { return leaf.IsActivated(); });
}

Records<FontItem> FontList::getFavoritedFont(const Records<FontItem>& list) {
    return leavesWhere(list, [](const FontItem& leaf) { return leaf.IsFavorited(); });
}

Records<FontItem> FontList::getAuthorizedFont(const Records<FontItem>& list) {
    return leavesWhere(list, [](const FontItem& leaf) { return leaf.IsAuthed(); });
}

void FontList::setActivatedFont(const Records<FontItem>& list, const Records<FontItem>& activatedFont) {
    markMatching(list, activatedFont, &FontItem::setIsActivated);
}

void FontList::setFavoritedFont(const Records<FontItem>& list, const Records<FontItem>& favoritedFont) {
    markMatching(list, favoritedFont, &FontItem::setIsFavorited);
}

std::int64_t FontList::getFontCount(const Records<FontItem>& list) {
    std::int64_t count = 0;
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>&) { ++count; });
    return count;
}

std::int64_t FontList::getActivatedFontCount(const Records<FontItem>& list) {
    std::int64_t count = 0;
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>& leaf) { count += leaf->IsActivated() ? 1 : 0; });
    return count;
}

} // namespace VelmoCloudEntity
