#pragma once

#include <string>
#include <string_view>

/// What becomes of a text that the fast reader refuses: either it is not a document, and the place
/// and the reason are found; or it is one whose numbers or escapes the reader cannot hold, and it
/// is spelled so that it can. For the sources of this library alone.
namespace PerchAppLibrary::fallback {

/// The document in a spelling that the reader holds, with the same structure: see JSON::parse().
/// Throws JSON::ParseError when the text is not a document.
std::string readableSpelling(std::string_view text);

} // namespace PerchAppLibrary::fallback
