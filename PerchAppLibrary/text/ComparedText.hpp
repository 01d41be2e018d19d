#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// Whether case counts in a comparison: `ignored` compares folded texts, `kept` decomposed ones.
enum class Case : std::uint8_t { insensitive, sensitive };

class FoldCache;

/// A text in the form in which texts are compared: the bytes of text::folded() or
/// text::decomposed().
///
/// One object takes one text after the other, in the same memory, so a query over many texts does
/// not allocate for each. The view that bytes() returns lives until the next assign().
///
/// Most texts are plain: ASCII and Chinese ideographs (U+3400 to U+9FFF). These have no case but
/// that of ASCII and no decomposition, and combine with nothing, so they need no Unicode service.
/// Most other texts are built from the compared forms of their characters, which are cached.
class ComparedText {
public:
    /// An empty text.
    explicit ComparedText(Case letterCase = Case::insensitive);
    explicit ComparedText(std::string_view text, Case letterCase = Case::insensitive);
    ComparedText(ComparedText&& other) noexcept;
    ComparedText& operator=(ComparedText&& other) noexcept;
    ~ComparedText();

    /// Stores the compared form of the text (any bytes). Linear.
    void assign(std::string_view text);

    /// Returns the compared form, which is well-formed UTF-8.
    std::string_view bytes() const noexcept { return {m_buffer.data(), m_size}; }

    /// Returns whether the compared form is plain, so it may be cut between any two characters.
    bool isPlain() const noexcept { return m_isPlain; }

    /// Returns whether the compared form may be cut at the offset without cutting off a mark from
    /// the character with which it combines, or a vowel or final from its Hangul syllable. Requires
    /// the offset of a character or of the end.
    bool isBoundary(std::size_t offset) const;

    /// Canonical equivalence (UAX #15) of two texts of the same Case: case-sensitive for
    /// Case::sensitive.
    friend bool operator==(const ComparedText& left, const ComparedText& right) noexcept {
        return left.bytes() == right.bytes();
    }

private:
    void assignOther(std::string_view text);
    void take(std::string_view form);

    std::vector<char> m_buffer; // the text, then room
    std::size_t m_size = 0;
    Case m_case;
    bool m_isPlain = true;
    bool m_hadOther = false;            // assigned a text that was not plain
    std::unique_ptr<FoldCache> m_forms; // made for the second such text
};

} // namespace PerchAppLibrary::text
