#pragma once

namespace boost::json {
class array;
class object;
class storage_ptr;
class value;
} // namespace boost::json

/// Names of the dictionary types, for headers that only mention them. Whoever holds a Dictionary or a Value
/// includes PerchAppLibrary/Dictionary.hpp.
namespace PerchAppLibrary {

/// A dictionary from String to any value; keeps the order in which its keys were inserted.
using Dictionary = boost::json::object;

/// One value of a Dictionary; an absent optional is a null.
using Value = boost::json::value;

/// An array of values.
using ValueArray = boost::json::array;

/// Where the values of a Dictionary lie; by default, each on its own in the heap. A value that is moved to another storage is
/// copied.
using Storage = boost::json::storage_ptr;
class CommonStorage;

} // namespace PerchAppLibrary
