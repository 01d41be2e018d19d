#pragma once

#include <PerchAppLibrary/platform/SearchedText.hpp>
#include <PerchAppLibrary/platform/TextSet.hpp>
#include <PerchAppLibrary/platform/TextSignature.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// Several needles that are looked for together, in one scan of a text; each occurs where a Needle would.
/// Made for many short needles, such as the characters of a key.
class NeedleSet {
public:
    /// Adds a needle; an empty one, or one that is there already, changes nothing.
    void add(std::string_view text);

    /// Whether one of the needles occurs in the text. Takes the length of the text times the number of code points of the
    /// longest needle, however many there are.
    bool anyIn(SearchedText& text) const;

    /// Whether one of the needles occurs in one of the texts that the signature is of; none when it does not tell.
    std::optional<bool> anyIn(const TextSignature& texts) const;

private:
    /// What the needles that begin with a byte ask of a text in which it stands.
    enum class FirstByte : std::uint8_t { beginsNone, isOne, beginsSome };

    void addSignature(const ComparedText& needle);
    bool anyAt(const ComparedText& text, std::size_t offset) const;

    std::array<FirstByte, 256> m_firstBytes{}; // of the folded needles, and their small letters
    TextSet m_needles;                         // folded
    std::size_t m_longest = 0;                 // in code points
    TextSignature m_told;                // of the needles that signatures of plain texts tell for certain
    std::vector<TextSignature> m_others; // of the first of the others
};

} // namespace PerchAppLibrary::text
