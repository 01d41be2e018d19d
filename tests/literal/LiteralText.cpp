#include "LiteralText.hpp"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <memory>
#include <stdexcept>

using icu::UnicodeString;

namespace literal {

namespace {

void check(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
}

template <auto form>
UnicodeString normalized(const UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    UnicodeString result = form(status)->normalize(text, status);
    check(status);
    return result;
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

} // namespace

UnicodeString unicode(const std::string& text) { return UnicodeString::fromUTF8(text); }

std::string utf8(const UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

UnicodeString decomposed(const UnicodeString& text) {
    return normalized<icu::Normalizer2::getNFDInstance>(text);
}

UnicodeString composed(const UnicodeString& text) {
    return normalized<icu::Normalizer2::getNFCInstance>(text);
}

/// Decomposed first: the upper-casing of some Greek depends on the order of its marks.
UnicodeString folded(const UnicodeString& text) {
    return decomposed(decomposed(text).toUpper(icu::Locale::getRoot()));
}

bool contains(const std::string& name, const UnicodeString& key) {
    if (key.isEmpty())
        return false;
    const UnicodeString text = folded(unicode(name)), part = folded(key);
    for (int begin = text.indexOf(part); begin >= 0; begin = text.indexOf(part, begin + 1))
        if (mayCut(text, begin) && mayCut(text, begin + part.length()))
            return true;
    return false;
}

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

} // namespace literal
