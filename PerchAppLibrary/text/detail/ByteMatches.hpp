#pragma once

#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__) && defined(__x86_64__)
#include <emmintrin.h>
#elif defined(__ARM_NEON) && defined(__AARCH64EL__)
#include <arm_neon.h>
#endif

/// Finds a byte in a text, sixteen bytes at a time on 64-bit x86 and ARM. Private to the text
/// module.
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

/// For each of the bytes of a text, the first in the lowest bit, whether it is the first and
/// whether it is the last one of a needle.
struct ByteMatches {
    static constexpr std::size_t most = 64;

    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

/// Like matchesOf(), on every processor, byte by byte.
inline ByteMatches matchesByByte(std::string_view text, const SoughtByte& first,
                                 const SoughtByte& last) noexcept {
    ByteMatches matches;
    for (std::size_t at = 0; at < text.size(); ++at) {
        matches.first |= std::uint64_t{(text[at] | first.ignored[0]) == first.value[0]} << at;
        matches.last |= std::uint64_t{(text[at] | last.ignored[0]) == last.value[0]} << at;
    }
    return matches;
}

#if defined(__SSE2__) && defined(__x86_64__)
#define PERCH_HAS_BLOCKS 1

using Block = __m128i;

inline Block loadBlock(const char* bytes) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const Block*>(bytes));
}

inline Block blockOf(Word low, Word high) noexcept {
    return _mm_set_epi64x(static_cast<std::int64_t>(high), static_cast<std::int64_t>(low));
}

inline std::uint64_t matchesIn(Block block, const SoughtByte& sought) noexcept {
    const Block comparable = _mm_or_si128(block, loadBlock(sought.ignored.data()));
    const Block same = _mm_cmpeq_epi8(comparable, loadBlock(sought.value.data()));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(same));
}

#elif defined(__ARM_NEON) && defined(__AARCH64EL__)
#define PERCH_HAS_BLOCKS 1

using Block = uint8x16_t;

inline Block loadBlock(const char* bytes) noexcept {
    return vld1q_u8(reinterpret_cast<const std::uint8_t*>(bytes));
}

inline Block blockOf(Word low, Word high) noexcept {
    return vcombine_u8(vcreate_u8(low), vcreate_u8(high));
}

inline std::uint64_t matchesIn(Block block, const SoughtByte& sought) noexcept {
    const Block comparable = vorrq_u8(block, loadBlock(sought.ignored.data()));
    const Block same = vceqq_u8(comparable, loadBlock(sought.value.data()));
    // A matching byte becomes the bit of its place. NEON has no instruction that gathers these
    // bits; their sums are the same.
    constexpr Word bitOfPlace = 0x8040201008040201U;
    const Block bits = vandq_u8(same, blockOf(bitOfPlace, bitOfPlace));
    return std::uint64_t{vaddv_u8(vget_low_u8(bits))} | std::uint64_t{vaddv_u8(vget_high_u8(bits))}
                                                            << 8U;
}

#endif

#ifdef PERCH_HAS_BLOCKS

/// Loads a text of fewer than sixteen bytes, followed by zeros.
inline Block loadPart(std::string_view text) noexcept {
    const std::size_t size = text.size();
    if (size < wordSize) {
        Word word = 0;
        std::memcpy(&word, text.data(), size);
        return blockOf(word, 0);
    }
    // The last eight, without those that are among the first.
    const Word rest =
        loadWord(text.data() + size - wordSize) >> (8 * (2 * wordSize - 1 - size)) >> 8U;
    return blockOf(loadWord(text.data()), rest);
}

/// Requires a text of 1 to 64 bytes.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    constexpr std::size_t blockSize = sizeof(Block);
    if (text.size() < blockSize) {
        const Block block = loadPart(text);
        const std::uint64_t inside =
            (std::uint64_t{1} << text.size()) - 1; // a needle may hold zeros, too
        return {matchesIn(block, first) & inside, matchesIn(block, last) & inside};
    }
    ByteMatches matches;
    for (std::size_t at = 0; at < text.size(); at += blockSize) {
        at = std::min(at, text.size() - blockSize); // the last block may overlap the one before it
        const Block block = loadBlock(text.data() + at);
        matches.first |= matchesIn(block, first) << at;
        matches.last |= matchesIn(block, last) << at;
    }
    return matches;
}

#else

/// Requires a text of 1 to 64 bytes.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    return matchesByByte(text, first, last);
}

#endif

} // namespace PerchAppLibrary::text
