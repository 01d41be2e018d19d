#pragma once

#include <PerchAppLibrary/platform/ComparedText.hpp>

#include <concepts>
#include <string>
#include <string_view>

namespace PerchAppLibrary::text {

/// A text in which needles are looked for. One object takes one text after the other.
///
/// Most texts are ASCII, in which a needle is looked for as they are; the folded form of others is made when the first
/// needle asks for it, and serves all.
class SearchedText {
public:
    SearchedText() = default;

    /// Requires: the text lives until the next assign().
    explicit SearchedText(std::string_view text) { assign(text); }
    void assign(std::string_view text) noexcept;

    /// A string that is about to go does not live until then.
    template <std::same_as<std::string> String>
    explicit SearchedText(String&& text) = delete;
    template <std::same_as<std::string> String>
    void assign(String&& text) = delete;

    /// The text as it was given.
    std::string_view source() const noexcept { return m_source; }

    bool isASCII() const noexcept { return m_isASCII; }

    /// The folded form; of ASCII, byte for byte the source with capital letters.
    const ComparedText& folded();

    /// Whether the text is the key but for case.
    bool is(const ComparedText& key) {
        return (!m_isASCII || m_source.size() == key.bytes().size()) && folded() == key;
    }

private:
    std::string_view m_source;
    bool m_isASCII = true;
    bool m_isFolded = false;
    ComparedText m_folded;
};

} // namespace PerchAppLibrary::text
