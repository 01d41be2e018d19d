#include "LiteralSearch.hpp"
#include "LiteralText.hpp"

#include <algorithm>
#include <iterator>

using icu::UnicodeString;
using literal::contains;
using literal::decomposed;
using literal::folded;
using literal::unicode;
using VelmoCloudEntity::FontItem;
using Fonts = LiteralSearch::Fonts;

namespace {

bool isInAName(const FontItem& font, const UnicodeString& key) {
    return contains(font.ProductName(), key) || contains(font.ProductSetName(), key) ||
           contains(font.ProductFileName(), key) || contains(font.DisplayName(), key);
}

bool isAName(const FontItem& font, const UnicodeString& key) {
    return folded(unicode(font.ProductName())) == folded(key) ||
           folded(unicode(font.ProductSetName())) == folded(key) ||
           folded(unicode(font.ProductFileName())) == folded(key);
}

/// The leaves of the tree that pass the test.
template <class Test>
Fonts leaves(const Fonts& list, const Test& test) {
    Fonts result;
    for (const auto& font : list) {
        if (font->IsGroup())
            std::ranges::copy(leaves(font->Children(), test), std::back_inserter(result));
        else if (test(font))
            result.push_back(font);
    }
    return result;
}

} // namespace

Fonts LiteralSearch::getFontByName(const Fonts& list, const std::string& fontName, bool fuzzy) {
    const UnicodeString name = unicode(fontName);
    return leaves(list, [&](const auto& font) {
        return fuzzy ? contains(font->ProductName(), name)
                     : decomposed(unicode(font->ProductName())) == decomposed(name);
    });
}

Fonts LiteralSearch::getFontByKey(const Fonts& list, const std::string& key, bool fuzzy) {
    return leaves(list, [&](const auto& font) {
        return fuzzy ? isInAName(*font, unicode(key)) : isAName(*font, unicode(key));
    });
}

std::pair<Fonts, Fonts> LiteralSearch::getSearchResultFont(const Fonts& list,
                                                           const std::string& key) {
    return {getFontByKey(list, key, true),
            leaves(list, [&](const auto& font) { return isFontMatchedByCharacter(font, key); })};
}

bool LiteralSearch::isFontMatchedByCharacter(const std::shared_ptr<FontItem>& font,
                                             const std::string& key) {
    const UnicodeString units = unicode(key);
    const int count = literal::characterCount(units);
    for (int place = 0; place < count; ++place)
        // Half of a character is in nothing.
        if (!U16_IS_SURROGATE(units[place]) && isInAName(*font, UnicodeString(units[place])))
            return true;
    return false;
}
