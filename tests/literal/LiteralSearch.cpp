#include "LiteralSearch.hpp"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

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

using Form = const icu::Normalizer2* (*)(UErrorCode&);

template <Form form>
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

/// Whether a decomposed text can be cut here without cutting a character apart: behind the place
/// stands no mark that belongs to what stands before it.
bool mayCut(const UnicodeString& text, int place) {
    if (place == 0 || place == text.length())
        return true;
    if (u_getCombiningClass(text.char32At(place)) != 0)
        return false;
    return composed(text.tempSubString(0, place)) + composed(text.tempSubString(place)) ==
           composed(text);
}

bool contains(const UnicodeString& text, const UnicodeString& key) {
    if (key.isEmpty())
        return false;
    const UnicodeString upperText = upperCased(text), upperKey = upperCased(key);
    for (int begin = upperText.indexOf(upperKey); begin >= 0;
         begin = upperText.indexOf(upperKey, begin + 1))
        if (mayCut(upperText, begin) && mayCut(upperText, begin + upperKey.length()))
            return true;
    return false;
}

bool equal(const std::string& left, const std::string& right) {
    return decomposed(unicode(left)) == decomposed(unicode(right));
}

bool isInAName(const FontItem& font, const UnicodeString& key) {
    return contains(unicode(font.ProductName()), key) ||
           contains(unicode(font.ProductSetName()), key) ||
           contains(unicode(font.ProductFileName()), key) ||
           contains(unicode(font.DisplayName()), key);
}

bool isAName(const FontItem& font, const UnicodeString& key) {
    return upperCased(unicode(font.ProductName())) == upperCased(key) ||
           upperCased(unicode(font.ProductSetName())) == upperCased(key) ||
           upperCased(unicode(font.ProductFileName())) == upperCased(key);
}

/// Number of user-perceived characters.
int characterCount(const UnicodeString& text) {
    // Made once: that costs more than a search does.
    static thread_local const std::unique_ptr<icu::BreakIterator> characters = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> made(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        check(status);
        return made;
    }();
    characters->setText(text);
    int count = 0;
    while (characters->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

template <class Test>
Fonts leaves(const Fonts& list, const Test& test) {
    Fonts result;
    for (const auto& font : list) {
        if (font->IsGroup()) {
            const Fonts members = leaves(font->Children(), test);
            result.insert(result.end(), members.begin(), members.end());
        } else if (test(*font)) {
            result.push_back(font);
        }
    }
    return result;
}

bool matches(const FontItem& font, const FontItem& reference) {
    if (font.Id() >= 1)
        return reference.Id() == font.Id() && reference.IsPrivate() == font.IsPrivate();
    return equal(reference.ProductName(), font.ProductName());
}

/// The leaves that a reference matches.
Fonts matched(const Fonts& list, const Fonts& references) {
    return leaves(list, [&](const FontItem& font) {
        for (const auto& reference : references)
            if (matches(font, *reference))
                return true;
        return false;
    });
}

} // namespace

Fonts LiteralSearch::getFontByName(const Fonts& list, const std::string& fontName, bool fuzzy) {
    return leaves(list, [&](const FontItem& font) {
        return fuzzy ? contains(unicode(font.ProductName()), unicode(fontName))
                     : equal(font.ProductName(), fontName);
    });
}

Fonts LiteralSearch::getFontByKey(const Fonts& list, const std::string& key, bool fuzzy) {
    return leaves(list, [&](const FontItem& font) {
        return fuzzy ? isInAName(font, unicode(key)) : isAName(font, unicode(key));
    });
}

std::pair<Fonts, Fonts> LiteralSearch::getSearchResultFont(const Fonts& list,
                                                           const std::string& key) {
    std::pair<Fonts, Fonts> result;
    for (const auto& font : list) {
        if (font->IsGroup()) {
            const auto [whole, character] = getSearchResultFont(font->Children(), key);
            result.first.insert(result.first.end(), whole.begin(), whole.end());
            result.second.insert(result.second.end(), character.begin(), character.end());
            continue;
        }
        if (isInAName(*font, unicode(key)))
            result.first.push_back(font);
        if (isFontMatchedByCharacter(font, key))
            result.second.push_back(font);
    }
    return result;
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

void LiteralSearch::setActivatedFont(const Fonts& list, const Fonts& activatedFont) {
    for (const auto& font : matched(list, activatedFont))
        font->setIsActivated(true);
}

void LiteralSearch::setFavoritedFont(const Fonts& list, const Fonts& favoritedFont) {
    for (const auto& font : matched(list, favoritedFont))
        font->setIsFavorited(true);
}
