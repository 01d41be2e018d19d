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

/// Returns a value for a Dictionary. Linear in the size of the source.
///
/// - An integer or a Boolean becomes an equal value.
/// - A float becomes its shortest decimal, so 0.1F becomes 0.1. A double becomes an equal value.
/// - NaN, the infinities and an empty std::optional become null.
/// - In a text, each ill-formed sequence of bytes becomes U+FFFD.
/// - A std::vector becomes an array of such values.
/// - A JSON becomes an equal value; a URL becomes its text, a PlatformFont its "name" and "size".
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
