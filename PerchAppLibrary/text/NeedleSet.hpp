#pragma once

#include <PerchAppLibrary/text/SearchedText.hpp>
#include <PerchAppLibrary/text/TextSet.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// Several needles that are found together, in one scan of a text. Each occurs where a Needle
/// would. Made for many short needles, such as the characters of a key.
class NeedleSet {
public:
    /// Adds a needle. An empty or a repeated one changes nothing.
    void add(std::string_view text);

    /// Returns whether one of the needles occurs in the text. Takes the length of the text times
    /// the number of code points in the longest needle, for any number of needles.
    bool anyIn(SearchedText& text) const;

    /// Returns whether one of the needles occurs in one of the texts of a signature, or nullopt if
    /// the signature does not decide it.
    std::optional<bool> verdict(const TextSignature& texts) const;

private:
    /// What the needles that begin with a certain byte are: none, that byte itself, or longer.
    enum class FirstByte : std::uint8_t { beginsNone, isOne, beginsSome };

    void addSignature(const ComparedText& needle);
    bool anyAt(const ComparedText& text, std::size_t offset) const;

    std::array<FirstByte, 256> m_firstBytes{}; // of the folded needles, in both cases
    TextSet m_needles;                         // folded
    std::size_t m_longest = 0;                 // in code points
    TextSignature m_exact;                     // of the needles that isExact() accepts
    std::vector<TextSignature> m_others;       // of each other needle, up to a limit
};

} // namespace PerchAppLibrary::text
