#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// One value of a parsed JSON document (RFC 8259).
///
/// A JSON shares the document that it belongs to: it is copied cheaply, keeps the whole document alive, and
/// does not need the text any more. Values are immutable, so any number of threads may read one document.
/// Apart from parse(), no operation throws on any document: asking a value for what it does not hold gives
/// null, empty or zero.
class JSON {
public:
    /// What a value is. A value read from a text is never `unknown`.
    enum class Type : std::uint8_t { number, string, boolean, array, dictionary, null, unknown };

    /// A text that is not a JSON document. what() says "line L, column C: reason".
    class ParseError;

    /// How deep arrays and objects may stand in one another.
    static constexpr std::size_t maximumDepth = 1024;

    /// The null value, which also stands for everything that is missing.
    static const JSON null;

    /// The string without a character.
    static const JSON& emptyString();

    constexpr JSON() noexcept = default;

    /// The document that the text (UTF-8, without a byte order mark, less than 4 GiB) spells. A number beyond 64-bit
    /// integers is read as the nearest double, one beyond the doubles as the greatest or least of them, and an escaped
    /// surrogate without its other half as U+FFFD; so every well-formed text no deeper than maximumDepth is a document.
    /// Throws ParseError for any other text. Given as an rvalue, the text is read in place where its capacity allows;
    /// what it holds afterwards is unspecified.
    static JSON parse(std::string_view text);
    static JSON parse(std::string&& text);
    static JSON parse(const char* text) { return parse(std::string_view(text)); }

    Type type() const noexcept;

    bool isNull() const noexcept { return type() == Type::null; }

    /// Number of elements of an array or of members of an object, a repeated key counted each time; 0 for the rest.
    std::size_t count() const noexcept;

    /// The member of an object with this key, the last one when the key is repeated; otherwise null.
    /// Linear in the number of members.
    JSON operator[](std::string_view key) const noexcept;
    JSON operator[](const char* key) const noexcept { return (*this)[std::string_view(key)]; }

    /// The element of an array at this index, counted from 0; otherwise null. Linear in the index: all
    /// elements are visited by a loop over the JSON.
    template <std::integral Index>
    JSON operator[](Index index) const noexcept {
        return std::cmp_less(index, 0) ? null : at(static_cast<std::size_t>(index));
    }

    /// The elements of an array in their order; empty for any other value.
    std::vector<JSON> arrayValue() const;

    /// The same one after the other, `for (const JSON& element : json)`, without an array of them.
    class Iterator;
    Iterator begin() const noexcept;
    Iterator end() const noexcept;

private:
    friend class JSONElement;

    JSON at(std::size_t index) const noexcept;

    /// A place in a parsed document, as the reader's own type lays it out.
    using Place = std::array<std::uint64_t, 2>;

    JSON(std::shared_ptr<const void> document, Place place) noexcept
        : m_document(std::move(document)), m_place(place) {}

    std::shared_ptr<const void> m_document; // none for the null value
    Place m_place{};
};

inline constinit const JSON JSON::null;

/// Steps through the elements of one array. The element that it refers to is its own: it lasts until the next step.
class JSON::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = JSON;
    using difference_type = std::ptrdiff_t;
    using pointer = const JSON*;
    using reference = const JSON&;

    const JSON& operator*() const noexcept { return m_element; }
    const JSON* operator->() const noexcept { return &m_element; }
    Iterator& operator++() noexcept;
    void operator++(int) noexcept { ++*this; }
    bool operator==(const Iterator& other) const noexcept { return m_position == other.m_position; }

private:
    friend class JSON;

    JSON m_element;
    Place m_position{}; // the reader's own iterator
};

class JSON::ParseError : public std::runtime_error {
public:
    ParseError(std::size_t line, std::size_t column, std::string_view reason);

    /// Line of the fault, counted from 1; lines end with a line feed.
    std::size_t line() const noexcept { return m_line; }

    /// Column of the fault, counted in characters (code points) from 1.
    std::size_t column() const noexcept { return m_column; }

    /// What is wrong there, in English.
    const std::string& reason() const noexcept { return m_reason; }

private:
    std::size_t m_line;
    std::size_t m_column;
    std::string m_reason;
};

} // namespace PerchAppLibrary
