#pragma once

#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__) && defined(__x86_64__)
#include <emmintrin.h>
#endif

/// Which bytes of a text are a certain one, sixteen at a time where the processor has instructions for it. Private to the
/// text module.
namespace PerchAppLibrary::text {

/// A byte that is looked for; a letter of ASCII in both cases. Prepared once for many texts.
struct SoughtByte {
    /// Capital and small letters of ASCII differ in this bit: 'A' is 01000001, 'a' is 01100001.
    static constexpr char caseBit = 0x20;

    SoughtByte() = default;
    SoughtByte(char byte, bool ignoresCase) {
        const char small = static_cast<char>(byte | caseBit);
        const bool isLetter = small >= 'a' && small <= 'z';
        ignored.fill(ignoresCase && isLetter ? caseBit : '\0');
        value.fill(ignoresCase && isLetter ? small : byte);
    }

    std::array<char, 16> ignored{}; // bits, the same for each byte of a block
    std::array<char, 16> value{};
};

/// For each of the bytes of a text, the first in the lowest bit, whether it is the first and whether it is the last one of a
/// needle.
struct ByteMatches {
    static constexpr std::size_t most = 64;

    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

#if defined(__SSE2__) && defined(__x86_64__)

/// The text's bytes, fewer than sixteen, and zeros.
inline __m128i loadPart(std::string_view text) noexcept {
    const std::size_t size = text.size();
    if (size < wordSize) {
        Word word = 0;
        std::memcpy(&word, text.data(), size);
        return _mm_cvtsi64_si128(static_cast<std::int64_t>(word));
    }
    // The last eight, less those that are among the first.
    const Word rest = loadWord(text.data() + size - wordSize) >> (8 * (2 * wordSize - 1 - size)) >> 8U;
    return _mm_set_epi64x(static_cast<std::int64_t>(rest), static_cast<std::int64_t>(loadWord(text.data())));
}

inline __m128i loadBlock(const char* bytes) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

inline std::uint64_t matchesIn(__m128i block, const SoughtByte& sought) noexcept {
    const __m128i comparable = _mm_or_si128(block, loadBlock(sought.ignored.data()));
    const __m128i same = _mm_cmpeq_epi8(comparable, loadBlock(sought.value.data()));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(same));
}

/// Requires a text of 64 bytes at most.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    constexpr std::size_t blockSize = sizeof(__m128i);
    if (text.size() < blockSize) {
        const __m128i block = loadPart(text);
        const std::uint64_t inside = (std::uint64_t{1} << text.size()) - 1; // a needle may hold zeros, too
        return {matchesIn(block, first) & inside, matchesIn(block, last) & inside};
    }
    ByteMatches matches;
    for (std::size_t at = 0; at < text.size(); at += blockSize) {
        at = std::min(at, text.size() - blockSize); // the last block may overlap the one before it
        const __m128i block = loadBlock(text.data() + at);
        matches.first |= matchesIn(block, first) << at;
        matches.last |= matchesIn(block, last) << at;
    }
    return matches;
}

#else

/// Requires a text of 64 bytes at most.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    ByteMatches matches;
    for (std::size_t at = 0; at < text.size(); ++at) {
        matches.first |= std::uint64_t{(text[at] | first.ignored[0]) == first.value[0]} << at;
        matches.last |= std::uint64_t{(text[at] | last.ignored[0]) == last.value[0]} << at;
    }
    return matches;
}

#endif

} // namespace PerchAppLibrary::text
