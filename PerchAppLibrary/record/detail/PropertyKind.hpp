#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The kinds of property values. Each has its name, tests for its zero, and writes a value into a
/// Dictionary and into text. The table of JSON::as says how JSON converts to it.
namespace PerchAppLibrary {

/// The default functions of a kind, for values of type T.
template <class T>
struct PropertyKindOf {
    static bool isZero(const T& value) noexcept { return value.empty(); }

    /// Adds a value to the dictionary. Requires that the dictionary does not have the key.
    static void write(Dictionary& dictionary, std::string_view key, const T& value) {
        assign(dictionary[key], value);
    }

    /// Appends the value as JSON text.
    static void write(std::string& text, const T& value) { text += toText(toValue(value)); }
};

template <class T>
struct PropertyKind;

template <>
struct PropertyKind<std::int64_t> {
    static constexpr std::string_view name = "Int";
    static bool isZero(std::int64_t value) noexcept { return value == 0; }
    static void write(Dictionary& dictionary, std::string_view key, std::int64_t value) {
        dictionary.emplace(key, value);
    }
    static void write(std::string& text, std::int64_t value) {
        char digits[20]; // for "-9223372036854775808"
        text.append(digits, std::to_chars(digits, std::end(digits), value).ptr);
    }
};

template <>
struct PropertyKind<bool> {
    static constexpr std::string_view name = "Bool";
    static bool isZero(bool value) noexcept { return !value; }
    static void write(Dictionary& dictionary, std::string_view key, bool value) {
        dictionary.emplace(key, value);
    }
    static void write(std::string& text, bool value) { text.append(value ? "true" : "false"); }
};

template <>
struct PropertyKind<float> : PropertyKindOf<float> {
    static constexpr std::string_view name = "Float";
    static bool isZero(float value) noexcept {
        return std::bit_cast<std::uint32_t>(value) == 0; // -0 is not zero
    }
};

template <>
struct PropertyKind<double> : PropertyKindOf<double> {
    static constexpr std::string_view name = "Double";
    static bool isZero(double value) noexcept { return std::bit_cast<std::uint64_t>(value) == 0; }
};

template <>
struct PropertyKind<std::string> : PropertyKindOf<std::string> {
    static constexpr std::string_view name = "String";
    static void write(Dictionary& dictionary, std::string_view key, const std::string& value);
    static void write(std::string& text, const std::string& value) {
        appendJSONString(text, value);
    }
};

template <class T>
struct PropertyKind<std::optional<T>> : PropertyKindOf<std::optional<T>> {
    static constexpr std::string_view prefix = "optional ";
    static constexpr auto letters = [] {
        std::array<char, prefix.size() + PropertyKind<T>::name.size()> joined{};
        prefix.copy(joined.data(), prefix.size());
        PropertyKind<T>::name.copy(joined.data() + prefix.size(), PropertyKind<T>::name.size());
        return joined;
    }();
    static constexpr std::string_view name{letters.data(), letters.size()};
    static bool isZero(const std::optional<T>& value) noexcept { return !value.has_value(); }
};

template <>
struct PropertyKind<std::vector<std::int64_t>> : PropertyKindOf<std::vector<std::int64_t>> {
    static constexpr std::string_view name = "array of Int";
    using PropertyKindOf::write;
    static void write(std::string& text, const std::vector<std::int64_t>& values);
};

template <>
struct PropertyKind<std::vector<std::string>> : PropertyKindOf<std::vector<std::string>> {
    static constexpr std::string_view name = "array of String";
};

template <>
struct PropertyKind<JSON> : PropertyKindOf<JSON> {
    static constexpr std::string_view name = "any";
    static bool isZero(const JSON& value) noexcept { return value.isNull(); }
};

} // namespace PerchAppLibrary
