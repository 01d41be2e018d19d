#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// The MD5 digest (RFC 1321) of the text's UTF-8 bytes, as 32 lower-case hexadecimal digits.
std::string md5(std::string_view text);

} // namespace PerchAppLibrary
