#pragma once

#include <concepts>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// First member of each aggregate of labels. No braced list without labels initialises it, so
/// arguments cannot be given by their order.
struct ByNameOnly {
    explicit ByNameOnly() = default;
};

/// A labelled argument that must be given: the type of each member of an aggregate of labels.
///
/// It has no default constructor, so `create({.id = 7})` compiles only for the aggregate with
/// exactly these labels. A value converts if the conversion loses nothing (list initialisation): an
/// int fills an std::int64_t, a double does not. An array takes a braced list of its elements.
template <class T>
struct Required {
    template <class U>
        requires requires(U&& given) { T{std::forward<U>(given)}; }
    Required(
        U&& given) // NOLINT(google-explicit-constructor): an argument is given as a plain value
        : value{std::forward<U>(given)} {}

    /// Takes the elements of an array. Not an initializer_list, which a missing label would fit.
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
