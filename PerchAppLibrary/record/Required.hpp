#pragma once

#include <utility>

namespace PerchAppLibrary {

/// A labelled argument that must be given: the type of each member of a record's aggregate of labels.
///
/// It has no default constructor, so `create({.id = 7})` compiles only for the aggregate whose labels are
/// exactly those given. A value converts when the conversion loses nothing (list initialisation): an int
/// fills an std::int64_t, a double does not.
template <class T>
struct Required {
    template <class U>
        requires requires(U&& given) { T{std::forward<U>(given)}; }
    Required(U&& given) // NOLINT(google-explicit-constructor): an argument is given as a plain value
        : value{std::forward<U>(given)} {}

    T value;
};

} // namespace PerchAppLibrary
