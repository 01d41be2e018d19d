#include <VelmoCloudEntity/font/FontList.hpp>

#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/detail/FontNames.hpp>
#include <VelmoCloudEntity/font/detail/FontReferences.hpp>
#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/IdSet.hpp>
#include <PerchAppLibrary/platform/Needle.hpp>
#include <PerchAppLibrary/platform/NeedleSet.hpp>

#include <algorithm>

namespace VelmoCloudEntity {

using PerchAppLibrary::IdSet;
using PerchAppLibrary::text::Case;
using PerchAppLibrary::text::ComparedText;
using PerchAppLibrary::text::Needle;
using PerchAppLibrary::text::NeedleSet;
using PerchAppLibrary::text::SearchedText;

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

/// Whether all the identifiers, each of which is there once, are among the tags.
bool carriesAll(const IdSet::Ids& tags, const IdSet::Ids& ids) {
    constexpr std::size_t few = 256; // comparisons that are made sooner than a set
    if (ids.size() > tags.size())
        return false;
    if (ids.size() * tags.size() <= few)
        return std::ranges::all_of(
            ids, [&tags](std::int64_t id) { return std::ranges::find(tags, id) != tags.end(); });
    const IdSet carried(tags);
    return std::ranges::all_of(ids, [&carried](std::int64_t id) { return carried.contains(id); });
}

/// The needles of FontList::isFontMatchedByCharacter().
NeedleSet charactersOf(std::string_view key) {
    NeedleSet needles;
    for (const std::string_view character : searchedCharacters(key))
        needles.add(character);
    return needles;
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

Records<FontItem> FontList::getFontByName(const Records<FontItem>& list, const std::string& fontName,
                                          bool fuzzy) {
    const Needle needle(fontName);
    const ComparedText sought(fontName, Case::kept);
    FontNames names;
    SearchedText searched;
    ComparedText compared(Case::kept);
    return namedLeavesWhere(list, names.mayHold(needle.signature()), [&](const FontItem& leaf) {
        if (fuzzy) {
            searched.assign(leaf.ProductName());
            return needle.isIn(searched);
        }
        compared.assign(leaf.ProductName());
        return compared == sought;
    });
}

Records<FontItem> FontList::getFontByKey(const Records<FontItem>& list, const std::string& key, bool fuzzy) {
    const Needle needle(key);
    FontNames names;
    if (!fuzzy)
        return namedLeavesWhere(list, names.mayHold(needle.signature()), [&](const FontItem& leaf) {
            return names.anyStored(leaf, [&](SearchedText& name) { return name.is(needle.text()); });
        });
    const auto test = [&](auto& texts) { return needle.isIn(texts); };
    return namedLeavesWhere(
        list, [&](const FontItem& leaf) { return names.told(leaf, test); },
        [&](const FontItem& leaf) { return names.any(leaf, test); });
}

std::pair<Records<FontItem>, Records<FontItem>> FontList::getSearchResultFont(const Records<FontItem>& list,
                                                                              const std::string& key) {
    const Needle needle(key);
    const NeedleSet characters = charactersOf(key);
    FontNames names;
    const auto hasKey = [&](auto& texts) { return needle.isIn(texts); };
    const auto hasCharacter = [&](auto& texts) { return characters.anyIn(texts); };
    const auto tell = [&](const FontItem& leaf) {
        const std::optional<bool> whole = names.told(leaf, hasKey);
        const std::optional<bool> character = names.told(leaf, hasCharacter);
        return whole && character ? std::optional(*whole || *character) : std::nullopt;
    };
    std::pair<Records<FontItem>, Records<FontItem>> result;
    forEachNamedLeaf(list, tell, [&](const std::shared_ptr<FontItem>& leaf) {
        if (names.any(*leaf, hasKey))
            result.first.push_back(leaf);
        if (names.any(*leaf, hasCharacter))
            result.second.push_back(leaf);
    });
    return result;
}

bool FontList::isFontMatchedByCharacter(const std::shared_ptr<FontItem>& font, const std::string& key) {
    const NeedleSet characters = charactersOf(key);
    return FontNames().any(*font, [&](auto& searched) { return characters.anyIn(searched); });
}

Records<FontItem> FontList::getFontById(const Records<FontItem>& list,
                                        const std::vector<std::int64_t>& fontIdList) {
    const IdSet ids(fontIdList);
    return leavesWhere(list, [&ids](const FontItem& leaf) { return ids.contains(leaf.Id()); });
}

std::shared_ptr<FontItem> FontList::getFontItemById(const Records<FontItem>& list, std::int64_t fontId) {
    const auto found =
        std::ranges::find_if(list, [fontId](const auto& item) { return item->Id() == fontId; });
    return found == list.end() ? nullptr : *found;
}

Records<FontItem> FontList::getFontByTags(const Records<FontItem>& list, const Records<FontTagItem>& tags) {
    IdSet::Ids ids;
    for (const std::shared_ptr<FontTagItem>& tag : tags)
        ids.push_back(tag->Id());
    ids = IdSet(ids).ids(); // each once
    return leavesWhere(list, [&ids](const FontItem& leaf) { return carriesAll(leaf.Tags(), ids); });
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
