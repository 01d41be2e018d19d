#pragma once

#include <concepts>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// The first member of each aggregate of labels. A braced list without labels does not initialise
/// it, so arguments need their labels.
struct ByNameOnly {
    explicit ByNameOnly() = default;
};

/// A mandatory labelled argument: the type of each member of an aggregate of labels. Owns its
/// value.
///
/// It has no default constructor, so `create({.id = 7})` compiles only for the aggregate with
/// exactly these labels. A value converts if the conversion does not narrow (list initialisation):
/// an int converts to std::int64_t, a double does not. An array takes a braced list of its
/// elements.
template <class T>
struct Required {
    template <class U>
        requires requires(U&& given) { T{std::forward<U>(given)}; }
    // NOLINTNEXTLINE(google-explicit-constructor): an argument is a plain value
    Required(U&& given) : value{std::forward<U>(given)} {}

    /// Takes the elements of an array. An initializer_list would also accept a missing label.
    template <class First, class Second, class... Rest>
        requires requires(First&& first, Second&& second, Rest&&... rest) {
            typename T::value_type;
            requires !std::same_as<T, std::string>;
            T{std::forward<First>(first), std::forward<Second>(second),
              std::forward<Rest>(rest)...};
        }
    Required(First&& first, Second&& second, Rest&&... rest)
        : value{std::forward<First>(first), std::forward<Second>(second),
                std::forward<Rest>(rest)...} {}

    T value;
};

} // namespace PerchAppLibrary
