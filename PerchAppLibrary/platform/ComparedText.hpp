#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace PerchAppLibrary::text {

/// Whether case counts in a comparison: `ignored` compares folded texts, `kept` decomposed ones.
enum class Case : std::uint8_t { ignored, kept };

class FoldCache;

/// A text in the form in which texts are compared: as text::folded() or text::decomposed() give it, byte for byte.
///
/// One object takes one text after the other in the same memory, so that a query over many texts does not allocate for
/// each. What bytes() gives lives until the next assign().
///
/// Most texts are plain: ASCII, and Chinese ideographs (U+3400 to U+9FFF), which have no case but that of ASCII and no
/// decomposition, and combine with nothing. The bytes of a plain text need no Unicode service. Of other texts, those in which
/// no mark stands by itself are put together from the forms of their characters, the latest of which are kept.
class ComparedText {
public:
    /// An empty text.
    explicit ComparedText(Case letterCase = Case::ignored);
    explicit ComparedText(std::string_view text, Case letterCase = Case::ignored);
    ComparedText(ComparedText&& other) noexcept;
    ComparedText& operator=(ComparedText&& other) noexcept;
    ~ComparedText();

    /// Becomes the compared form of the text, any bytes. Linear.
    void assign(std::string_view text);

    /// The compared form: well-formed UTF-8.
    std::string_view bytes() const noexcept { return {m_buffer.data(), m_size}; }

    /// Whether the compared form is plain, so that it may be cut between any two of its characters.
    bool isPlain() const noexcept { return m_isPlain; }

    /// Whether the compared form may be cut at the offset, the start of a character or the end, without taking a
    /// mark from the character with which it combines, or a Hangul vowel or final from its syllable.
    bool isBoundary(std::size_t offset) const;

    /// Canonical equivalence (UAX #15) of two texts of the same Case: case-sensitive for Case::kept.
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
    bool m_hadOther = false;            // a text that was not plain
    std::unique_ptr<FoldCache> m_forms; // made for the second of these
};

} // namespace PerchAppLibrary::text
