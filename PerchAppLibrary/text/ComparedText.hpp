#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// Whether a comparison ignores case (compares folded texts) or not (compares decomposed texts).
enum class Case : std::uint8_t { insensitive, sensitive };

class FoldCache;

/// A text in its compared form: the bytes of text::folded() or text::decomposed().
///
/// Reuse one object for many texts, so a query does not allocate for each. The object owns the
/// compared form. The view that bytes() returns lives until the next assign().
///
/// Most texts are plain: ASCII and Chinese ideographs (U+3400 to U+9FFF). Ideographs have no case
/// and no decomposition, and combine with nothing, so plain texts do not need ICU. Most other texts
/// are built from the compared forms of their characters, which are cached.
class ComparedText {
public:
    /// Stores an empty text.
    explicit ComparedText(Case letterCase = Case::insensitive);
    explicit ComparedText(std::string_view text, Case letterCase = Case::insensitive);
    ComparedText(ComparedText&& other) noexcept; // for vectors of Needle
    ~ComparedText();

    /// Stores the compared form of the text (any bytes). Linear.
    void assign(std::string_view text);

    Case letterCase() const noexcept { return m_case; }

    /// Returns the compared form, which is well-formed UTF-8.
    std::string_view bytes() const noexcept { return {m_buffer.data(), m_size}; }

    /// Returns whether the compared form is plain, so it may be cut between any two characters.
    bool isPlain() const noexcept { return m_isPlain; }

    /// Returns whether the compared form may be cut at the offset without cutting off a mark from
    /// the character with which it combines, or a vowel or final from its Hangul syllable. Requires
    /// the offset of a character or of the end.
    bool isBoundary(std::size_t offset) const;

    /// Returns whether two texts are canonically equivalent (UAX #15), ignoring case unless they
    /// are of Case::sensitive. Requires the same Case of both.
    friend bool operator==(const ComparedText& left, const ComparedText& right) noexcept {
        return left.bytes() == right.bytes();
    }

private:
    void assignNonPlain(std::string_view text);

    std::vector<char> m_buffer; // the compared form, then at least a word of padding
    std::size_t m_size = 0;
    Case m_case;
    bool m_isPlain = true;
    bool m_hadNonPlain = false;             // whether a text so far was not plain
    std::unique_ptr<FoldCache> m_foldCache; // created for the second such text
};

} // namespace PerchAppLibrary::text
