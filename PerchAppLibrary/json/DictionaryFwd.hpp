#pragma once

#include <PerchAppLibrary/platform/URLFwd.hpp>

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

/// A dictionary from String to any value; keeps the order in which its keys were inserted.
using Dictionary = boost::json::object;

/// One value of a Dictionary; an absent optional is a null.
using Value = boost::json::value;

/// An array of values.
using ValueArray = boost::json::array;

/// Where the values of a Dictionary lie; by default, each on its own in the heap. A value that is
/// moved to another storage is copied.
using Storage = boost::json::storage_ptr;
class DictionaryArena; // completed by PerchAppLibrary/json/DictionaryArena.hpp

class JSON;         // completed by PerchAppLibrary/json/JSON.hpp
class PlatformFont; // completed by PerchAppLibrary/platform/PlatformFont.hpp

/// Sets a value of a Dictionary, in its storage: integers and Booleans as such, a float as the
/// number that reads back to the same float (null if it is not finite), text with every ill-formed
/// sequence of bytes replaced by U+FFFD, an absent optional as null, a URL as its text, a font as
/// {"name", "size"}, a JSON as it is.
void assign(Value& place, std::int64_t number);
void assign(Value& place, bool flag);
void assign(Value& place, float number);
void assign(Value& place, std::string_view text);
void assign(Value& place, const std::string& text);
void assign(Value& place, const char* text) = delete; // would be taken for a Boolean
void assign(Value& place, const std::optional<std::string>& text);
void assign(Value& place, const std::vector<std::int64_t>& numbers);
void assign(Value& place, const std::optional<std::vector<std::int64_t>>& numbers);
void assign(Value& place, const std::vector<std::string>& texts);
void assign(Value& place, const URL& url);
void assign(Value& place, const PlatformFont& font);
void assign(Value& place, const JSON& json);
void assign(Value& place, Dictionary&& dictionary);

} // namespace PerchAppLibrary
