#pragma once

#include <string>
#include <string_view>

/// Handles a text that the fast parser rejects. Either it is not a document, and an exception says
/// where and why. Or the parser cannot represent its numbers or escapes, and these are replaced.
namespace PerchAppLibrary::fallback {

/// Returns an equal document in which the fast parser can represent all numbers and escapes. See
/// JSON::parse() for their values. Throws JSON::ParseError if the text is not a document. Linear.
std::string readableSpelling(std::string_view text);

} // namespace PerchAppLibrary::fallback
