#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// Appends the content as a JSON string (RFC 8259, section 7): in quotation marks, with these,
/// backslashes and control characters escaped, and every ill-formed sequence of bytes replaced by
/// U+FFFD. The same text as that of a Value.
void appendJSONString(std::string& text, std::string_view content);

} // namespace PerchAppLibrary
