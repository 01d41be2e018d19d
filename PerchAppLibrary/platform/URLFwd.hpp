#pragma once

namespace boost::urls {
class url;
} // namespace boost::urls

namespace PerchAppLibrary {

/// A URI reference by RFC 3986. Whoever holds one includes PerchAppLibrary/platform/URL.hpp.
using URL = boost::urls::url;

} // namespace PerchAppLibrary
