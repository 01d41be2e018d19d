#include <VelmoCloudEntity/font/FontList.hpp>

#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/detail/FontReferences.hpp>
#include <VelmoCloudEntity/font/detail/NameQuery.hpp>
#include <VelmoCloudEntity/font/detail/NameSearch.hpp>

#include <PerchAppLibrary/container/internal/IdSet.hpp>

#include <algorithm>
#include <cassert>

namespace VelmoCloudEntity {

using PerchAppLibrary::IdSet;

namespace {

/// Calls `setFlag(true)` for each leaf that matches a reference.
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

/// Returns whether the tags contain all identifiers. Requires that no identifier is repeated.
bool containsAll(const IdSet::Ids& tags, const IdSet::Ids& ids) {
    constexpr std::size_t maxComparisons = 256; // Up to here, comparing is faster than an IdSet.
    if (ids.size() > tags.size())
        return false;
    if (ids.size() * tags.size() <= maxComparisons)
        return std::ranges::all_of(
            ids, [&tags](std::int64_t id) { return std::ranges::find(tags, id) != tags.end(); });
    const IdSet tagSet(tags);
    return std::ranges::all_of(ids, [&tagSet](std::int64_t id) { return tagSet.contains(id); });
}

/// Returns the leaves that match the query.
template <NameQuery Query>
Records<FontItem> leavesMatching(const Records<FontItem>& list, Query query) {
    return std::move(NameSearch(std::move(query)).in(list)[0]);
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

void FontList::setActivatedFont(const Records<FontItem>& list,
                                const Records<FontItem>& activatedFont) {
    assert(hasNoNull(activatedFont));
    markMatching(list, activatedFont, &FontItem::setIsActivated);
}

void FontList::setFavoritedFont(const Records<FontItem>& list,
                                const Records<FontItem>& favoritedFont) {
    assert(hasNoNull(favoritedFont));
    markMatching(list, favoritedFont, &FontItem::setIsFavorited);
}

Records<FontItem> FontList::getFontByName(const Records<FontItem>& list,
                                          const std::string& fontName, bool fuzzy) {
    if (fuzzy)
        return leavesMatching(list, FuzzyNameQuery(fontName));
    return leavesMatching(list, ExactNameQuery(fontName));
}

Records<FontItem> FontList::getFontByKey(const Records<FontItem>& list, const std::string& key,
                                         bool fuzzy) {
    if (fuzzy)
        return leavesMatching(list, FuzzyKeyQuery(key));
    return leavesMatching(list, ExactKeyQuery(key));
}

std::pair<Records<FontItem>, Records<FontItem>>
FontList::getSearchResultFont(const Records<FontItem>& list, const std::string& key) {
    auto [whole, character] = NameSearch(FuzzyKeyQuery(key), CharacterQuery(key)).in(list);
    return {std::move(whole), std::move(character)};
}

bool FontList::isFontMatchedByCharacter(const std::shared_ptr<FontItem>& font,
                                        const std::string& key) {
    return matches(*font, CharacterQuery(key));
}

Records<FontItem> FontList::getFontById(const Records<FontItem>& list,
                                        const std::vector<std::int64_t>& fontIdList) {
    const IdSet ids(fontIdList);
    return leavesWhere(list, [&ids](const FontItem& leaf) { return ids.contains(leaf.Id()); });
}

std::shared_ptr<FontItem> FontList::getFontItemById(const Records<FontItem>& list,
                                                    std::int64_t fontId) {
    assert(hasNoNull(list));
    const auto found =
        std::ranges::find_if(list, [fontId](const auto& item) { return item->Id() == fontId; });
    return found == list.end() ? nullptr : *found;
}

Records<FontItem> FontList::getFontByTags(const Records<FontItem>& list,
                                          const Records<FontTagItem>& tags) {
    assert(hasNoNull(tags));
    IdSet::Ids ids;
    for (const std::shared_ptr<FontTagItem>& tag : tags)
        ids.push_back(tag->Id());
    ids = IdSet(ids).ids(); // removes duplicates
    return leavesWhere(list,
                       [&ids](const FontItem& leaf) { return containsAll(leaf.Tags(), ids); });
}

std::int64_t FontList::getFontCount(const Records<FontItem>& list) {
    std::int64_t count = 0;
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>&) { ++count; });
    return count;
}

std::int64_t FontList::getActivatedFontCount(const Records<FontItem>& list) {
    std::int64_t count = 0;
    forEachLeaf(
        list, [&](const std::shared_ptr<FontItem>& leaf) { count += leaf->IsActivated() ? 1 : 0; });
    return count;
}

} // namespace VelmoCloudEntity
