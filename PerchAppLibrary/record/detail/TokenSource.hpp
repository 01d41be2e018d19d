#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/Conversion.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace PerchAppLibrary {

/// A JSON text as the Source of a RecordFiller, without a document.
///
/// The parser's first stage finds the tokens: the brackets, colons and commas, and the begin of
/// each string, number and word. It also checks UTF-8, the quotation marks and that strings have no
/// control characters. It runs over one window of the text after the other, which stays in the
/// cache until its tokens are read. The rest of the grammar is checked here, at each token.
///
/// Values are read in document order. Values that are not read are skipped. Of the values already
/// passed, only scalars can be read again.
///
/// Throws Fault for malformed text and for anything that is not supported here. The caller then
/// uses JSON::parse().
class TokenSource {
public:
    struct Fault {};

    /// The begin of a value in the text.
    using Element = const char*;

    /// Reads windows that stay in the cache; tests choose smaller ones. What exceeds the limits of
    /// depth and elements is a fault. Requires SIMDJSON_PADDING readable blanks behind the text.
    explicit TokenSource(std::string_view text, const JSON::Limits& limits = {},
                         std::size_t windowSize = std::size_t{1} << 19);

    /// A RecordFiller must fill arrays of records where they are, not after the other properties.
    static constexpr bool readsInOrder = true;

    Element root() const noexcept { return at(m_next); }

    /// Throws Fault unless the whole text has been read.
    void finish(Element root);

    template <class Visitor>
    bool forEachMember(Element object, Visitor visit) {
        if (!isObject(object))
            return false;
        forEachUntil('}', object, [&] {
            const Token key = m_next;
            if (*at(key) != '"' || *at(key + 1) != ':') [[unlikely]]
                fail();
            m_next = key + 2;
            const Element value = at(m_next);
            visit(content(key), value);
            skipUnread(value);
        });
        return true;
    }

    std::string_view unescapedKey(std::string_view key) { return unescaped(key); }

    template <class Visitor>
    void forEachElement(Element array, Visitor visit) {
        forEachUntil(']', array, [&] {
            const Element element = at(m_next);
            visit(element);
            skipUnread(element);
        });
    }

    static bool isArray(Element element) noexcept { return *element == '['; }
    static bool isObject(Element element) noexcept { return *element == '{'; }

    /// Returns a guess, since nothing counts the elements. More than one, since growing takes time.
    static std::size_t sizeHint(Element /*array*/) noexcept { return 8; }

    /// Require that the element is the next value. A text lives until the next one is read.
    bool get(Element element, std::int64_t& number) {
        const std::optional<std::int64_t> plain = plainInteger(element);
        if (!plain) [[unlikely]]
            return false;
        number = *plain;
        ++m_next;
        return true;
    }
    bool get(Element element, bool& flag) {
        // Not by isWord(), whose branches the processor cannot predict.
        const bool isTrue = std::memcmp(element, "true", 4) == 0;
        const bool isFalse = std::memcmp(element, "false", 5) == 0;
        if (isTrue == isFalse || !isBehindScalar(element[isTrue ? 4 : 5])) [[unlikely]]
            return false;
        flag = isTrue;
        ++m_next;
        return true;
    }
    bool get(Element element, std::string_view& text) {
        if (*element != '"') [[unlikely]]
            return false;
        text = unescaped(content(m_next));
        ++m_next;
        return true;
    }
    bool get(Element element, std::vector<std::int64_t>& numbers);
    template <class T>
    bool get(Element /*element*/, T& /*value*/) {
        return false;
    }

    template <class T>
    bool convert(Element element, T& value) {
        if constexpr (ConvertsFromScalar<T>)
            return convertScalar(readScalar(element), value);
        else
            return convertElement(parse(element), value);
    }

    /// Throws Fault: a class that overrides how it is filled takes documents.
    [[noreturn]] static JSON toJSON(Element /*element*/) { fail(); }

private:
    /// The offset of a token in the window.
    using Token = const std::uint32_t*;

    [[noreturn]] static void fail() { throw Fault(); }

    /// A blank follows the text, so reading one token past the last is safe.
    const char* at(Token token) const noexcept { return m_window.data() + *token; }

    bool isNext(Element element) const noexcept { return element == at(m_next); }

    /// Reads an array or object, the next value. Calls `read()` at each element or member.
    template <class Read>
    void forEachUntil(char bracket, Element begin, Read read) {
        if (!isNext(begin) || ++m_depth > m_maximumDepth) [[unlikely]]
            fail();
        if (*at(++m_next) == bracket) {
            ++m_next;
        } else {
            do {
                countElements(1);
                read();
            } while (goesOn(bracket));
        }
        --m_depth;
    }

    void countElements(std::size_t count) {
        m_elementsLeft -= static_cast<std::int64_t>(count);
        if (m_elementsLeft < 0) [[unlikely]]
            fail();
    }

    bool goesOn(char bracket) {
        const char separator = *at(m_next++);
        if (separator == ',') {
            if (m_next == m_end) [[unlikely]]
                findTokens();
            return true;
        }
        if (separator != bracket) [[unlikely]]
            fail();
        return false;
    }

    void skipUnread(Element element) {
        if (isNext(element))
            skip();
    }

    /// Returns what is between the quotation marks of a string. Between its end and the next token
    /// is only white space.
    std::string_view content(Token string) const noexcept {
        const char* const begin = at(string) + 1;
        const char* end = at(string + 1) - 1;
        while (*end != '"')
            --end;
        return {begin, static_cast<std::size_t>(end - begin)};
    }

    /// Returns the content itself if it has no escapes, else a text that lives until the next call.
    /// NameIndex::headSize bytes are readable from the begin of either.
    std::string_view unescaped(std::string_view content) {
        const bool isPlain =
            content.data() >= m_plainBegin && content.data() + content.size() <= m_plainEnd;
        return isPlain ? content : unescape(content);
    }

    std::string_view unescape(std::string_view content);

    /// Returns the content of a string that was read before.
    std::string_view contentOf(Element string) const;

    void findBackslash(const char* from);

    /// A number or word ends before a separator or white space.
    static bool isBehindScalar(char character) noexcept {
        return character == ',' || character == '}' || character == ']' || character == ' ' ||
               character == '\n' || character == '\r' || character == '\t';
    }

    template <std::size_t Size>
    static bool isWord(Element element, const char (&word)[Size]) noexcept {
        return std::memcmp(element, word, Size - 1) == 0 && isBehindScalar(element[Size - 1]);
    }

    /// Returns an integer that is spelled in the usual way, with at most 18 digits.
    static std::optional<std::int64_t> plainInteger(Element element) noexcept {
        constexpr int mostDigits = 18; // fit, while more may wrap around
        const bool isNegative = *element == '-';
        const char* const first = element + (isNegative ? 1 : 0);
        const char* end = first;
        std::uint64_t value = 0;
        for (; *end >= '0' && *end <= '9'; ++end)
            value = value * 10 + static_cast<std::uint64_t>(*end - '0');
        if (end == first || end - first > mostDigits ||
            (*first == '0' && (end - first > 1 || isNegative)) || !isBehindScalar(*end))
            [[unlikely]]
            return std::nullopt;
        const auto number = static_cast<std::int64_t>(value);
        return isNegative ? -number : number;
    }

    /// Moves the window behind itself, and finds its tokens.
    void findTokens();
    simdjson::error_code runFirstStage(std::size_t windowLimit);

    /// Skips the next value.
    void skip();

    /// Throws Fault if no number is there.
    static std::string_view numberAt(Element element);

    /// Reads a value, or returns a monostate for an array or object. A text lives until the next
    /// one is read.
    Scalar readScalar(Element element);

    /// Reads the next value by the parser as a document of its own, which lives until the next
    /// call.
    simdjson::dom::element parse(Element element);

    /// Enough for real replies, and bounds the stack.
    static constexpr std::size_t maximumDepth = 64;

    std::string_view m_text;
    std::string_view m_window; // A part of the text. Each but the last ends with a comma.
    std::size_t m_windowSize;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> m_stages;
    Token m_next = nullptr;
    Token m_end = nullptr;
    std::size_t m_depth = 0;
    std::size_t m_maximumDepth;
    std::int64_t m_elementsLeft; // signed, since a test for its sign takes fewest instructions
    const char* m_plainBegin;    // a part of the text without backslashes
    const char* m_plainEnd;
    std::vector<std::uint8_t> m_unescaped;
    std::vector<std::int64_t> m_numbers;
    simdjson::dom::parser m_parser;
};

} // namespace PerchAppLibrary
