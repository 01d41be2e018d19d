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
#include <vector>

namespace PerchAppLibrary {

class JSON;
class PlatformFont;

/// The value of a property as it stands in a Dictionary: integers and Booleans as such, a float as the number
/// that reads back to the same float (null when it is not finite), text with every ill-formed sequence of
/// bytes replaced by U+FFFD, an absent optional as null, a URL as its text, a font as {"name", "size"}, a JSON as it is.
Value toValue(std::int64_t number);
Value toValue(bool flag);
Value toValue(float number);
Value toValue(std::string_view text, const Storage& storage = {});
Value toValue(const std::string& text, const Storage& storage = {});
Value toValue(const char* text) = delete; // would be taken for a Boolean
Value toValue(const std::optional<std::string>& text, const Storage& storage = {});
Value toValue(const std::vector<std::int64_t>& numbers, const Storage& storage = {});
Value toValue(const std::optional<std::vector<std::int64_t>>& numbers);
Value toValue(const std::vector<std::string>& texts, const Storage& storage = {});
Value toValue(const URL& url);
Value toValue(const PlatformFont& font);
Value toValue(const JSON& json);
Value toValue(Dictionary dictionary);

/// JSON text (RFC 8259) in UTF-8, without white space; keys keep their order.
std::string toText(const Dictionary& dictionary);
std::string toText(const Value& value);

/// A JSON array of the dictionaries, in order.
std::string toText(const std::vector<Dictionary>& dictionaries);

} // namespace PerchAppLibrary
