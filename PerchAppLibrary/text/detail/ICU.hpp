#pragma once

#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/utf8.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Wrappers of ICU's functions, and steps over UTF-8.
namespace PerchAppLibrary::text {

/// Throws std::bad_alloc for a failure. The ICU functions called here fail only if memory runs out.
void require(UErrorCode status);

/// Converts the text to ICU's type. Throws std::bad_alloc for 2 GiB or more.
icu::StringPiece piece(std::string_view text);

constexpr UChar32 replacementCharacter = 0xFFFD;

/// Returns the code point at the offset, or U+FFFD for a maximal ill-formed sequence, and moves the
/// offset behind it. Requires an offset before the end.
inline UChar32 nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 codePoint = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // in the macro
    U8_NEXT_OR_FFFD(bytes, offset, text.size(), codePoint);
#pragma GCC diagnostic pop
    return codePoint;
}

/// Returns the offset of the code point that ends at `offset`. Requires well-formed text and an
/// offset above 0.
std::size_t previousOffset(std::string_view text, std::size_t offset) noexcept;

/// Appends the code point in UTF-8.
void append(std::string& text, UChar32 codePoint);

/// Return the normalizers of Forms D and C (UAX #15).
const icu::Normalizer2& nfd();
const icu::Normalizer2& nfc();

/// Returns the normalized text. Requires well-formed text. Linear, but for long runs of marks.
std::string normalized(const icu::Normalizer2& normalizer, std::string_view text);

} // namespace PerchAppLibrary::text
