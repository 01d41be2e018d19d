#include "Catalogue.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <unordered_set>

namespace client {

using namespace VelmoCloudEntity;

Found Catalogue::find(const std::string& key, bool characters) {
    if (!m_passing)
        m_passing = fontsPassingTags();
    if (key.empty())
        return {*m_passing, {}};
    if (!characters)
        return {FontList::getFontByKey(*m_passing, key, true), {}};
    auto [whole, others] = FontList::getSearchResultFont(*m_passing, key);
    if (others == whole) // as they are for a key of one character
        return {std::move(whole), {}};
    const std::unordered_set<std::shared_ptr<FontItem>> excluded(whole.begin(), whole.end());
    std::erase_if(others, [&](const auto& font) { return excluded.contains(font); });
    return {std::move(whole), std::move(others)};
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
