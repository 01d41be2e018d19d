#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>

#include <concepts>
#include <string>
#include <string_view>

namespace PerchAppLibrary::text {

/// A text to find needles in. Reuse one object for many texts, so a query does not allocate for
/// each. Does not own the text. Use it from one thread at a time, since folded() stores its result.
///
/// Most texts are ASCII and are searched without folding. Other texts are folded once, for the
/// first needle.
class SearchedText {
public:
    SearchedText() = default;

    /// Takes any bytes. Requires that the text lives until the next assign().
    explicit SearchedText(std::string_view text) { assign(text); }
    void assign(std::string_view text) noexcept;

    /// Deleted, since a temporary string does not live that long.
    template <std::same_as<std::string> String>
    explicit SearchedText(String&& text) = delete;
    template <std::same_as<std::string> String>
    void assign(String&& text) = delete;

    /// Returns the original text.
    std::string_view source() const noexcept { return m_source; }

    bool isASCII() const noexcept { return m_isASCII; }

    /// Returns the folded text. For ASCII, that is the source with its letters upper-cased. Linear
    /// in the first call, then constant.
    const ComparedText& folded();

    /// Returns whether the folded text equals the folded key.
    bool equals(const ComparedText& key) {
        return (!m_isASCII || m_source.size() == key.bytes().size()) && folded() == key;
    }

private:
    std::string_view m_source;
    bool m_isASCII = true;
    bool m_isFolded = false;
    ComparedText m_folded;
};

} // namespace PerchAppLibrary::text
