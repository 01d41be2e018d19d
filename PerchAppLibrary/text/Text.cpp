#include <PerchAppLibrary/text/Text.hpp>

#include <PerchAppLibrary/text/detail/ICU.hpp>
#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <simdjson.h>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

namespace PerchAppLibrary::text {

bool isWellFormed(std::string_view text) noexcept {
    constexpr std::size_t shortSize = 64; // up to this size, the test for ASCII is faster
    return (text.size() <= shortSize && isASCII(text)) || simdjson::validate_utf8(text);
}

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
    struct Character {
        std::uint8_t combiningClass; // 0 unless it is a mark
        std::size_t index;           // in its run, since marks of one class keep their order
        UChar32 codePoint;
        auto operator<=>(const Character&) const = default;
    };
    if (isASCII(text))
        return std::string(text);
    std::string result;
    // Marks, and the character that they follow, which sorts first. Not by the normalizer of ICU,
    // which sorts a run by insertion: a long one takes quadratic time.
    std::vector<Character> run;
    const auto finishRun = [&] {
        std::ranges::sort(run);
        for (const Character& each : run)
            append(result, each.codePoint);
        run.clear();
    };
    icu::UnicodeString parts;
    for (std::size_t offset = 0; offset < text.size();) {
        const UChar32 codePoint = nextCodePoint(text, offset);
        if (!nfd().getDecomposition(codePoint, parts))
            parts = codePoint;
        for (std::int32_t at = 0; at < parts.length(); at = parts.moveIndex32(at, 1)) {
            const UChar32 part = parts.char32At(at);
            const std::uint8_t combiningClass = u_getCombiningClass(part);
            if (combiningClass == 0)
                finishRun();
            run.push_back({combiningClass, run.size(), part});
        }
    }
    finishRun();
    return result;
}

std::string composed(std::string_view text) {
    // Composes the decomposed form, since the marks in it are already in order.
    return isASCII(text) ? std::string(text) : normalized(nfc(), decomposed(text));
}

std::string folded(std::string_view text) { return decomposed(uppercased(decomposed(text))); }

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
    if (character.empty())
        return false;
    const UChar32 first = nextCodePoint(character, offset);
    constexpr std::uint32_t categories = U_GC_CC_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_GET_GC_MASK(first) & categories) != 0 ||
           u_hasBinaryProperty(first, UCHAR_BIDI_CONTROL) != 0;
}

char32_t codePoint(std::string_view character) noexcept {
    std::size_t offset = 0;
    return character.empty() ? U'\0' : static_cast<char32_t>(nextCodePoint(character, offset));
}

std::string printable(std::string_view text, std::size_t maximum) {
    std::string shown;
    for (; !text.empty() && maximum > 0; --maximum) {
        const std::string_view character = firstCodePoint(text);
        text.remove_prefix(character.size());
        if (!isControl(character)) {
            shown += wellFormed(character);
            continue;
        }
        char escape[16];
        const auto number = static_cast<unsigned>(codePoint(character));
        shown.append(escape, static_cast<std::size_t>(
                                 std::snprintf(escape, sizeof escape, "\\u%04X", number)));
    }
    return text.empty() ? shown : shown + "...";
}

std::size_t editDistance(std::string_view from, std::string_view to) {
    const auto lowercase = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    // Distances of the letters read so far to each prefix of `to`.
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : from) {
        std::size_t diagonal = row.front()++;
        for (std::size_t length = 1; length <= to.size(); ++length) {
            const bool isEqual = lowercase(letter) == lowercase(to[length - 1]);
            const std::size_t replaced = diagonal + (isEqual ? 0 : 1);
            diagonal = row[length];
            row[length] = std::min({replaced, row[length] + 1, row[length - 1] + 1});
        }
    }
    return row.back();
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
    constexpr std::uint32_t withoutWidth =
        U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK | U_GC_CC_MASK;
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

namespace {

/// Uses simdjson once, when the program is loaded. Its static objects are made on first use: made
/// now, they are destroyed after those of the client.
struct Startup {
    Startup() noexcept {
        constexpr std::array<char, 100> longText{}; // too long for the test for ASCII alone
        (void)isWellFormed({longText.data(), longText.size()});
    }
};

#if __has_cpp_attribute(gnu::init_priority) && !defined(__APPLE__)
[[gnu::init_priority(101)]] // before the client's static objects
#endif
const Startup startup;

} // namespace

} // namespace PerchAppLibrary::text
