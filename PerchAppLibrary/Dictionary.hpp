#pragma once

#include <PerchAppLibrary/DictionaryFwd.hpp>
#include <PerchAppLibrary/platform/URLFwd.hpp>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/storage_ptr.hpp>
#include <boost/json/value.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

class JSON;
class PlatformFont;

/// Puts the value of a property in its place in a Dictionary, in the Dictionary's storage: integers and Booleans as such, a float as
/// the number that reads back to the same float (null when it is not finite), text with every ill-formed sequence of
/// bytes replaced by U+FFFD, an absent optional as null, a URL as its text, a font as {"name", "size"}, a JSON as it is.
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
void assign(Value& place, Dictionary dictionary);

/// The same as a value of its own.
template <class T>
Value toValue(T&& source)
    requires requires(Value& place) { assign(place, std::forward<T>(source)); }
{
    Value value;
    assign(value, std::forward<T>(source));
    return value;
}

/// JSON text (RFC 8259) in UTF-8, without white space; keys keep their order.
std::string toText(const Dictionary& dictionary);
std::string toText(const Value& value);

/// A JSON array of the dictionaries, in order.
std::string toText(const std::vector<Dictionary>& dictionaries);

} // namespace PerchAppLibrary
