#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

class JSON;

/// A C++ character type. A character is neither a number nor a text, so none becomes a JSON.
template <class T>
concept CharacterType =
    std::same_as<T, char> || std::same_as<T, wchar_t> || std::same_as<T, char8_t> ||
    std::same_as<T, char16_t> || std::same_as<T, char32_t>;

/// A C++ type that becomes a JSON: bool, an integer of at most 64 bits, float, double, and what
/// converts to std::string_view.
template <class T>
concept JSONScalar =
    !std::same_as<T, JSON> &&
    ((std::integral<T> && !CharacterType<T> && sizeof(T) <= sizeof(std::int64_t)) ||
     std::same_as<T, float> || std::same_as<T, double> ||
     std::convertible_to<const T&, std::string_view>);

/// One value of a JSON document (RFC 8259), read from a text or made from a C++ value.
///
/// A JSON shares the document that it belongs to: it is copied cheaply, keeps the whole document
/// alive, and does not need the text any more. Values are immutable, so any number of threads may
/// read one document. Apart from parse(), no operation throws on any document: asking a value for
/// what it does not hold gives null, empty or zero.
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

    // NOLINTBEGIN(google-explicit-constructor): so that a setter of a JSON takes a C++ value

    /// The null value.
    constexpr JSON(std::nullptr_t) noexcept {}

    /// Makes a Boolean, a number or a string from a C++ value. The result is like a parsed value.
    ///
    /// A text is NOT parsed: JSON("{}") is a string of two characters. JSON::parse("{}") is an
    /// empty object.
    ///
    /// An integer keeps its value, also beyond std::int64_t. A float becomes its shortest decimal,
    /// so 0.1F becomes 0.1. NaN and the infinities, which JSON does not have, become null. Each
    /// ill-formed sequence of bytes in a text becomes U+FFFD. Requires that a const char* is not
    /// null. Does not compile for a character, nor for a pointer to anything but text. Throws
    /// ParseError for a text that parse() refuses as too long. Linear in the length of the text;
    /// allocates a document.
    template <JSONScalar T>
    JSON(const T& value) : JSON(fromScalar(Widest<T>(value))) {}

    // NOLINTEND(google-explicit-constructor)

    /// The document that the text (UTF-8, without a byte order mark, less than 4 GiB) spells. A
    /// number beyond 64-bit integers is read as the nearest double, one beyond the doubles as the
    /// greatest or least of them, and an escaped surrogate without its other half as U+FFFD; so
    /// every well-formed text no deeper than maximumDepth is a document. Throws ParseError for any
    /// other text. Given as an rvalue, the text is read in place where its capacity allows; what it
    /// holds afterwards is unspecified.
    static JSON parse(std::string_view text);
    static JSON parse(std::string&& text);
    static JSON parse(const char* text) { return parse(std::string_view(text)); }

    Type type() const noexcept;

    bool isNull() const noexcept { return type() == Type::null; }

    /// Returns the value as a T, or nullopt where the table says "-" or its condition does not
    /// hold. T is std::int64_t, bool, float, double, std::string, or a std::vector of std::int64_t
    /// or std::string. The properties of records are filled by this table as well.
    ///
    /// Conversion is lenient in kind and exact in value: it succeeds if T can hold what the JSON
    /// says.
    ///
    ///   JSON \ T      | std::int64_t   | bool        | float, double   | std::string     | array
    ///   --------------|----------------|-------------|-----------------|-----------------|--------
    ///   integer       | within 64 bits | 0 and 1     | yes, rounded    | its digits      | -
    ///   other number  | integral, exact| 0.0 and 1.0 | in range        | shortest decimal| -
    ///   string        | digits         | see below   | a decimal number| as it is        | -
    ///   true, false   | 1, 0           | yes         | 1, 0            | "true", "false" | -
    ///   array         | -              | -           | -               | -               | all fit
    ///   object        | -              | -           | -               | -               | -
    ///   null, missing | -              | -           | -               | -               | -
    ///
    /// - std::int64_t: an integer in a string is an optional "-" and decimal digits, nothing else,
    ///   in the range of 64 bits. A number such as 3.0 or 1e3 is integral. From 2^53 on, one such
    ///   number stands for several integers, so none converts.
    /// - bool: a string is "true" or "false" in any case of its letters, "0" or "1".
    /// - float, double: rounded to the nearest. A number that would become infinite, or zero
    ///   without being zero, is out of range. A number in a string is an optional "-", decimal
    ///   digits, and optionally a point and an exponent.
    /// - std::string: an integer within 64 bits (signed or unsigned) keeps its digits. Any other
    ///   number is written as the shortest decimal that gives it back, with ".0" if it is integral
    ///   ("22.0"). From 2^63 on it has been rounded, and does not convert.
    /// - An array is converted element by element by the columns of its type, as a whole or not at
    ///   all.
    ///
    /// Properties of records have three more types. A std::optional<std::string> takes what a
    /// std::string takes, and a null as nullopt. A JSON takes every value, a null too, in a
    /// document of its own. An array of records takes nothing: the record makes its nested records
    /// itself.
    template <class T>
    std::optional<T> as() const;

    /// Number of elements of an array or of members of an object, a repeated key counted each time;
    /// 0 for the rest.
    std::size_t count() const noexcept;

    /// The member of an object with this key, the last one when the key is repeated; otherwise
    /// null. Linear in the number of members.
    JSON operator[](std::string_view key) const noexcept;
    JSON operator[](const char* key) const noexcept { return (*this)[std::string_view(key)]; }

    /// The element of an array at this index, counted from 0; otherwise null. Linear in the index:
    /// all elements are visited by a loop over the JSON.
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

    /// Whether two values hold equal data. Null equals null, and what is missing is null. Numbers
    /// are equal by their exact value, whatever their spelling: 1 equals 1.0, and 9007199254740993
    /// does not equal 9007199254740992.0. Strings are equal by their bytes, arrays element by
    /// element in their order, and objects as sets of members in any order; the last value of a
    /// repeated key counts. Values of different kinds differ: 1 equals neither "1" nor true.
    ///
    /// A C++ value becomes a JSON first, so `json["Id"] == 7` and `json["Name"] == "A"` work. To
    /// compare leniently, or in a hot loop, use as(): `json["Id"].as<std::int64_t>() == 7` holds
    /// for "7" too, and allocates nothing. O(n log n) in the size of the values.
    friend bool operator==(const JSON& left, const JSON& right);

private:
    friend class JSONElement;

    /// The type that fromScalar() takes a T as, without a loss.
    template <class T>
    using Widest =
        std::conditional_t<!std::is_arithmetic_v<T>, std::string_view,
                           std::conditional_t<std::same_as<T, bool> || std::floating_point<T>, T,
                                              std::conditional_t<std::unsigned_integral<T>,
                                                                 std::uint64_t, std::int64_t>>>;

    static JSON fromScalar(bool flag);
    static JSON fromScalar(std::int64_t number);
    static JSON fromScalar(std::uint64_t number);
    static JSON fromScalar(float number);
    static JSON fromScalar(double number);
    static JSON fromScalar(std::string_view text);

    template <class T>
    static constexpr bool isReadable =
        std::disjunction_v<std::is_same<T, std::int64_t>, std::is_same<T, bool>,
                           std::is_same<T, float>, std::is_same<T, double>,
                           std::is_same<T, std::string>, std::is_same<T, std::vector<std::int64_t>>,
                           std::is_same<T, std::vector<std::string>>>;

    /// Writes the value to `value` and returns true, or returns false if it does not convert.
    template <class T>
    bool convertTo(T& value) const;

    JSON at(std::size_t index) const noexcept;

    /// A place in a parsed document, as the reader's own type lays it out.
    using Place = std::array<std::uint64_t, 2>;

    JSON(std::shared_ptr<const void> document, Place place) noexcept
        : m_document(std::move(document)), m_place(place) {}

    std::shared_ptr<const void> m_document; // none for the null value
    Place m_place{};
};

inline constinit const JSON JSON::null;

template <class T>
std::optional<T> JSON::as() const {
    static_assert(isReadable<T>,
                  "JSON::as<T>(): T is std::int64_t, bool, float, double, std::string, "
                  "std::vector<std::int64_t> or std::vector<std::string>");
    T value{};
    return convertTo(value) ? std::optional<T>(std::move(value)) : std::nullopt;
}

/// Steps through the elements of one array. The element that it refers to is its own: it lasts
/// until the next step.
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
