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
/// control characters. The rest of the grammar is checked here, at each token.
///
/// Values are read one after the other. The source keeps the position behind the last one. Who
/// visits a value may read it or not; if not, the source skips it. A value may be read again later,
/// which does not change the position.
///
/// Throws Fault at a fault in the text, and at what is too unusual to read here. JSON::parse()
/// decides then.
class TokenSource {
public:
    struct Fault {};

    /// The position of a value's first token. Each token is an offset in the text.
    using Element = const std::uint32_t*;

    /// Runs the first stage. Requires SIMDJSON_PADDING readable bytes behind the text.
    explicit TokenSource(std::string_view text);

    /// A RecordFiller must fill arrays of records where they are, not after the other properties.
    static constexpr bool readsInOrder = true;

    Element root() const noexcept { return m_next; }

    /// Throws Fault unless the whole text has been read.
    void finish();

    template <class Visitor>
    bool forEachMember(Element object, Visitor visit) {
        if (!begins(object, '{'))
            return false;
        const Visit position(*this, object);
        forEachUntil('}', [&] {
            const Element key = m_next;
            if (!begins(key, '"') || !begins(key + 1, ':')) [[unlikely]]
                fail();
            m_next = key + 2;
            visit(spelled(key), key + 2);
            skipUnread(key + 2);
        });
        return true;
    }

    std::string_view unescapedKey(std::string_view key) { return unescaped(key); }

    template <class Visitor>
    void forEachElement(Element array, Visitor visit) {
        const Visit position(*this, array);
        forEachUntil(']', [&] {
            const Element element = m_next;
            visit(element);
            skipUnread(element);
        });
    }

    bool isArray(Element element) const noexcept { return begins(element, '['); }
    bool isObject(Element element) const noexcept { return begins(element, '{'); }

    /// Returns a guess, since nothing counts the elements. More than one, since growing takes time.
    static std::size_t sizeHint(Element /*array*/) noexcept { return 8; }

    /// Require that the element is the next value. A text lives until the next one is read.
    bool get(Element element, std::int64_t& number) {
        const std::optional<std::int64_t> plain = plainInteger(element);
        if (!plain) [[unlikely]]
            return false;
        number = *plain;
        m_next = element + 1;
        return true;
    }
    bool get(Element element, bool& flag) {
        const bool isTrue = isWord(element, "true");
        if (!isTrue && !isWord(element, "false")) [[unlikely]]
            return false;
        flag = isTrue;
        m_next = element + 1;
        return true;
    }
    bool get(Element element, std::string_view& text) {
        if (!begins(element, '"')) [[unlikely]]
            return false;
        text = unescaped(spelled(element));
        m_next = element + 1;
        return true;
    }
    bool get(Element element, std::vector<std::int64_t>& numbers);
    template <class T>
    bool get(Element /*element*/, T& /*value*/) {
        return false; // convert() reads it
    }

    template <class T>
    bool convert(Element element, T& value) {
        const Visit position(*this, element);
        if constexpr (ConvertsFromScalar<T>)
            return convertScalar(readScalar(), value);
        else
            return convertElement(parse(), value);
    }

    /// Throws Fault: a class that overrides how it is filled takes documents.
    [[noreturn]] static JSON toJSON(Element /*element*/) { fail(); }

private:
    /// Visits a value. If it is not the next value, returns to the position before.
    class Visit {
    public:
        Visit(TokenSource& source, Element element)
            : m_source(source), m_back(source.m_next == element ? nullptr : source.m_next) {
            source.m_next = element;
        }
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;
        ~Visit() {
            if (m_back != nullptr)
                m_source.m_next = m_back;
        }

    private:
        TokenSource& m_source;
        Element m_back;
    };

    [[noreturn]] static void fail() { throw Fault(); }

    const char* at(Element element) const noexcept { return m_text.data() + *element; }

    /// Behind the last token, no character begins a token.
    bool begins(Element element, char character) const noexcept {
        return *at(element) == character;
    }

    /// Reads an array or object, from its opening bracket. Calls `read()` at each element or
    /// member.
    template <class Read>
    void forEachUntil(char bracket, Read read) {
        if (++m_depth > maximumDepth) [[unlikely]]
            fail();
        if (begins(++m_next, bracket)) {
            ++m_next;
        } else {
            do
                read();
            while (goesOn(bracket));
        }
        --m_depth;
    }

    bool goesOn(char bracket) {
        const char separator = *at(m_next++);
        if (separator != ',' && separator != bracket) [[unlikely]]
            fail();
        return separator == ',';
    }

    void skipUnread(Element element) {
        if (m_next == element)
            skip();
    }

    /// Returns the content of a string, between the quotation marks. Between its end and the next
    /// token is only white space.
    std::string_view spelled(Element string) const noexcept {
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
    void findBackslash(const char* from);

    /// A number or word ends before a separator or white space.
    static bool isBehindScalar(char character) noexcept {
        switch (character) {
        case ',':
        case '}':
        case ']':
        case ' ':
        case '\n':
        case '\r':
        case '\t':
            return true;
        default:
            return false;
        }
    }

    template <std::size_t Size>
    bool isWord(Element element, const char (&word)[Size]) const noexcept {
        const char* const begin = at(element);
        return std::memcmp(begin, word, Size - 1) == 0 && isBehindScalar(begin[Size - 1]);
    }

    /// Returns an integer that is spelled in the usual way, with so few digits that it cannot
    /// overflow.
    std::optional<std::int64_t> plainInteger(Element element) const noexcept {
        constexpr std::ptrdiff_t mostDigits = 18;
        const char* digit = at(element);
        const bool isNegative = *digit == '-';
        digit += isNegative ? 1 : 0;
        const char* const first = digit;
        std::int64_t value = 0;
        for (; *digit >= '0' && *digit <= '9' && digit - first < mostDigits; ++digit)
            value = value * 10 + (*digit - '0');
        const std::ptrdiff_t digits = digit - first;
        if (digits == 0 || (*first == '0' && (digits > 1 || isNegative)) || !isBehindScalar(*digit))
            [[unlikely]]
            return std::nullopt;
        return isNegative ? -value : value;
    }

    /// Returns the number that stands there, or nothing if none does.
    std::string_view number(Element element) const noexcept;

    /// Read the next value: without its content, as a scalar whose text lives until the next one is
    /// read, or by the parser as a document of its own, which lives until the next call.
    void skip();
    Scalar readScalar();
    simdjson::dom::element parse();

    /// Deep enough for usual documents, and few frames on the stack.
    static constexpr int maximumDepth = 64;

    std::string_view m_text;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> m_stages;
    Element m_next = nullptr;
    Element m_end = nullptr;
    int m_depth = 0;
    const char* m_plainBegin; // A part of the text without backslashes
    const char* m_plainEnd;
    std::vector<std::uint8_t> m_unescaped;
    std::vector<std::int64_t> m_numbers;
    simdjson::dom::parser m_parser;
};

} // namespace PerchAppLibrary
