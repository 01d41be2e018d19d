#include <PerchAppLibrary/json/detail/Conversion.hpp>

#include <boost/algorithm/string/predicate.hpp>
#include <fast_float/fast_float.h>

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <locale>
#include <type_traits>

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

template <class Real>
bool toReal(double number, Real& value) {
    const auto rounded = static_cast<Real>(number);
    if (!std::isfinite(rounded) || (rounded != 0) != (number != 0))
        return false;
    value = rounded;
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

bool toText(double number, std::string& value) {
    // 2^63. The parser rounds greater integers.
    constexpr double limit = 9223372036854775808.0;
    if (number <= -limit || number >= limit)
        return false;
    std::array<char, 352> digits{}; // for "-0.", 323 zeros and 17 digits
    const std::to_chars_result result = std::to_chars(digits.data(), digits.data() + digits.size(),
                                                      number, std::chars_format::fixed);
    value.assign(digits.data(), result.ptr);
    if (value.find('.') == std::string::npos)
        value += ".0";
    return true;
}

template <class Real>
bool convertReal(const Scalar& scalar, Real& value) {
    return std::visit(
        [&value]<class T>(const T& given) {
            if constexpr (std::same_as<T, bool>) {
                value = given ? Real(1) : Real(0);
                return true;
            } else if constexpr (std::is_arithmetic_v<T>) {
                return toReal(static_cast<double>(given), value);
            } else if constexpr (std::same_as<T, std::string_view>) {
                return toReal(given, value);
            } else {
                return false;
            }
        },
        scalar);
}

const char* endOfDigits(const char* from) noexcept {
    while (*from >= '0' && *from <= '9')
        ++from;
    return from;
}

} // namespace

template <std::floating_point Real>
std::string shortestDecimal(Real number) {
    std::string text;
    appendNumber(text, number);
    if (text.find_first_not_of("-0123456789") == std::string::npos)
        text += ".0";
    return text;
}

template std::string shortestDecimal(float);
template std::string shortestDecimal(double);

Scalar scalarOf(dom::element element) {
    switch (element.type()) {
    case Kind::INT64:
        return element.get_int64().value_unsafe();
    case Kind::UINT64:
        return element.get_uint64().value_unsafe();
    case Kind::DOUBLE:
        return element.get_double().value_unsafe();
    case Kind::STRING:
        return element.get_string().value_unsafe();
    case Kind::BOOL:
        return element.get_bool().value_unsafe();
    case Kind::NULL_VALUE:
        return nullptr;
    default:
        return std::monostate();
    }
}

JSON::Type typeOf(dom::element element) noexcept {
    switch (element.type()) {
    case Kind::INT64:
    case Kind::UINT64:
    case Kind::DOUBLE:
        return JSON::Type::number;
    case Kind::STRING:
        return JSON::Type::string;
    case Kind::BOOL:
        return JSON::Type::boolean;
    case Kind::ARRAY:
        return JSON::Type::array;
    case Kind::OBJECT:
        return JSON::Type::dictionary;
    case Kind::NULL_VALUE:
        return JSON::Type::null;
    default: // Later versions of the parser have more kinds, which are off by default.
        return JSON::Type::unknown;
    }
}

std::string_view leadingNumber(const char* text) noexcept {
    const char* digits = text + (*text == '-' ? 1 : 0);
    const char* end = endOfDigits(digits);
    if (end == digits || (*digits == '0' && end - digits > 1))
        return {};
    if (*end == '.') {
        digits = end + 1;
        end = endOfDigits(digits);
        if (end == digits)
            return {};
    }
    if (*end == 'e' || *end == 'E') {
        digits = end + (end[1] == '+' || end[1] == '-' ? 2 : 1);
        end = endOfDigits(digits);
        if (end == digits)
            return {};
    }
    return {text, end};
}

std::optional<Scalar> scalarOfNumber(std::string_view number) {
    const char* const end = number.data() + number.size();
    if (number.find_first_of(".eE") == std::string_view::npos) {
        std::int64_t integer = 0;
        if (std::from_chars(number.data(), end, integer).ec == std::errc())
            return integer;
        std::uint64_t greater = 0;
        if (std::from_chars(number.data(), end, greater).ec == std::errc())
            return greater;
        return std::nullopt;
    }
    double real = 0;
    fast_float::from_chars(number.data(), end, real);
    return std::isfinite(real) ? std::optional<Scalar>(real) : std::nullopt;
}

bool convertScalar(const Scalar& scalar, std::int64_t& value) {
    if (const auto* const integer = std::get_if<std::int64_t>(&scalar)) {
        value = *integer;
        return true;
    }
    if (const auto* const flag = std::get_if<bool>(&scalar)) {
        value = *flag ? 1 : 0;
        return true;
    }
    if (const auto* const real = std::get_if<double>(&scalar))
        return toInteger(*real, value);
    const auto* const text = std::get_if<std::string_view>(&scalar);
    return text != nullptr && toInteger(*text, value);
}

bool convertScalar(const Scalar& scalar, bool& value) {
    if (const auto* const flag = std::get_if<bool>(&scalar)) {
        value = *flag;
        return true;
    }
    if (const auto* const text = std::get_if<std::string_view>(&scalar)) {
        const bool isTrue =
            *text == "1" || boost::algorithm::iequals(*text, "true", std::locale::classic());
        if (!isTrue && *text != "0" &&
            !boost::algorithm::iequals(*text, "false", std::locale::classic()))
            return false;
        value = isTrue;
        return true;
    }
    std::int64_t number = 0;
    if (!convertScalar(scalar, number) || (number != 0 && number != 1))
        return false;
    value = number == 1;
    return true;
}

bool convertScalar(const Scalar& scalar, std::string& value) {
    return std::visit(
        [&value]<class T>(const T& given) {
            if constexpr (std::same_as<T, std::string_view>) {
                value.assign(given);
                return true;
            } else if constexpr (std::same_as<T, bool>) {
                value = given ? "true" : "false";
                return true;
            } else if constexpr (std::integral<T>) {
                value.clear();
                appendNumber(value, given);
                return true;
            } else if constexpr (std::same_as<T, double>) {
                return toText(given, value);
            } else {
                return false;
            }
        },
        scalar);
}

bool convertScalar(const Scalar& scalar, float& value) { return convertReal(scalar, value); }
bool convertScalar(const Scalar& scalar, double& value) { return convertReal(scalar, value); }

} // namespace PerchAppLibrary
