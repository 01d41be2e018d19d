#pragma once

#include <PerchAppLibrary/platform/ComparedText.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace PerchAppLibrary::text {

/// The compared forms of single characters, each asked of ICU when it comes up first. Private to ComparedText.
///
/// A text is put together from them where no mark, when all characters are decomposed, has to change places with one before
/// it (Unicode Standard, section 3.11); upper-casing looks at single characters in any case (section 3.13).
class FoldCache {
public:
    explicit FoldCache(Case letterCase) : m_case(letterCase) {}

    /// The compared form of the text, any bytes, until the next call; none for a text that it cannot be put together for.
    std::optional<std::string_view> formOf(std::string_view text);

private:
    static constexpr std::uint8_t tooLong = 0xFF;

    struct Entry {
        std::int32_t codePoint = -1;
        std::uint8_t firstClass = 0; // canonical combining classes of the ends of its decomposition
        std::uint8_t lastClass = 0;
        std::uint8_t length = 0; // of the compared form, or tooLong
        char bytes[9] = {};      // three characters of three bytes each
    };

    /// Appends the letters of a Hangul syllable, which are worked out (Unicode Standard, section 3.12) and have no case; false for
    /// any other character.
    bool appendHangul(std::int32_t codePoint);

    const Entry& entryOf(std::int32_t codePoint);
    void fill(Entry& entry, std::int32_t codePoint) const;

    Case m_case;
    std::string m_form;
    std::array<Entry, 256> m_entries; // a character has one place, which it takes from whichever was there
};

} // namespace PerchAppLibrary::text
