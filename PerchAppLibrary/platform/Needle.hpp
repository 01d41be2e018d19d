#pragma once

#include <PerchAppLibrary/platform/ComparedText.hpp>
#include <PerchAppLibrary/platform/SearchedText.hpp>
#include <PerchAppLibrary/platform/TextSignature.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// A text that is looked for in many others, prepared once. Case is ignored.
///
/// It occurs in a text where their folded forms agree, code point for code point, at a place whose two ends fall before
/// no character that combines with what stands before it: "e" is not in "é", in either spelling, and a Hangul
/// syllable without a final consonant is not in one with. So the answer is the same for every canonically equivalent
/// spelling of either. Expansion makes text of its own: "s" is in "ß". An empty needle is in nothing.
class Needle {
public:
    explicit Needle(std::string_view text);
    Needle(Needle&& other) noexcept;
    Needle& operator=(Needle&& other) noexcept;
    ~Needle();

    bool isEmpty() const noexcept { return m_text.bytes().empty(); }

    /// The needle, folded.
    const ComparedText& text() const noexcept { return m_text; }

    const TextSignature& signature() const noexcept { return m_signature; }

    /// Whether the needle occurs in the text. Linear in both together.
    bool isIn(SearchedText& text) const { return offsetIn(text) != notFound; }

    /// Whether the needle occurs in one of the texts that the signature is of; none when it does not tell.
    std::optional<bool> isIn(const TextSignature& texts) const {
        if (!texts.covers(m_signature) || isEmpty())
            return false;
        return m_isTold && texts.isPlain() ? std::optional(true) : std::nullopt;
    }

    /// Offset of the first occurrence in the folded form of the text.
    std::optional<std::size_t> find(SearchedText& text) const {
        const std::size_t offset = offsetIn(text);
        return offset == notFound ? std::nullopt : std::optional(offset);
    }

    /// A part of a text, in bytes.
    struct Part {
        std::size_t begin;
        std::size_t end;
    };

    /// The characters of the original text, any bytes, of which the first occurrence is made, marks and all: of "s" in
    /// "Straße", the "S".
    std::optional<Part> partOf(std::string_view text) const;

private:
    struct Ends;
    static constexpr std::size_t notFound = std::string_view::npos;

    std::size_t offsetIn(SearchedText& text) const {
        if (!text.isASCII())
            return findInFolded(text.folded());
        if (!m_isASCII || m_text.bytes().size() > text.source().size())
            return notFound;
        return m_ends ? findInASCII(text.source()) : findInFolded(text.folded());
    }

    std::size_t findInASCII(std::string_view text) const;
    std::size_t findInFolded(const ComparedText& text) const;
    std::size_t findLong(const ComparedText& text) const;
    bool isWhole(const ComparedText& text, std::size_t offset) const;

    ComparedText m_text;
    TextSignature m_signature;
    bool m_isASCII;
    bool m_isTold;                      // for certain by the signature of plain texts
    std::unique_ptr<const Ends> m_ends; // of a short needle
    std::vector<std::size_t> m_borders; // of a long one
};

} // namespace PerchAppLibrary::text
