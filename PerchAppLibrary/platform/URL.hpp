#pragma once

#include <PerchAppLibrary/platform/URLFwd.hpp>

#include <boost/url/url.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace PerchAppLibrary::url {

/// The text with every byte of its UTF-8 form percent-encoded that may not stand in a URL fragment
/// as it is (RFC 3986, section 3.5: pchar / "/" / "?"; a "%" is encoded too). Ill-formed bytes are
/// encoded as U+FFFD.
std::string percentEncodedForFragment(std::string_view text);

/// The URI reference (RFC 3986, section 4.1: absolute or relative) that the text spells, or none.
std::optional<URL> parse(std::string_view text);

} // namespace PerchAppLibrary::url
