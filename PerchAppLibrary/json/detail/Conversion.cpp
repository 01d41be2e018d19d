#include <PerchAppLibrary/json/detail/Conversion.hpp>

#include <PerchAppLibrary/json/detail/JSONElement.hpp>

#include <boost/algorithm/string/predicate.hpp>
#include <fast_float/fast_float.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;
using Kind = dom::element_type;

bool toInteger(double number, std::int64_t& value) {
    // 2^53. From here on, several integers round to one double.
    constexpr double limit = 9007199254740992.0;
    if (number <= -limit || number >= limit || std::trunc(number) != number)
        return false;
    value = static_cast<std::int64_t>(number);
    return true;
}

bool toInteger(std::string_view text, std::int64_t& value) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    value = number;
    return true;
}

bool toReal(double number, float& value) {
    const auto rounded = static_cast<float>(number);
    if (!std::isfinite(rounded) || (rounded != 0) != (number != 0))
        return false;
    value = rounded;
    return true;
}

bool toReal(double number, double& value) {
    if (!std::isfinite(number))
        return false;
    value = number;
    return true;
}

/// Returns whether the text begins like a number in JSON. Rejects "inf", "nan" and hexadecimal
/// digits without a leading decimal one.
bool beginsAsNumber(std::string_view text) {
    if (text.starts_with('-'))
        text.remove_prefix(1);
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

/// Returns whether a decimal number has a digit other than 0 before its exponent.
bool hasNonzeroDigit(std::string_view decimal) {
    return decimal.substr(0, decimal.find_first_of("eE")).find_first_of("123456789") !=
           std::string_view::npos;
}

template <class Real>
bool toReal(std::string_view text, Real& value) {
    double number = 0;
    const char* const end = text.data() + text.size();
    if (!beginsAsNumber(text))
        return false;
    const fast_float::from_chars_result result = fast_float::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    // Before version 6, fast_float returns infinity or zero for a number out of range, not an
    // error.
    return (number != 0 || !hasNonzeroDigit(text)) && toReal(number, value);
}

template <class Number>
void appendNumber(std::string& text, Number number) {
    std::array<char, 32> digits{};
    const std::to_chars_result result =
        std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), result.ptr);
}

template <class Real>
std::string shortestDecimalOf(Real number) {
    std::string text;
    appendNumber(text, number);
    if (text.find_first_not_of("-0123456789") == std::string::npos)
        text += ".0";
    return text;
}

bool toText(double number, std::string& value) {
    // 2^63. The parser rounds greater integers.
    constexpr double limit = 9223372036854775808.0;
    if (number <= -limit || number >= limit)
        return false;
    value = shortestDecimal(number);
    return true;
}

template <class Real>
bool convertReal(dom::element element, Real& value) {
    switch (element.type()) {
    case Kind::INT64:
    case Kind::UINT64:
    case Kind::DOUBLE:
        return toReal(element.get_double().value_unsafe(), value);
    case Kind::STRING:
        return toReal(element.get_string().value_unsafe(), value);
    case Kind::BOOL:
        value = element.get_bool().value_unsafe() ? Real(1) : Real(0);
        return true;
    default:
        return false;
    }
}

template <class Element>
bool convertArray(dom::element element, std::vector<Element>& value) {
    dom::array elements;
    if (element.get(elements) != simdjson::SUCCESS)
        return false;
    std::vector<Element> converted;
    converted.reserve(elements.size());
    for (const dom::element each : elements)
        if (!convertElement(each, converted.emplace_back()))
            return false;
    value = std::move(converted);
    return true;
}

} // namespace

std::string shortestDecimal(float number) { return shortestDecimalOf(number); }
std::string shortestDecimal(double number) { return shortestDecimalOf(number); }

bool convertOtherKind(dom::element element, std::int64_t& value) {
    switch (element.type()) {
    case Kind::DOUBLE:
        return toInteger(element.get_double().value_unsafe(), value);
    case Kind::STRING:
        return toInteger(element.get_string().value_unsafe(), value);
    case Kind::BOOL:
        value = element.get_bool().value_unsafe() ? 1 : 0;
        return true;
    default:
        return false;
    }
}

bool convertOtherKind(dom::element element, bool& value) {
    if (std::string_view text; element.get(text) == simdjson::SUCCESS) {
        const bool isTrue =
            text == "1" || boost::algorithm::iequals(text, "true", std::locale::classic());
        if (!isTrue && text != "0" &&
            !boost::algorithm::iequals(text, "false", std::locale::classic()))
            return false;
        value = isTrue;
        return true;
    }
    std::int64_t number = 0;
    if (!convertElement(element, number) || (number != 0 && number != 1))
        return false;
    value = number == 1;
    return true;
}

bool convertOtherKind(dom::element element, std::string& value) {
    switch (element.type()) {
    case Kind::INT64:
        value.clear();
        appendNumber(value, element.get_int64().value_unsafe());
        return true;
    case Kind::UINT64:
        value.clear();
        appendNumber(value, element.get_uint64().value_unsafe());
        return true;
    case Kind::DOUBLE:
        return toText(element.get_double().value_unsafe(), value);
    case Kind::BOOL:
        value = element.get_bool().value_unsafe() ? "true" : "false";
        return true;
    default:
        return false;
    }
}

bool convertElement(dom::element element, std::optional<std::string>& value) {
    if (element.is_null()) {
        value.reset();
        return true;
    }
    std::string text;
    if (!convertElement(element, text))
        return false;
    value = std::move(text);
    return true;
}

bool convertElement(dom::element element, float& value) { return convertReal(element, value); }
bool convertElement(dom::element element, double& value) { return convertReal(element, value); }
bool convertElement(dom::element element, std::vector<std::int64_t>& value) {
    return convertArray(element, value);
}
bool convertElement(dom::element element, std::vector<std::string>& value) {
    return convertArray(element, value);
}

bool convertElement(dom::element element, JSON& value) {
    value = JSONElement::detached(element);
    return true;
}

} // namespace PerchAppLibrary
