#include <PerchAppLibrary/json/detail/JSONText.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary {
namespace {

using text::forEachWord;
using text::highBits;
using text::repeated;
using text::Word;

/// Returns a word that is not zero if an ASCII byte of `word` is below the limit. Requires a limit
/// of at most 0x80.
constexpr Word anyBelow(Word word, char limit) noexcept {
    return (word - repeated(limit)) & ~word & highBits;
}

/// Returns a word that is not zero if a byte of `word` must be escaped.
constexpr Word anyEscaped(Word word) noexcept {
    return anyBelow(word, ' ') | anyBelow(word ^ repeated('"'), 1) |
           anyBelow(word ^ repeated('\\'), 1);
}

/// Returns whether the content needs neither an escape nor a replacement.
bool isPlain(std::string_view content) noexcept {
    Word escaped = 0;
    Word any = 0;
    forEachWord(content, [&](std::size_t, Word word) {
        escaped |= anyEscaped(word);
        any |= word;
    });
    return escaped == 0 && ((any & highBits) == 0 || text::isWellFormed(content));
}

} // namespace

void appendJSONString(std::string& text, std::string_view content) {
    if (content.empty()) {
        text += "\"\"";
    } else if (isPlain(content)) {
        text += '"';
        text += content;
        text += '"';
    } else {
        text += toText(toValue(content));
    }
}

} // namespace PerchAppLibrary
