#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// Returns the MD5 digest (RFC 1321) of the text's bytes, as 32 lower-case hexadecimal digits.
/// Linear.
std::string md5(std::string_view text);

} // namespace PerchAppLibrary
