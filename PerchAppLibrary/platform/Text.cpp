#include <PerchAppLibrary/platform/Text.hpp>

#include <simdjson.h>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace PerchAppLibrary::text {
namespace {

/// ICU fails on these paths only for want of memory.
void require(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::bad_alloc();
}

icu::StringPiece piece(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        throw std::bad_alloc();
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

bool isASCII(std::string_view text) noexcept {
    return std::ranges::none_of(text, [](char byte) { return static_cast<signed char>(byte) < 0; });
}

constexpr UChar32 replacementCharacter = 0xFFFD;

/// The code point at the offset, which moves behind it; U+FFFD for each maximal ill-formed sequence.
UChar32 nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 codePoint = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // of the macro's own bytes
    U8_NEXT_OR_FFFD(bytes, offset, text.size(), codePoint);
#pragma GCC diagnostic pop
    return codePoint;
}

/// The start of the code point that ends at the offset. Requires well-formed text and an offset above 0.
std::size_t previousOffset(std::string_view text, std::size_t offset) noexcept {
    do
        --offset;
    while (offset > 0 && U8_IS_TRAIL(text[offset]));
    return offset;
}

void append(std::string& text, UChar32 codePoint) {
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, codePoint);
    text.append(bytes, length);
}

const icu::Normalizer2& nfd() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFDInstance(status);
    require(status);
    return *normalizer;
}

const icu::Normalizer2& nfc() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFCInstance(status);
    require(status);
    return *normalizer;
}

/// Requires well-formed text.
std::string normalized(const icu::Normalizer2& normalizer, std::string_view text) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(piece(text).size()));
    UErrorCode status = U_ZERO_ERROR;
    normalizer.normalizeUTF8(0, piece(text), sink, nullptr, status);
    require(status);
    return result;
}

/// Marks that follow one another without end: ICU orders them by insertion, which takes the square of their number.
bool hasLongRunOfMarks(std::string_view text) {
    constexpr std::size_t longRun = 64; // text that means something has a few
    std::size_t run = 0;
    for (std::size_t offset = 0; offset < text.size() && run < longRun;)
        run = nfd().hasBoundaryBefore(nextCodePoint(text, offset)) ? 0 : run + 1;
    return run == longRun;
}

/// Normalization Form D step by step (UAX #15): decomposition, then the canonical order of each run of marks.
std::string decomposedByRuns(std::string_view text) {
    struct Mark {
        std::uint8_t combiningClass;
        std::size_t place; // in its run: marks of one class keep their order
        UChar32 codePoint;
    };
    std::vector<Mark> run;
    std::string result;
    const auto finishRun = [&] {
        std::ranges::sort(run, {},
                          [](const Mark& mark) { return std::pair(mark.combiningClass, mark.place); });
        for (const Mark& mark : run)
            append(result, mark.codePoint);
        run.clear();
    };
    const auto add = [&](UChar32 codePoint) {
        const std::uint8_t combiningClass = u_getCombiningClass(codePoint);
        if (combiningClass == 0) {
            finishRun();
            append(result, codePoint);
        } else {
            run.push_back({combiningClass, run.size(), codePoint});
        }
    };
    icu::UnicodeString parts;
    for (std::size_t offset = 0; offset < text.size();) {
        const UChar32 codePoint = nextCodePoint(text, offset);
        if (!nfd().getDecomposition(codePoint, parts)) {
            add(codePoint);
            continue;
        }
        for (std::int32_t at = 0; at < parts.length(); at = parts.moveIndex32(at, 1))
            add(parts.char32At(at));
    }
    finishRun();
    return result;
}

/// Whether the code point at the offset composes with what stands right before it, as a Hangul vowel or final
/// and a few vowel signs do that are no combining marks. A composite has at most four code points, so that
/// many are enough.
bool composesBackwards(std::string_view decomposedText, std::size_t offset) {
    std::size_t end = offset;
    const UChar32 codePoint = nextCodePoint(decomposedText, end);
    if (nfc().hasBoundaryBefore(codePoint))
        return false;
    std::size_t begin = offset;
    for (int count = 0; count < 4 && begin > 0; ++count)
        begin = previousOffset(decomposedText, begin);
    const std::string before = normalized(nfc(), decomposedText.substr(begin, offset - begin));
    const std::string alone = normalized(nfc(), decomposedText.substr(offset, end - offset));
    return normalized(nfc(), decomposedText.substr(begin, end - begin)) != before + alone;
}

/// For each beginning of the needle, the length of the longest shorter beginning that it also ends with: what a match
/// can be continued from without reading the haystack twice (Knuth, Morris and Pratt).
std::vector<std::size_t> bordersOf(std::string_view needle) {
    std::vector<std::size_t> borders(needle.size());
    for (std::size_t end = 1, border = 0; end < needle.size(); ++end) {
        while (border > 0 && needle[end] != needle[border])
            border = borders[border - 1];
        border += needle[end] == needle[border] ? 1 : 0;
        borders[end] = border;
    }
    return borders;
}

/// Whether a text may be cut there without taking a mark from the character it belongs to.
bool isBoundary(std::string_view decomposedText, std::size_t offset) {
    if (offset == 0 || offset == decomposedText.size())
        return true;
    std::size_t end = offset;
    if (u_getCombiningClass(nextCodePoint(decomposedText, end)) != 0)
        return false;
    return !composesBackwards(decomposedText, offset);
}

} // namespace

bool isWellFormed(std::string_view text) noexcept { return simdjson::validate_utf8(text); }

std::string wellFormed(std::string_view text) {
    if (isWellFormed(text))
        return std::string(text);
    std::string result;
    result.reserve(text.size() + 8);
    for (std::size_t offset = 0; offset < text.size();)
        append(result, nextCodePoint(text, offset));
    return result;
}

std::string uppercased(std::string_view text) {
    const std::string clean = wellFormed(text);
    std::string result;
    icu::StringByteSink<std::string> sink(&result, piece(clean).size());
    UErrorCode status = U_ZERO_ERROR;
    constexpr const char* rootLocale = "";
    icu::CaseMap::utf8ToUpper(rootLocale, 0, piece(clean), sink, nullptr, status);
    require(status);
    return result;
}

std::string decomposed(std::string_view text) {
    if (isASCII(text))
        return std::string(text);
    const std::string clean = wellFormed(text);
    return hasLongRunOfMarks(clean) ? decomposedByRuns(clean) : normalized(nfd(), clean);
}

std::string composed(std::string_view text) {
    // From the decomposed form, whose marks are in order already.
    return isASCII(text) ? std::string(text) : normalized(nfc(), decomposed(text));
}

std::string folded(std::string_view text) { return decomposed(uppercased(decomposed(text))); }

bool equal(std::string_view left, std::string_view right) {
    if (left == right)
        return true;
    if (isASCII(left) && isASCII(right))
        return false;
    return decomposed(left) == decomposed(right);
}

bool contains(std::string_view haystack, std::string_view needle, Case letterCase) {
    const auto compared = [letterCase](std::string_view text) {
        return letterCase == Case::ignored ? folded(text) : decomposed(text);
    };
    const std::string within = compared(haystack);
    const std::string sought = compared(needle);
    if (sought.empty())
        return false;
    const std::vector<std::size_t> borders = bordersOf(sought);
    std::size_t matched = 0;
    for (std::size_t end = 0; end < within.size();) {
        while (matched > 0 && (matched == sought.size() || within[end] != sought[matched]))
            matched = borders[matched - 1];
        matched += within[end++] == sought[matched] ? 1 : 0;
        if (matched == sought.size() && isBoundary(within, end - matched) && isBoundary(within, end))
            return true;
    }
    return false;
}

std::size_t utf16Length(std::string_view text) noexcept {
    std::size_t length = 0;
    for (std::size_t offset = 0; offset < text.size();)
        length += static_cast<std::size_t>(U16_LENGTH(nextCodePoint(text, offset)));
    return length;
}

std::string utf16Substring(std::string_view text, std::size_t begin, std::size_t end) {
    std::string result;
    std::size_t unit = 0;
    for (std::size_t offset = 0; offset < text.size() && unit < end && begin < end;) {
        const std::size_t start = offset;
        const std::size_t firstUnit = unit;
        unit += static_cast<std::size_t>(U16_LENGTH(nextCodePoint(text, offset)));
        if (unit <= begin)
            continue;
        if (firstUnit >= begin && unit <= end)
            result.append(text, start, offset - start);
        else
            append(result, replacementCharacter);
    }
    return result;
}

std::size_t codePointCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for (std::size_t offset = 0; offset < text.size(); ++count)
        nextCodePoint(text, offset);
    return count;
}

std::string_view firstCodePoint(std::string_view text) noexcept {
    std::size_t offset = 0;
    if (!text.empty())
        nextCodePoint(text, offset);
    return text.substr(0, offset);
}

bool isControl(std::string_view character) noexcept {
    std::size_t offset = 0;
    return !character.empty() && u_charType(nextCodePoint(character, offset)) == U_CONTROL_CHAR;
}

std::size_t graphemeCount(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const std::string clean = wellFormed(text);
    const std::unique_ptr<UText, decltype(&utext_close)> source(
        utext_openUTF8(nullptr, clean.data(), static_cast<std::int64_t>(clean.size()), &status),
        &utext_close);
    require(status);
    characters->setText(source.get(), status);
    require(status);
    std::size_t count = 0;
    while (characters->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

std::size_t columnCount(std::string_view text) noexcept {
    constexpr std::uint32_t withoutWidth = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK | U_GC_CC_MASK;
    std::size_t columns = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const UChar32 codePoint = nextCodePoint(text, offset);
        const int syllable = u_getIntPropertyValue(codePoint, UCHAR_HANGUL_SYLLABLE_TYPE);
        if ((U_GET_GC_MASK(codePoint) & withoutWidth) != 0 || syllable == U_HST_VOWEL_JAMO ||
            syllable == U_HST_TRAILING_JAMO)
            continue;
        const int width = u_getIntPropertyValue(codePoint, UCHAR_EAST_ASIAN_WIDTH);
        columns += width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
    }
    return columns;
}

} // namespace PerchAppLibrary::text
