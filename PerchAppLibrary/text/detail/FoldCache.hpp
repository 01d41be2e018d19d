#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// A cache of the compared forms of single characters, which ICU computes.
///
/// It grows after many misses, since texts may hold characters that share a slot, and ends to serve
/// if they go on at its greatest size, 1 MiB.
///
/// The compared form of a text is that of its characters, one after the other, unless its marks are
/// not in canonical order (Unicode Standard, section 3.11). In the root locale, upper-casing a
/// character does not depend on its context (section 3.13).
class FoldCache {
public:
    explicit FoldCache(Case letterCase) : m_case(letterCase) {}

    /// Returns the compared form of the text (any bytes), which lives until the next call. Returns
    /// nullopt if marks are not in canonical order, the form of a character exceeds nine bytes, or
    /// most characters share slots. Linear.
    std::optional<std::string_view> formOf(std::string_view text);

private:
    static constexpr std::uint8_t tooLong = 0xFF;
    static constexpr std::size_t minimumSize = 256;
    static constexpr std::size_t maximumSize = 0x10000; // a slot for each of plane 0
    static constexpr std::size_t growth = 16;
    static constexpr std::size_t missesOf(std::size_t size) { return 4 * size; }

    struct Entry {
        std::int32_t codePoint = -1;
        std::uint8_t firstClass = 0; // combining class of the first character of its decomposition
        std::uint8_t lastClass = 0;  // combining class of the last character of it
        std::uint8_t length = 0;     // length of the compared form, or tooLong
        char bytes[9] = {};          // the compared form: up to three characters of three bytes
    };

    const Entry& entryOf(std::int32_t codePoint);
    void fill(Entry& entry, std::int32_t codePoint) const;

    Case m_case;
    std::string m_form;
    std::vector<Entry> m_entries{minimumSize}; // direct-mapped: each character has one slot
    std::size_t m_misses = 0;                  // at the present size
};

} // namespace PerchAppLibrary::text
