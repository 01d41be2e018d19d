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

/// Returns the value that assign() stores for the source.
template <class T>
Value toValue(T&& source)
    requires requires(Value& target) { assign(target, std::forward<T>(source)); }
{
    Value value;
    assign(value, std::forward<T>(source));
    return value;
}

/// Returns JSON text (RFC 8259) in UTF-8, without white space. Keys keep their order. Linear.
std::string toText(const Dictionary& dictionary);
std::string toText(const Value& value);

/// Returns the text of a JSON array of the dictionaries, in their order.
std::string toText(const std::vector<Dictionary>& dictionaries);

} // namespace PerchAppLibrary
