#include "Catalogue.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/entity/Reply.hpp>

#include <unordered_set>

namespace client {

using namespace VelmoCloudEntity;

namespace {

Found searchWholeKey(const Fonts& fonts, const std::string& key) {
    Found found{.fonts = FontList::getFontByKey(fonts, key, true)};
    found.wholeKey = found.fonts.size();
    return found;
}

/// Returns the fonts that contain the key, then those that contain a character of it.
Found search(const Fonts& fonts, const std::string& key) {
    auto [whole, byCharacter] = FontList::getSearchResultFont(fonts, key);
    std::unordered_set<const FontItem*> seen(whole.size());
    for (const auto& font : whole)
        seen.insert(font.get());
    Found found;
    found.wholeKey = whole.size();
    found.fonts = std::move(whole);
    for (auto& font : byCharacter)
        if (!seen.contains(font.get()))
            found.fonts.push_back(std::move(font));
    return found;
}

} // namespace

void Catalogue::readFonts(const std::string& reply) {
    m_fonts = parseReply<FontList>(reply, replyLimits);
    m_fontCount = FontList::getFontCount(m_fonts.List());
    m_passing.reset();
    // The first search computes the signatures of all names. Here, nobody waits for a key.
    FontList::getFontByName(m_fonts.List(), "a", true);
}

void Catalogue::readTags(const std::string& reply) {
    m_tags = parseReply<FontTagList>(reply, replyLimits);
    m_passing.reset();
}

void Catalogue::markActivated(const std::string& reply) {
    FontList::setActivatedFont(m_fonts.List(),
                               parseReply<UserFontActivateMapItem>(reply, replyLimits)->FontList());
}

void Catalogue::markFavourites(const std::string& reply) {
    FontList::setFavoritedFont(m_fonts.List(),
                               parseReply<UserFontFavoriteMapItem>(reply, replyLimits)->FontList());
}

Found Catalogue::find(const std::string& key, bool alsoByCharacter) {
    const auto begin = std::chrono::steady_clock::now();
    if (!m_passing)
        m_passing = fontsPassingTags();
    Found found = key.empty()       ? Found{.fonts = *m_passing}
                  : alsoByCharacter ? search(*m_passing, key)
                                    : searchWholeKey(*m_passing, key);
    found.duration = std::chrono::steady_clock::now() - begin;
    found.count = FontList::getFontCount(found.fonts);
    return found;
}

Fonts Catalogue::fontsPassingTags() const {
    if (!isAnyTicked())
        return m_fonts.List();
    std::vector<std::int64_t> ids;
    forEachLeaf(m_fonts.List(), [&ids](const auto& font) { ids.push_back(font->Id()); });
    Fonts passing = FontList::getFontById(m_fonts.List(),
                                          FontTagList::getCheckedFontTagFontIdList(tags(), ids));
    // Tags are for the catalogue's fonts. A private font may have the Id of one of these.
    std::erase_if(passing, [](const auto& font) { return font->IsPrivate(); });
    return passing;
}

bool Catalogue::isAnyTicked() const { return !FontTagList::getCheckedFontTagList(tags()).empty(); }

void Catalogue::tick(FontTagItem& tag, bool isTicked) {
    tag.setIsChecked(isTicked);
    m_passing.reset();
}

void Catalogue::untickAll() {
    FontTagList::setFontTagItemCheck(tags(), false);
    m_passing.reset();
}

} // namespace client
