#include "LiteralSearch.hpp"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

using icu::UnicodeString;
using VelmoCloudEntity::FontItem;
using Fonts = LiteralSearch::Fonts;

namespace {

void check(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
}

/// The text's UTF-16; ill-formed sequences become U+FFFD.
UnicodeString unicode(const std::string& text) { return UnicodeString::fromUTF8(text); }

template <auto form>
UnicodeString normalized(const UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    UnicodeString result = form(status)->normalize(text, status);
    check(status);
    return result;
}

constexpr auto decomposed = normalized<icu::Normalizer2::getNFDInstance>;
constexpr auto composed = normalized<icu::Normalizer2::getNFCInstance>;

/// Decomposed first: the upper-casing of some Greek depends on the order of its marks.
UnicodeString upperCased(const UnicodeString& text) {
    return decomposed(decomposed(text).toUpper(icu::Locale::getRoot()));
}

/// Returns whether a decomposed text can be cut at the place: no mark behind it combines with the
/// text before it.
bool mayCut(const UnicodeString& text, int place) {
    if (place == 0 || place == text.length())
        return true;
    if (u_getCombiningClass(text.char32At(place)) != 0)
        return false;
    return composed(text.tempSubString(0, place)) + composed(text.tempSubString(place)) ==
           composed(text);
}

bool contains(const std::string& name, const UnicodeString& key) {
    if (key.isEmpty())
        return false;
    const UnicodeString text = upperCased(unicode(name)), part = upperCased(key);
    for (int begin = text.indexOf(part); begin >= 0; begin = text.indexOf(part, begin + 1))
        if (mayCut(text, begin) && mayCut(text, begin + part.length()))
            return true;
    return false;
}

bool isInAName(const FontItem& font, const UnicodeString& key) {
    return contains(font.ProductName(), key) || contains(font.ProductSetName(), key) ||
           contains(font.ProductFileName(), key) || contains(font.DisplayName(), key);
}

bool isAName(const FontItem& font, const UnicodeString& key) {
    return upperCased(unicode(font.ProductName())) == upperCased(key) ||
           upperCased(unicode(font.ProductSetName())) == upperCased(key) ||
           upperCased(unicode(font.ProductFileName())) == upperCased(key);
}

/// Number of user-perceived characters.
int characterCount(const UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    // Made once: that costs more than a search does.
    static thread_local const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    check(status);
    characters->setText(text);
    int count = 0;
    while (characters->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
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
    const int count = characterCount(units);
    for (int place = 0; place < count; ++place)
        // Half of a character is in nothing.
        if (!U16_IS_SURROGATE(units[place]) && isInAName(*font, UnicodeString(units[place])))
            return true;
    return false;
}
