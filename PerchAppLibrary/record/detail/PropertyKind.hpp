#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The kinds of property values: all that the library knows of a type in ValueTypes
/// (record/PropertyType.hpp) but its conversion from JSON (json/detail/Conversion.hpp). Each has
/// its name, tests for its zero, and writes a value into a Dictionary and into text.
namespace PerchAppLibrary {

template <class T>
struct PropertyKind;

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

template <>
struct PropertyKind<std::int64_t> : PropertyKindOf<std::int64_t> {
    static std::string name() { return "Int"; }
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
struct PropertyKind<bool> : PropertyKindOf<bool> {
    static std::string name() { return "Bool"; }
    static bool isZero(bool value) noexcept { return !value; }
    static void write(Dictionary& dictionary, std::string_view key, bool value) {
        dictionary.emplace(key, value);
    }
    static void write(std::string& text, bool value) { text.append(value ? "true" : "false"); }
};

template <std::floating_point Real>
struct PropertyKind<Real> : PropertyKindOf<Real> {
    static std::string name() { return std::same_as<Real, float> ? "Float" : "Double"; }
    static bool isZero(Real value) noexcept { return value == 0 && !std::signbit(value); }
};

template <>
struct PropertyKind<std::string> : PropertyKindOf<std::string> {
    static std::string name() { return "String"; }
    static void write(Dictionary& dictionary, std::string_view key, const std::string& value) {
        if (text::isWellFormed(value))
            dictionary.emplace(key, std::string_view(value));
        else
            assign(dictionary[key], value);
    }
    static void write(std::string& text, const std::string& value) {
        appendJSONString(text, value);
    }
};

template <class T>
struct PropertyKind<std::optional<T>> : PropertyKindOf<std::optional<T>> {
    static std::string name() { return "optional " + PropertyKind<T>::name(); }
    static bool isZero(const std::optional<T>& value) noexcept { return !value.has_value(); }
};

template <class T>
struct PropertyKind<std::vector<T>> : PropertyKindOf<std::vector<T>> {
    static std::string name() { return "array of " + PropertyKind<T>::name(); }
    using PropertyKindOf<std::vector<T>>::write;
    static void write(std::string& text, const std::vector<T>& values) {
        char before = '[';
        for (const T& each : values) {
            text += before;
            before = ',';
            PropertyKind<T>::write(text, each);
        }
        text += values.empty() ? "[]" : "]";
    }
};

template <>
struct PropertyKind<JSON> : PropertyKindOf<JSON> {
    static std::string name() { return "any"; }
    static bool isZero(const JSON& value) noexcept { return value.isNull(); }
};

} // namespace PerchAppLibrary
