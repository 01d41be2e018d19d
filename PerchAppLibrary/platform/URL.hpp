#pragma once

#include <PerchAppLibrary/platform/URLFwd.hpp>

#include <boost/url/url.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace PerchAppLibrary::url {

/// Returns the text with each byte percent-encoded that a URL fragment cannot contain (RFC 3986,
/// section 3.5: all but pchar, "/" and "?"). Also encodes "%". Each ill-formed sequence of bytes is
/// encoded as U+FFFD. Linear.
std::string percentEncodedForFragment(std::string_view text);

/// Parses a URI reference, absolute or relative (RFC 3986, section 4.1). Returns nullopt for any
/// other text. Linear.
std::optional<URL> parse(std::string_view text);

} // namespace PerchAppLibrary::url
