#include <PerchAppLibrary/text/detail/ICU.hpp>

#include <unicode/bytestream.h>

#include <limits>
#include <new>

namespace PerchAppLibrary::text {

void require(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::bad_alloc();
}

icu::StringPiece piece(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        throw std::bad_alloc();
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

std::size_t previousOffset(std::string_view text, std::size_t offset) noexcept {
    do
        --offset;
    while (offset > 0 && U8_IS_TRAIL(text[offset]));
    return offset;
}

void append(std::string& text, UChar32 codePoint) {
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, codePoint);
    text.append(bytes, length);
}

const icu::Normalizer2& nfd() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFDInstance(status);
    require(status);
    return *normalizer;
}

const icu::Normalizer2& nfc() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFCInstance(status);
    require(status);
    return *normalizer;
}

std::string normalized(const icu::Normalizer2& normalizer, std::string_view text) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(piece(text).size()));
    UErrorCode status = U_ZERO_ERROR;
    normalizer.normalizeUTF8(0, piece(text), sink, nullptr, status);
    require(status);
    return result;
}

} // namespace PerchAppLibrary::text
