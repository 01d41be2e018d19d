#include "Catalogue.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <unordered_set>

namespace client {

using namespace VelmoCloudEntity;

namespace {

/// Returns the fonts of `fonts` that are not in `others`.
Fonts without(const Fonts& others, Fonts fonts) {
    std::unordered_set<const FontItem*> excluded(others.size());
    for (const auto& font : others)
        excluded.insert(font.get());
    std::erase_if(fonts, [&](const auto& font) { return excluded.contains(font.get()); });
    return fonts;
}

} // namespace

Found Catalogue::find(const std::string& key, bool characters) {
    if (!m_passing)
        m_passing = fontsPassingTags();
    Found found;
    if (key.empty()) {
        found.fonts = *m_passing;
    } else if (!characters) {
        found.fonts = FontList::getFontByKey(*m_passing, key, true);
    } else {
        auto [whole, byCharacter] = FontList::getSearchResultFont(*m_passing, key);
        found.byCharacter = without(whole, std::move(byCharacter));
        found.fonts = std::move(whole);
    }
    return found;
}

Fonts Catalogue::fontsPassingTags() const {
    if (!hasTicks())
        return m_fonts.List();
    std::vector<std::int64_t> ids;
    forEachLeaf(m_fonts.List(), [&ids](const auto& font) { ids.push_back(font->Id()); });
    Fonts passing = FontList::getFontById(m_fonts.List(),
                                          FontTagList::getCheckedFontTagFontIdList(tags(), ids));
    // Tags are for the catalogue's fonts. A private font may have the Id of one of these.
    std::erase_if(passing, [](const auto& font) { return font->IsPrivate(); });
    return passing;
}

void Catalogue::tick(FontTagItem& tag, bool isTicked) {
    tag.setIsChecked(isTicked);
    m_passing.reset();
}

void Catalogue::untickAll() {
    FontTagList::setFontTagItemCheck(tags(), false);
    m_passing.reset();
}

bool Catalogue::hasTicks() const { return !FontTagList::getCheckedFontTagList(tags()).empty(); }

} // namespace client
