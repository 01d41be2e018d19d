#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace boost::json {
class array;
class object;
class storage_ptr;
class value;
} // namespace boost::json

/// Names of the dictionary types, for headers that only mention them. To use a Dictionary or a
/// Value, include PerchAppLibrary/json/Dictionary.hpp, which completes them.
namespace PerchAppLibrary {

/// A map from texts to values. Keeps the order in which its keys were inserted.
using Dictionary = boost::json::object;

/// One value of a Dictionary: a null, Boolean, number, text, array or Dictionary.
using Value = boost::json::value;

/// An array of values.
using ValueArray = boost::json::array;

/// The memory that a Dictionary and its values are allocated from; by default, the heap. Moving a
/// value to another storage copies it.
using Storage = boost::json::storage_ptr;
class DictionaryArena; // of this library

class JSON; // completed by PerchAppLibrary/json/JSON.hpp

/// @cond what toValue() and the schema of a record use
/// Sets a value of a Dictionary to toValue(source), in the value's storage.
void assign(Value& target, std::nullptr_t);
void assign(Value& target, std::int64_t number);
void assign(Value& target, std::uint64_t number);
void assign(Value& target, bool flag);
void assign(Value& target, float number);
void assign(Value& target, double number);
void assign(Value& target, std::string_view text);
void assign(Value& target, const std::string& text);
void assign(Value& target, const char* text) = delete; // would convert to bool
void assign(Value& target, const JSON& json);
void assign(Value& target, Dictionary&& dictionary);

/// Sets a value to an empty array with room for this many elements.
void assignArray(Value& target, std::size_t size);

/// Appends a null to an array, and returns it. Requires that the value is an array.
Value& append(Value& array);

template <class T>
void assign(Value& target, const std::vector<T>& elements)
    requires requires(const T& each) { assign(target, each); }
{
    assignArray(target, elements.size());
    for (const T& each : elements)
        assign(append(target), each);
}

template <class T>
void assign(Value& target, const std::optional<T>& source)
    requires requires { assign(target, *source); }
{
    source ? assign(target, *source) : assign(target, nullptr);
}
/// @endcond

} // namespace PerchAppLibrary
