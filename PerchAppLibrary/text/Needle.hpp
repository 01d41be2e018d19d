#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// A text to find in many others, prepared once. Case is ignored. Immutable, so any number of
/// threads may use it. Owns its text.
///
/// It occurs in a text where its folded form is part of the folded text, unless the match begins or
/// ends between a letter and a mark that combines with it (UAX #15). So "e" does not occur in "é",
/// nor "가" in "각", and equivalent spellings of needle or text give equal results. Folding may
/// make several letters of one: "s" occurs in "ß". An empty needle does not occur in any text.
class Needle {
public:
    /// Takes any bytes; each ill-formed sequence counts as U+FFFD. Linear.
    explicit Needle(std::string_view text);

    bool isEmpty() const noexcept { return m_text.bytes().empty(); }

    const TextSignature& signature() const noexcept { return m_signature; }

    /// Returns whether the needle occurs in the text. Requires Case::insensitive of the text.
    /// Linear in their total length.
    bool isIn(const ComparedText& text) const { return offsetIn(text) != notFound; }

    /// Returns whether the needle occurs in one of the texts of a signature, or nullopt if the
    /// signature does not decide it.
    std::optional<bool> prefilter(const TextSignature& texts) const {
        if (!texts.covers(m_signature) || isEmpty())
            return false;
        return m_isExact && texts.isPlain() ? std::optional(true) : std::nullopt;
    }

    /// Like isIn(), but returns the offset of the first occurrence in the folded text, or nullopt.
    std::optional<std::size_t> find(const ComparedText& text) const {
        const std::size_t offset = offsetIn(text);
        return offset == notFound ? std::nullopt : std::optional(offset);
    }

    /// A range of bytes.
    struct Part {
        std::size_t begin;
        std::size_t end;
    };

    /// Returns the characters of the original text (any bytes), marks included, that contain the
    /// first occurrence: for "s" in "Straße", the "S". Returns nullopt if there is none. Linear.
    std::optional<Part> partOf(std::string_view text) const;

private:
    static constexpr std::size_t notFound = std::string_view::npos;

    /// Returns the first offset at which the needle occurs.
    std::size_t offsetIn(const ComparedText& text) const;

    bool isWhole(const ComparedText& text, std::size_t offset) const;

    ComparedText m_text;
    TextSignature m_signature;
    bool m_isExact;                     // whether a signature of plain texts decides it
    std::vector<std::size_t> m_borders; // of each prefix, see bordersOf()
};

} // namespace PerchAppLibrary::text
