#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>

#include <simdjson.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// The conversions of JSON::as() and of filling, for elements of the parser. A further type of
/// properties has a convertScalar() or convertElement() here. Each of these functions stores its
/// result in `value` and returns true, or leaves `value` unchanged and returns false.
namespace PerchAppLibrary {

/// Returns the shortest decimal that reads back as the number, with a point or an exponent: "22.0",
/// "1e+15". Requires a finite number.
template <std::floating_point Real>
std::string shortestDecimal(Real number);

/// A null, Boolean, number or text. Of an array or object, a monostate.
using Scalar = std::variant<std::monostate, std::nullptr_t, bool, std::int64_t, std::uint64_t,
                            double, std::string_view>;

/// The text of the result lives as long as the document.
Scalar scalarOf(simdjson::dom::element element);

JSON::Type typeOf(simdjson::dom::element element) noexcept;

/// Returns the longest number (RFC 8259, section 6) at the begin of the text, or nothing if there
/// is none. Requires that the text ends with another character.
std::string_view leadingNumber(const char* text) noexcept;

/// Returns the number that the parser reads from the text. Returns nullopt for a number that it
/// cannot represent. Requires a number of JSON.
std::optional<Scalar> scalarOfNumber(std::string_view number);

bool convertScalar(const Scalar& scalar, std::int64_t& value);
bool convertScalar(const Scalar& scalar, bool& value);
bool convertScalar(const Scalar& scalar, float& value);
bool convertScalar(const Scalar& scalar, double& value);
bool convertScalar(const Scalar& scalar, std::string& value);

/// A null converts to nullopt.
template <class T>
bool convertScalar(const Scalar& scalar, std::optional<T>& value) {
    T given{};
    const bool isNull = std::holds_alternative<std::nullptr_t>(scalar);
    if (!isNull && !convertScalar(scalar, given))
        return false;
    value = isNull ? std::nullopt : std::optional<T>(std::move(given));
    return true;
}

template <class T>
concept ConvertsFromScalar =
    requires(const Scalar& scalar, T& value) { convertScalar(scalar, value); };

template <ConvertsFromScalar T>
bool convertElement(simdjson::dom::element element, T& value) {
    if constexpr (std::integral<T>) // the usual case, in line
        if (element.get(value) == simdjson::SUCCESS)
            return true;
    return convertScalar(scalarOf(element), value);
}

inline bool convertElement(simdjson::dom::element element, JSON& value) {
    value = JSONElement::detached(element);
    return true;
}

/// An array converts if each element does.
template <class T>
bool convertElement(simdjson::dom::element element, std::vector<T>& value) {
    simdjson::dom::array elements;
    if (element.get(elements) != simdjson::SUCCESS)
        return false;
    std::vector<T> converted;
    converted.reserve(elements.size());
    for (const simdjson::dom::element each : elements)
        if (!convertElement(each, converted.emplace_back()))
            return false;
    value = std::move(converted);
    return true;
}

} // namespace PerchAppLibrary
