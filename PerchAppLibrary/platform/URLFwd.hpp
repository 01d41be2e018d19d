#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

namespace boost::urls {
class url;
} // namespace boost::urls

namespace PerchAppLibrary {

/// A URI reference (RFC 3986). To use one, include PerchAppLibrary/platform/URL.hpp.
using URL = boost::urls::url;

/// @cond what toValue() uses
/// Sets a value of a Dictionary to the text of the URL.
void assign(Value& target, const URL& url);
/// @endcond

} // namespace PerchAppLibrary
