#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// Appends the content as a JSON string (RFC 8259, section 7), in quotation marks. Escapes
/// quotation marks, backslashes and control characters. Each ill-formed sequence of bytes becomes
/// U+FFFD. Appends what toText() returns for a Value of this content. Linear.
void appendJSONString(std::string& text, std::string_view content);

} // namespace PerchAppLibrary
