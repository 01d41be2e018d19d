#include <PerchAppLibrary/json/detail/Equality.hpp>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <limits>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;
using Kind = dom::element_type;

template <std::integral Integer>
bool isInteger(double real, Integer integer) {
    // Both bounds are zero or a power of two, so a double represents them exactly.
    constexpr auto least = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr double end =
        2.0 * static_cast<double>(Integer{1} << (std::numeric_limits<Integer>::digits - 1));
    return real >= least && real < end && std::trunc(real) == real &&
           static_cast<Integer>(real) == integer;
}

template <class Left, class Right>
bool areEqualNumbers(Left left, Right right) {
    if constexpr (std::integral<Left> && std::integral<Right>)
        return std::cmp_equal(left, right);
    else if constexpr (std::integral<Left>)
        return isInteger(right, left);
    else if constexpr (std::integral<Right>)
        return isInteger(left, right);
    else
        return left == right;
}

template <class Number>
bool isNumber(dom::element element, Number number) {
    switch (element.type()) {
    case Kind::INT64:
        return areEqualNumbers(element.get_int64().value_unsafe(), number);
    case Kind::UINT64:
        return areEqualNumbers(element.get_uint64().value_unsafe(), number);
    case Kind::DOUBLE:
        return areEqualNumbers(element.get_double().value_unsafe(), number);
    default:
        return false;
    }
}

bool areEqual(dom::array left, dom::array right) {
    auto other = right.begin();
    for (const dom::element each : left) {
        if (other == right.end() || !PerchAppLibrary::areEqual(each, *other))
            return false;
        ++other;
    }
    return other == right.end();
}

struct Member {
    std::string_view key;
    std::size_t position;
    dom::element value;
};

/// Returns the members of an object, sorted by key. Each key comes once, with its last value.
std::vector<Member> membersByKey(dom::object object) {
    std::vector<Member> members;
    members.reserve(object.size());
    for (const auto& [key, value] : object)
        members.push_back({key, members.size(), value});
    // Among members with one key, the last comes first, and unique() keeps the first.
    std::ranges::sort(members, [](const Member& a, const Member& b) {
        return std::tie(a.key, b.position) < std::tie(b.key, a.position);
    });
    const auto haveOneKey = [](const Member& a, const Member& b) { return a.key == b.key; };
    // NOLINTNEXTLINE(modernize-use-ranges): it returns a subrange, which Clang 15 cannot compile
    members.erase(std::unique(members.begin(), members.end(), haveOneKey), members.end());
    return members;
}

bool areEqual(dom::object left, dom::object right) {
    return std::ranges::equal(
        membersByKey(left), membersByKey(right), [](const Member& a, const Member& b) {
            return a.key == b.key && PerchAppLibrary::areEqual(a.value, b.value);
        });
}

} // namespace

/// Calls itself once for each level. A document has at most JSON::maximumDepth levels.
bool areEqual(dom::element left, dom::element right) {
    switch (left.type()) {
    case Kind::INT64:
        return isNumber(right, left.get_int64().value_unsafe());
    case Kind::UINT64:
        return isNumber(right, left.get_uint64().value_unsafe());
    case Kind::DOUBLE:
        return isNumber(right, left.get_double().value_unsafe());
    case Kind::STRING:
        return right.is_string() &&
               left.get_string().value_unsafe() == right.get_string().value_unsafe();
    case Kind::BOOL:
        return right.is_bool() && left.get_bool().value_unsafe() == right.get_bool().value_unsafe();
    case Kind::ARRAY:
        return right.is_array() &&
               areEqual(left.get_array().value_unsafe(), right.get_array().value_unsafe());
    case Kind::OBJECT:
        return right.is_object() &&
               areEqual(left.get_object().value_unsafe(), right.get_object().value_unsafe());
    default: // Later versions of the parser have more kinds, which are off by default.
        return right.is_null();
    }
}

} // namespace PerchAppLibrary
