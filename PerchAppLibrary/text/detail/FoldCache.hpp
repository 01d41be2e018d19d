#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// A cache of the compared forms of single characters, which ICU computes once for each. Takes 3
/// KiB for each 256 code points with a character of the texts, so 13 MB at most.
///
/// The compared form of a text is that of its characters, one after the other, unless its marks are
/// not in canonical order (Unicode Standard, section 3.11). In the root locale, upper-casing a
/// character does not depend on its context (section 3.13).
class FoldCache {
public:
    explicit FoldCache(Case letterCase) : m_case(letterCase) {}

    /// Returns the compared form of the text (any bytes), which lives until the next call. Returns
    /// nullopt if marks are not in canonical order or the form of a character exceeds nine bytes.
    /// Linear.
    std::optional<std::string_view> formOf(std::string_view text);

private:
    static constexpr std::uint8_t tooLong = 0xFF;
    static constexpr std::uint8_t unknown = 0xFE;
    static constexpr std::size_t pageSize = 256;
    static constexpr std::size_t codePoints = 0x110000;

    struct Entry {
        std::uint8_t firstClass = 0; // combining class of the first character of its decomposition
        std::uint8_t lastClass = 0;  // combining class of the last character of it
        std::uint8_t length = unknown; // length of the compared form, or tooLong
        char bytes[9] = {};            // the compared form: up to three characters of three bytes
    };
    using Page = std::array<Entry, pageSize>;

    /// Appends the letters of a Hangul syllable (Unicode Standard, section 3.12), which have no
    /// case. Returns false for any other character.
    bool appendHangul(std::int32_t codePoint);

    const Entry& entryOf(std::int32_t codePoint);
    void fill(Entry& entry, std::int32_t codePoint) const;

    Case m_case;
    std::string m_form;
    std::vector<std::unique_ptr<Page>> m_pages{codePoints / pageSize};
};

} // namespace PerchAppLibrary::text
