#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/storage_ptr.hpp>
#include <boost/json/value.hpp>

#include <string>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// Returns what assign() makes of the source.
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
