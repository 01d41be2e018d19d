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

/// Finds bytes in a text, 16 bytes at a time on 64-bit x86 and ARM.
namespace PerchAppLibrary::text {

/// A byte to find, prepared once for many texts. With `ignoresCase`, an ASCII letter is found in
/// both cases.
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

    std::array<char, 16> ignored{}; // the ignored bits, for each byte of a block
    std::array<char, 16> value{};   // the byte with these bits set
};

/// The bytes of a text that match the first byte of a needle, and those that match its last. Bit n
/// is for byte n of the text.
struct ByteMatches {
    static constexpr std::size_t most = 64;

    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

/// Like matchesOf(), but byte by byte, for any processor.
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
    // Each matching byte becomes the bit for its position. NEON has no instruction that gathers
    // bits, so they are added.
    constexpr Word positionBits = 0x8040201008040201U;
    const Block bits = vandq_u8(same, blockOf(positionBits, positionBits));
    return std::uint64_t{vaddv_u8(vget_low_u8(bits))} | std::uint64_t{vaddv_u8(vget_high_u8(bits))}
                                                            << 8U;
}

#endif

#ifdef PERCH_HAS_BLOCKS

/// Loads a text and pads it with zeros. Requires fewer than 16 bytes.
inline Block loadPart(std::string_view text) noexcept {
    const std::size_t size = text.size();
    if (size < wordSize) {
        Word word = 0;
        std::memcpy(&word, text.data(), size);
        return blockOf(word, 0);
    }
    // The last eight bytes, without those that are also among the first eight.
    const Word rest =
        loadWord(text.data() + size - wordSize) >> (8 * (2 * wordSize - 1 - size)) >> 8U;
    return blockOf(loadWord(text.data()), rest);
}

/// Returns the matches of both bytes in a text. Requires 1 to 64 bytes.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    constexpr std::size_t blockSize = sizeof(Block);
    if (text.size() < blockSize) {
        const Block block = loadPart(text);
        // Excludes the padding, since a needle may hold zeros.
        const std::uint64_t inside = (std::uint64_t{1} << text.size()) - 1;
        return {matchesIn(block, first) & inside, matchesIn(block, last) & inside};
    }
    ByteMatches matches;
    for (std::size_t at = 0; at < text.size(); at += blockSize) {
        at = std::min(at, text.size() - blockSize); // The last block may overlap its predecessor.
        const Block block = loadBlock(text.data() + at);
        matches.first |= matchesIn(block, first) << at;
        matches.last |= matchesIn(block, last) << at;
    }
    return matches;
}

#else

/// Returns the matches of both bytes in a text. Requires 1 to 64 bytes.
inline ByteMatches matchesOf(std::string_view text, const SoughtByte& first,
                             const SoughtByte& last) noexcept {
    return matchesByByte(text, first, last);
}

#endif

} // namespace PerchAppLibrary::text
