#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

#include <concepts>
#include <string>
#include <type_traits>
#include <utility>

namespace PerchAppLibrary {

/// The first member of each aggregate of labels. A braced list without labels does not initialise
/// it, so arguments need their labels.
struct ByNameOnly {
    explicit ByNameOnly() = default;
};

/// True if T{given} compiles for a `given` of type U, but does not hold it: no text or element is
/// nullptr, and a number is a size or a character code, unless the elements are numbers.
template <class T, class U>
inline constexpr bool isMistaken = false;
template <class T, class U>
    requires requires { typename T::value_type; }
inline constexpr bool isMistaken<T, U> =
    std::is_null_pointer_v<U> ||
    (std::is_arithmetic_v<U> &&
     (std::same_as<T, std::string> || !std::is_arithmetic_v<typename T::value_type>));

/// Satisfied if T{given...} holds what was given, all of it without narrowing.
template <class T, class... Given>
concept HoldsGiven = (!isMistaken<T, std::remove_cvref_t<Given>> && ...) &&
                     requires(Given&&... given) { T{std::forward<Given>(given)...}; };

/// A mandatory labelled argument: the type of each member of an aggregate of labels. Owns its
/// value.
///
/// It has no default constructor, so `create({.id = 7})` compiles only for the aggregate with
/// exactly these labels. A value converts if the conversion does not narrow (list initialisation):
/// an int converts to std::int64_t, a double does not. An array takes a braced list of its
/// elements, but not `{}`, which is also what the compiler gives a label that is left out.
template <class T>
struct Required {
    template <class U>
        requires HoldsGiven<T, U>
    // NOLINTNEXTLINE(google-explicit-constructor): a plain value
    Required(U&& given) : value{std::forward<U>(given)} {}

    /// Takes the elements of an array. An initializer_list would also accept a missing label.
    template <class First, class Second, class... Rest>
        requires HoldsGiven<T, First, Second, Rest...> && requires { typename T::value_type; } &&
                 (!std::same_as<T, std::string>)
    Required(First&& first, Second&& second, Rest&&... rest)
        : value{std::forward<First>(first), std::forward<Second>(second),
                std::forward<Rest>(rest)...} {}

    T value;
};

} // namespace PerchAppLibrary
