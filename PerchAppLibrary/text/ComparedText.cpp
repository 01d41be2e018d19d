#include <PerchAppLibrary/text/ComparedText.hpp>

#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/detail/FoldCache.hpp>
#include <PerchAppLibrary/text/detail/ICU.hpp>
#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <unicode/uchar.h>

#include <optional>
#include <string>

namespace PerchAppLibrary::text {
namespace {

constexpr std::uint8_t firstBeyondASCII = 0x80;

std::uint8_t byteAt(std::string_view text, std::size_t offset) noexcept {
    return static_cast<std::uint8_t>(text[offset]);
}

bool isTrail(std::uint8_t byte) noexcept { return (byte & 0xC0U) == 0x80; }

/// Returns whether the offset is that of an ideograph from U+3400 to U+9FFF. In UTF-8, these are
/// E3 90..BF xx and E4..E9 xx xx.
bool isIdeographAt(std::string_view text, std::size_t offset) noexcept {
    if (text.size() - offset < 3)
        return false;
    const std::uint8_t lead = byteAt(text, offset);
    const std::uint8_t second = byteAt(text, offset + 1);
    return lead >= (second >= 0x90 ? 0xE3 : 0xE4) && lead <= 0xE9 && isTrail(second) &&
           isTrail(byteAt(text, offset + 2));
}

bool isPlainText(std::string_view text) noexcept {
    for (std::size_t offset = 0; offset < text.size();) {
        if (byteAt(text, offset) < firstBeyondASCII)
            ++offset;
        else if (isIdeographAt(text, offset))
            offset += 3;
        else
            return false;
    }
    return true;
}

/// Copies the text into the buffer, with a word of padding behind it. Upper-cases its ASCII letters
/// if `upperCasesASCII`. Returns whether all of it is ASCII.
bool store(std::vector<char>& buffer, std::string_view text, bool upperCasesASCII) {
    if (buffer.size() < text.size() + wordSize)
        buffer.resize(2 * text.size() + wordSize);
    Word any = 0;
    forEachWord(text, [&any, upperCasesASCII, bytes = buffer.data()](std::size_t at, Word word) {
        any |= word;
        storeWord(bytes + at, upperCasesASCII ? upperCasedASCII(word) : word);
    });
    return (any & highBits) == 0;
}

/// Returns whether the code point at the offset composes with those before it. A Hangul vowel or
/// final does, and so do a few vowel signs that are not combining marks. Reads at most four code
/// points before the offset, since a composite has at most four.
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

} // namespace

ComparedText::ComparedText(Case letterCase) : m_case(letterCase) {}
ComparedText::ComparedText(std::string_view text, Case letterCase) : m_case(letterCase) {
    assign(text);
}
ComparedText::ComparedText(ComparedText&& other) noexcept = default;
ComparedText::~ComparedText() = default;

void ComparedText::assign(std::string_view text) {
    m_size = text.size();
    m_isPlain = store(m_buffer, text, m_case == Case::insensitive) || isPlainText(text);
    if (!m_isPlain)
        assignNonPlain(text);
}

void ComparedText::assignNonPlain(std::string_view text) {
    if (m_hadNonPlain && !m_foldCache)
        m_foldCache = std::make_unique<FoldCache>(m_case);
    m_hadNonPlain = true;
    const auto storeForm = [this](std::string_view form) {
        m_size = form.size();
        // The form may be plain: that of the ligature "ﬁ" is "FI".
        m_isPlain = store(m_buffer, form, false) || isPlainText(form);
    };
    if (const auto form = m_foldCache ? m_foldCache->formOf(text) : std::nullopt)
        storeForm(*form);
    else
        storeForm(m_case == Case::insensitive ? folded(text) : decomposed(text));
}

bool ComparedText::isBoundary(std::size_t offset) const {
    if (m_isPlain || offset == 0 || offset == m_size)
        return true;
    std::size_t end = offset;
    if (u_getCombiningClass(nextCodePoint(bytes(), end)) != 0)
        return false;
    return !composesBackwards(bytes(), offset);
}

} // namespace PerchAppLibrary::text
