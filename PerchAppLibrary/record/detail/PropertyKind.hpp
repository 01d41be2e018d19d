#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>

#include <bit>
#include <charconv>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The kinds of property values: all that the library knows of a type in ValueTypes
/// (record/PropertyType.hpp). Each has its name, tests for its zero, converts from JSON (the table
/// of JSON::as), and writes a value into a Dictionary and into text.
namespace PerchAppLibrary {

template <class T>
struct PropertyKind;

/// The default functions of a kind, for values of type T.
template <class T>
struct PropertyKindOf {
    static bool isZero(const T& value) noexcept { return value.empty(); }

    /// Stores the converted value and returns true, or leaves it unchanged and returns false. A
    /// kind that also takes arrays or objects has a simdjson::dom::element as first parameter.
    static bool convert(const Scalar& scalar, T& value) { return convertScalar(scalar, value); }

    /// Sets a value that is null.
    static void assign(Value& place, const T& value) { PerchAppLibrary::assign(place, value); }

    /// Adds a value to the dictionary. Requires that the dictionary does not have the key.
    static void write(Dictionary& dictionary, std::string_view key, const T& value) {
        PropertyKind<T>::assign(dictionary[key], value);
    }

    /// Appends the value as JSON text.
    static void write(std::string& text, const T& value) {
        Value place;
        PropertyKind<T>::assign(place, value);
        text += toText(place);
    }
};

template <class T>
concept ConvertsFromScalar =
    requires(const Scalar& scalar, T& value) { PropertyKind<T>::convert(scalar, value); };

/// Converts an element of a document to the value of a property.
template <class T>
bool convertProperty(simdjson::dom::element element, T& value) {
    if constexpr (std::integral<T>)
        return convertElement(element, value);
    else if constexpr (ConvertsFromScalar<T>)
        return PropertyKind<T>::convert(scalarOf(element), value);
    else
        return PropertyKind<T>::convert(element, value);
}

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

template <>
struct PropertyKind<float> : PropertyKindOf<float> {
    static std::string name() { return "Float"; }
    static bool isZero(float value) noexcept {
        return std::bit_cast<std::uint32_t>(value) == 0; // -0 is not zero
    }
};

template <>
struct PropertyKind<double> : PropertyKindOf<double> {
    static std::string name() { return "Double"; }
    static bool isZero(double value) noexcept { return std::bit_cast<std::uint64_t>(value) == 0; }
};

template <>
struct PropertyKind<std::string> : PropertyKindOf<std::string> {
    static std::string name() { return "String"; }
    static void write(Dictionary& dictionary, std::string_view key, const std::string& value);
    static void write(std::string& text, const std::string& value) {
        appendJSONString(text, value);
    }
};

/// A null converts to nullopt, and is written for it.
template <class T>
struct PropertyKind<std::optional<T>> : PropertyKindOf<std::optional<T>> {
    static std::string name() { return "optional " + PropertyKind<T>::name(); }
    static bool isZero(const std::optional<T>& value) noexcept { return !value.has_value(); }
    static bool convert(const Scalar& scalar, std::optional<T>& value) {
        T given{};
        const bool isNull = std::holds_alternative<std::nullptr_t>(scalar);
        if (!isNull && !PropertyKind<T>::convert(scalar, given))
            return false;
        value = isNull ? std::nullopt : std::optional<T>(std::move(given));
        return true;
    }
    static void assign(Value& place, const std::optional<T>& value) {
        if (value)
            PropertyKind<T>::assign(place, *value);
    }
};

template <class T>
struct PropertyKind<std::vector<T>> : PropertyKindOf<std::vector<T>> {
    static std::string name() { return "array of " + PropertyKind<T>::name(); }
    static bool convert(simdjson::dom::element element, std::vector<T>& value) {
        return convertArray(element, value, &convertProperty<T>);
    }
    static void assign(Value& place, const std::vector<T>& values) {
        ValueArray& array = place.emplace_array();
        array.reserve(values.size());
        for (const T& each : values)
            PropertyKind<T>::assign(array.emplace_back(nullptr), each);
    }
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
    static bool convert(simdjson::dom::element element, JSON& value) {
        value = JSONElement::detached(element);
        return true;
    }
};

} // namespace PerchAppLibrary
