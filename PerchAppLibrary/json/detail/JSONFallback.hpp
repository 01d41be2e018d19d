#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Handles a text that the fast parser rejects. Either it is not a document, and an exception says
/// where and why. Or the parser cannot represent its numbers or escapes, and these are replaced.
namespace PerchAppLibrary::fallback {

/// Returns an equal document in which the fast parser can represent all numbers and escapes. See
/// JSON::parse() for their values. Throws JSON::ParseError if the text is not a document. Linear.
std::string normalizedForParser(std::string_view text);

/// Throws JSON::ParseError with the position of the offset in the text.
[[noreturn]] void fail(std::string_view text, std::size_t offset, std::string_view reason);

/// Returns the reason of an error for a text that nests deeper than `depth`.
std::string tooDeep(std::size_t depth);

/// Returns the offset behind the string that begins at this offset, or the end of the text if the
/// string is not closed.
std::size_t endOfString(std::string_view text, std::size_t at);

} // namespace PerchAppLibrary::fallback
