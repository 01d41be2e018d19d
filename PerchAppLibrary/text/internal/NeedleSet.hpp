#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>
#include <PerchAppLibrary/text/internal/TextSet.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// A set of needles to find in one scan of a text. Each occurs where a Needle does. For many short
/// needles, such as the characters of a key. Owns its needles. Any number of threads may use it
/// while none calls add().
class NeedleSet {
public:
    /// Adds a needle. An empty or a repeated one changes nothing. Linear.
    void add(std::string_view text);

    /// Returns whether one of the needles occurs in the text. Requires Case::insensitive of the
    /// text. Linear in its length times the number of code points in the longest needle, for any
    /// number of needles.
    bool anyIn(const ComparedText& text) const;

    /// Returns whether one of the needles occurs in one of the texts of a signature, or nullopt if
    /// the signature does not decide it.
    std::optional<bool> prefilter(const TextSignature& texts) const;

private:
    /// For one byte: no needle begins with it, it is a needle itself, or only longer needles begin
    /// with it.
    enum class FirstByte : std::uint8_t { beginsNone, isOne, beginsSome };

    void addSignature(const ComparedText& needle);
    bool anyAt(const ComparedText& text, std::size_t offset) const;

    std::array<FirstByte, 256> m_firstBytes{}; // indexed by bytes
    TextSet m_needles;                         // folded needles
    std::size_t m_longest = 0;                 // code points in the longest needle
    TextSignature m_exact;                     // of all needles that isExact() accepts
    std::vector<TextSignature> m_others;       // of each other needle, up to a limit
};

} // namespace PerchAppLibrary::text
