#pragma once

namespace boost::urls {
class url;
} // namespace boost::urls

namespace PerchAppLibrary {

/// A URI reference by RFC 3986. To use one, include PerchAppLibrary/platform/URL.hpp, which
/// completes it.
using URL = boost::urls::url;

} // namespace PerchAppLibrary
