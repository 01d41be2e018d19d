#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <simdjson.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The conversions of JSON::as() and of filling, for elements of the parser. Each function stores
/// its result in `value` and returns true, or leaves `value` unchanged and returns false.
namespace PerchAppLibrary {

/// Returns the shortest decimal that reads back as the number, with ".0" if it is integral.
/// Requires a finite number.
std::string shortestDecimal(float number);
std::string shortestDecimal(double number);

/// Convert an element of another kind than the type of `value`.
bool convertOtherKind(simdjson::dom::element element, std::int64_t& value);
bool convertOtherKind(simdjson::dom::element element, bool& value);
bool convertOtherKind(simdjson::dom::element element, std::string& value);

inline bool convertElement(simdjson::dom::element element, std::int64_t& value) {
    return element.get(value) == simdjson::SUCCESS || convertOtherKind(element, value);
}

inline bool convertElement(simdjson::dom::element element, bool& value) {
    return element.get(value) == simdjson::SUCCESS || convertOtherKind(element, value);
}

inline bool convertElement(simdjson::dom::element element, std::string& value) {
    std::string_view text;
    if (element.get(text) != simdjson::SUCCESS)
        return convertOtherKind(element, value);
    value.assign(text);
    return true;
}

bool convertElement(simdjson::dom::element element, float& value);
bool convertElement(simdjson::dom::element element, double& value);
bool convertElement(simdjson::dom::element element, std::optional<std::string>& value);
bool convertElement(simdjson::dom::element element, std::vector<std::int64_t>& value);
bool convertElement(simdjson::dom::element element, std::vector<std::string>& value);
bool convertElement(simdjson::dom::element element, JSON& value);

} // namespace PerchAppLibrary
