#include <PerchAppLibrary/json/detail/Equality.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <limits>
#include <map>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

template <std::integral Integer>
bool isInteger(double real, Integer integer) {
    // Both bounds are zero or a power of two, so a double represents them exactly.
    constexpr auto least = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr double end =
        2.0 * static_cast<double>(Integer{1} << (std::numeric_limits<Integer>::digits - 1));
    return real >= least && real < end && std::trunc(real) == real &&
           static_cast<Integer>(real) == integer;
}

struct AreEqualScalars {
    template <class Left, class Right>
    bool operator()(const Left& left, const Right& right) const {
        constexpr bool isBoolean = std::same_as<Left, bool> || std::same_as<Right, bool>;
        if constexpr (std::same_as<Left, Right>)
            return left == right;
        else if constexpr (isBoolean || !std::is_arithmetic_v<Left> || !std::is_arithmetic_v<Right>)
            return false;
        else if constexpr (std::integral<Left> && std::integral<Right>)
            return std::cmp_equal(left, right);
        else if constexpr (std::integral<Left>)
            return isInteger(right, left);
        else
            return isInteger(left, right);
    }
};

bool areEqual(dom::array left, dom::array right) {
    auto other = right.begin();
    for (const dom::element each : left) {
        if (other == right.end() || !PerchAppLibrary::areEqual(each, *other))
            return false;
        ++other;
    }
    return other == right.end();
}

/// Returns the members of an object by key, each with the last value under its key.
std::map<std::string_view, dom::element> lastMembers(dom::object object) {
    std::map<std::string_view, dom::element> members;
    for (const auto& [key, value] : object)
        members.insert_or_assign(key, value);
    return members;
}

bool areEqual(dom::object left, dom::object right) {
    return std::ranges::equal(lastMembers(left), lastMembers(right),
                              [](const auto& member, const auto& other) {
                                  return member.first == other.first &&
                                         PerchAppLibrary::areEqual(member.second, other.second);
                              });
}

} // namespace

/// Calls itself once for each level. A document has at most JSON::maximumDepth levels.
bool areEqual(dom::element left, dom::element right) {
    if (left.is_array())
        return right.is_array() &&
               areEqual(left.get_array().value_unsafe(), right.get_array().value_unsafe());
    if (left.is_object())
        return right.is_object() &&
               areEqual(left.get_object().value_unsafe(), right.get_object().value_unsafe());
    return std::visit(AreEqualScalars(), scalarOf(left), scalarOf(right));
}

} // namespace PerchAppLibrary
