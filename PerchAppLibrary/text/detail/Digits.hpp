#pragma once

#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace PerchAppLibrary::text {

/// The decimal digits at the begin of a text.
struct Digits {
    std::size_t count;
    std::int64_t value;
};

/// Reads the digits at the begin of a text, at most 18 of them, which cannot overflow. Requires
/// wordSize readable bytes behind the last digit.
///
/// Numbers differ in length, so a loop would often end where the processor does not expect it.
/// Fewer than eight digits are read without a loop.
inline Digits leadingDigits(const char* text) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        const Word digits = loadWord(text) ^ repeated('0'); // 0 to 9, or more
        // The high bit of each byte that is no digit. Behind the first, a carry may set others.
        const Word others = ((digits + repeated(0x7F - 9)) | digits) & highBits;
        const int unused = 64 - (std::countr_zero(others) & ~7); // bits behind the digits
        if (unused == 64)
            return {0, 0};
        if (others != 0) {
            // Zeros before the first digit; then pairs, fours and all eight digits are joined.
            Word word = digits << unused;
            word = (word * (1 + (10U << 8)) >> 8) & 0x00FF00FF00FF00FFU;
            word = (word * (1 + (100U << 16)) >> 16) & 0x0000FFFF0000FFFFU;
            word = word * (1 + (Word{10000} << 32)) >> 32;
            return {8 - static_cast<std::size_t>(unused) / 8, static_cast<std::int64_t>(word)};
        }
    }
    Digits found{0, 0};
    for (; found.count < 18 && *text >= '0' && *text <= '9'; ++text, ++found.count)
        found.value = found.value * 10 + (*text - '0');
    return found;
}

} // namespace PerchAppLibrary::text
