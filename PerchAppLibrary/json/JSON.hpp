#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

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

/// What JSON::parse() accepts of a text that it would otherwise parse. The defaults are what it can
/// parse at all; greater values do not extend that.
struct JSONLimits {
    std::size_t depth = 1024;       ///< levels of nested arrays and objects
    std::size_t bytes = 0xFFFFFFFF; ///< size of the text
    /// Elements of arrays and members of objects, at all levels. Each element of an array of
    /// records takes hundreds of bytes as a record, but may take two in the text: `[0,0]`.
    std::size_t elements = static_cast<std::size_t>(-1);
};

/// A C++ character type. A character is neither a number nor a text, so none becomes a JSON.
template <class T>
concept CharacterType =
    std::same_as<T, char> || std::same_as<T, wchar_t> || std::same_as<T, char8_t> ||
    std::same_as<T, char16_t> || std::same_as<T, char32_t>;

/// A C++ type that converts to a JSON: bool, an integer of at most 64 bits, float, double, or a
/// type that converts to std::string_view.
template <class T>
concept JSONScalar =
    !std::same_as<T, JSON> &&
    ((std::integral<T> && !CharacterType<T> && sizeof(T) <= sizeof(std::int64_t)) ||
     std::same_as<T, float> || std::same_as<T, double> ||
     std::convertible_to<const T&, std::string_view>);

/// One value of a JSON document (RFC 8259), read from a text or made from a C++ value.
///
/// A JSON shares the ownership of its document: a copy is cheap and keeps the whole document alive.
/// It does not refer to the text. Values are immutable, so any number of threads may read one
/// document. Reading a value never throws (std::bad_alloc aside): what the value does not hold is
/// null, empty or zero.
class JSON {
public:
    /// The kind of a value. No value is `unknown`; it is reserved.
    enum class Type : std::uint8_t { number, string, boolean, array, dictionary, null, unknown };

    class ParseError;

    /// The greatest depth of nested arrays and objects.
    static constexpr std::size_t maximumDepth = JSONLimits().depth;

    using Limits = JSONLimits;

    /// The null value. It also stands for a missing value.
    static const JSON null;

    /// Returns the empty string.
    static const JSON& emptyString();

    constexpr JSON() noexcept = default;
    JSON(const JSON& other) = default;
    JSON(JSON&& other) noexcept = default;
    ~JSON() = default;

    /// Assign to a variable, not to a temporary: `json["Id"] = 5` does not compile, since it would
    /// change nothing.
    JSON& operator=(const JSON& other) & = default;
    JSON& operator=(JSON&& other) & noexcept = default;
    JSON& operator=(const JSON& other) && = delete;

    // NOLINTBEGIN(google-explicit-constructor): a setter that takes a JSON also takes a C++ value

    /// The null value.
    constexpr JSON(std::nullptr_t) noexcept {}

    /// Makes a Boolean, a number or a string from a C++ value. The result equals a parsed value.
    ///
    /// Does not parse a text: JSON("{}") is a string of two characters. JSON::parse("{}") is an
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

    /// Parses a JSON text (RFC 8259): UTF-8 without a byte order mark, less than 4 GiB. Throws
    /// ParseError for any other text, and for one that nests deeper than maximumDepth. Linear.
    ///
    /// Every other well-formed text is a document. An integer beyond 64 bits becomes the nearest
    /// double. A number beyond the range of double becomes the greatest or the least double. An
    /// escaped half of a surrogate pair becomes U+FFFD. An rvalue is parsed in place if its
    /// capacity allows, and its content is unspecified afterwards.
    ///
    /// Throws ParseError, with the position, for a text that exceeds the limits. Takes one more
    /// pass over the text if their depth or elements are less than the defaults.
    static JSON parse(std::string_view text, const Limits& limits = {});
    static JSON parse(std::string&& text, const Limits& limits = {});
    static JSON parse(const char* text, const Limits& limits = {}) {
        return parse(std::string_view(text), limits);
    }

    /// Returns the kind of the value. Constant time.
    Type type() const noexcept;

    bool isNull() const noexcept { return type() == Type::null; }

    /// Returns the value as a T, or nullopt if it does not convert: the table says "-", or its
    /// condition does not hold. T is std::int64_t, bool, float, double, std::string, or a
    /// std::vector of std::int64_t or std::string. Filling a record uses this table too.
    ///
    /// Conversion is lenient in kind but keeps the value, except that float and double round.
    ///
    ///   JSON \ T      | std::int64_t   | bool        | float, double   | std::string     | array
    ///   --------------|----------------|-------------|-----------------|-----------------|--------
    ///   integer       | within 64 bits | 0 and 1     | yes, rounded    | its digits      | -
    ///   other number  | integral, exact| 0.0 and 1.0 | in range        | its decimal     | -
    ///   string        | digits         | see below   | a decimal number| as it is        | -
    ///   true, false   | 1, 0           | yes         | 1, 0            | "true", "false" | -
    ///   array         | -              | -           | -               | -               | all fit
    ///   object        | -              | -           | -               | -               | -
    ///   null, missing | -              | -           | -               | -               | -
    ///
    /// - std::int64_t: an integer in a string is an optional "-" and decimal digits, nothing else,
    ///   from -2^63 to 2^63-1. A number such as 3.0 or 1e3 is integral. It converts only if its
    ///   magnitude is below 2^53, since a greater one may have been rounded.
    /// - bool: a string is "true" or "false" (ASCII case ignored), "0" or "1".
    /// - float, double: rounded to the nearest. A number that would become infinite, or zero
    ///   without being zero, is out of range. A number in a string is an optional "-", decimal
    ///   digits, and optionally a point and an exponent.
    /// - std::string: an integer within 64 bits (signed or unsigned) keeps its digits. Any other
    ///   number becomes a decimal that reads back as the number, with a point and without an
    ///   exponent: "22.0" for 22.0, "100000.0" for 1e5, "0.0000025" for 2.5e-6. A number whose
    ///   magnitude is 2^63 or more does not convert, since it may have been rounded.
    /// - An array converts if each element converts by the column of the element's type.
    ///
    /// Properties of records have more types. A std::optional converts like its value, and a null
    /// becomes nullopt. A JSON takes every value, null included, as a copy in a document of its
    /// own. A record and an array of records are not converted:
    /// BaseEntity::setValue(json) fills them.
    template <class T>
    std::optional<T> as() const;

    /// Returns the number of elements of an array, or of members of an object, with each repeated
    /// key. Returns 0 for any other value.
    std::size_t count() const noexcept;

    /// Returns the value under a key of an object, the last one if the key is repeated. Returns
    /// null for a missing key or a value that is not an object. Linear in the number of members.
    JSON operator[](std::string_view key) const noexcept;
    JSON operator[](const char* key) const noexcept { return (*this)[std::string_view(key)]; }

    /// Returns the element of an array at this index, counted from 0. Returns null for an index
    /// outside the array or a value that is not an array. Linear in the index; to visit all
    /// elements, use a range-based for loop.
    template <std::integral Index>
    JSON operator[](Index index) const noexcept {
        return std::cmp_less(index, 0) ? null : at(static_cast<std::size_t>(index));
    }

    /// Returns the elements of an array in their order, or none for any other value. Linear.
    std::vector<JSON> arrayValue() const;

    /// Visits the elements of an array, `for (const JSON& element : json)`, without an allocation.
    class Iterator;
    Iterator begin() const noexcept;
    Iterator end() const noexcept;

    /// Returns whether two values are equal. Null equals null and a missing value. Numbers compare
    /// by their exact value, in any spelling: 1 equals 1.0, and 9007199254740993 does not equal
    /// 9007199254740992.0. Strings compare by their bytes, arrays element by element, and objects
    /// by their members in any order, with the last value of a repeated key. Values of different
    /// kinds differ: 1 equals neither "1" nor true.
    ///
    /// A C++ value converts to a JSON first, so `json["Id"] == 7` and `json["Name"] == "A"` work.
    /// To compare leniently, or in a hot loop, use as(): `json["Id"].as<std::int64_t>() == 7` holds
    /// for "7" too, and allocates nothing. O(n log n) in the size of the values.
    friend bool operator==(const JSON& left, const JSON& right);

private:
    friend class JSONElement;

    /// The parameter type of fromScalar() that represents every T.
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

    /// The bytes of a position in the document, in a type of the parser.
    using Position = std::array<std::uint64_t, 2>;

    JSON(std::shared_ptr<const void> document, Position position) noexcept
        : m_document(std::move(document)), m_position(position) {}

    std::shared_ptr<const void> m_document; // null for JSON::null
    Position m_position{};                  // a simdjson::dom::element
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

/// An input iterator over the elements of one array. It owns the element that it refers to, which
/// lives until the next increment. Requires that no end is dereferenced or incremented.
class JSON::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = JSON;
    using difference_type = std::ptrdiff_t;
    using pointer = const JSON*;
    using reference = const JSON&;

    const JSON& operator*() const& noexcept { return m_element; }
    JSON operator*() && noexcept { return std::move(m_element); }  // `*json.begin()`
    const JSON* operator->() const noexcept { return &m_element; } // input iterators need it
    Iterator& operator++() noexcept;
    void operator++(int) noexcept { ++*this; } // input iterators need it
    bool operator==(const Iterator& other) const noexcept { return m_position == other.m_position; }

private:
    friend class JSON;

    JSON m_element;
    Position m_position{}; // a simdjson::dom::array::iterator
};

/// Thrown for a text that is not a JSON document. what() is "line L, column C: reason".
class JSON::ParseError : public std::runtime_error {
public:
    ParseError(std::size_t line, std::size_t column, std::string_view reason);

    /// Returns the line of the error, counted from 1. Lines end with a line feed.
    std::size_t line() const noexcept { return m_line; }

    /// Returns the column of the error, counted in code points from 1.
    std::size_t column() const noexcept { return m_column; }

    /// Returns what is wrong there, in English.
    const std::string& reason() const noexcept { return m_reason; }

private:
    std::size_t m_line;
    std::size_t m_column;
    std::string m_reason;
};

} // namespace PerchAppLibrary
