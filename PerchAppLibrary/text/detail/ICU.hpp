#pragma once

#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/utf8.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What the sources of the text module share: ICU as they call it, and steps over UTF-8. Private to
/// them.
namespace PerchAppLibrary::text {

/// Throws std::bad_alloc for a failure: ICU fails on the paths taken here only for want of memory.
void require(UErrorCode status);

/// The text as ICU takes it. Throws std::bad_alloc for one of 2 GiB and more.
icu::StringPiece piece(std::string_view text);

constexpr UChar32 replacementCharacter = 0xFFFD;

/// The code point at the offset, which moves behind it; U+FFFD for each maximal ill-formed
/// sequence.
inline UChar32 nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 codePoint = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // of the macro's own bytes
    U8_NEXT_OR_FFFD(bytes, offset, text.size(), codePoint);
#pragma GCC diagnostic pop
    return codePoint;
}

/// The start of the code point that ends at the offset. Requires well-formed text and an offset
/// above 0.
std::size_t previousOffset(std::string_view text, std::size_t offset) noexcept;

void append(std::string& text, UChar32 codePoint);

/// The normalizers of the forms D and C.
const icu::Normalizer2& nfd();
const icu::Normalizer2& nfc();

/// Requires well-formed text.
std::string normalized(const icu::Normalizer2& normalizer, std::string_view text);

} // namespace PerchAppLibrary::text
