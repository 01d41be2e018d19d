#pragma once

namespace boost::urls {
class url;
} // namespace boost::urls

namespace PerchAppLibrary {

/// A URI reference (RFC 3986). To use one, include PerchAppLibrary/platform/URL.hpp.
using URL = boost::urls::url;

} // namespace PerchAppLibrary
