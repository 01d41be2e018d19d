#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Processes eight bytes of text at once, in a machine word of either byte order (SIMD within a
/// register).
namespace PerchAppLibrary::text {

using Word = std::uint64_t;

constexpr std::size_t wordSize = sizeof(Word);
constexpr Word everyByte = 0x0101010101010101U;
constexpr Word highBits = 0x8080808080808080U; // 10000000 in each byte; clear in ASCII

inline Word loadWord(const char* bytes) noexcept {
    Word word;
    std::memcpy(&word, bytes, wordSize);
    return word;
}

inline void storeWord(char* bytes, Word word) noexcept { std::memcpy(bytes, &word, wordSize); }

/// Returns a word of eight such bytes.
constexpr Word repeated(char byte) noexcept { return everyByte * static_cast<std::uint8_t>(byte); }

/// Calls `visit(offset, word)` for words that cover the text. The last word may overlap the one
/// before it. A text shorter than a word is padded with blanks.
template <class Visitor>
void forEachWord(std::string_view text, Visitor&& visit) {
    std::size_t at = 0;
    for (; at + wordSize <= text.size(); at += wordSize)
        visit(at, loadWord(text.data() + at));
    if (at == text.size())
        return;
    if (text.size() >= wordSize) {
        visit(text.size() - wordSize, loadWord(text.data() + text.size() - wordSize));
        return;
    }
    Word word = repeated(' ');
    std::memcpy(&word, text.data(), text.size());
    visit(0, word);
}

inline bool isASCII(std::string_view text) noexcept {
    Word any = 0;
    forEachWord(text, [&any](std::size_t, Word word) { any |= word; });
    return (any & highBits) == 0;
}

/// Returns the bytes with ASCII letters upper-cased.
///
///     byte without its high bit  0hhhhhhh
///     + (0x80 - 'a')             1....... from 'a' on
///     + (0x7F - 'z')             1....... behind 'z'
///     one of the two             1....... for a small letter
///     shifted by two places      00100000 the difference of 'a' and 'A'
constexpr Word upperCasedASCII(Word word) noexcept {
    const Word low = word & ~highBits;
    const Word fromA = low + repeated(static_cast<char>(0x80 - 'a'));
    const Word behindZ = low + repeated(static_cast<char>(0x7F - 'z'));
    const Word small = (fromA ^ behindZ) & ~word & highBits;
    return word - (small >> 2U);
}

constexpr char upperCasedASCII(char byte) noexcept {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

} // namespace PerchAppLibrary::text
