#pragma once

#include <string_view>

namespace PerchAppLibrary {

/// Writes the message as one line to standard error and aborts. For programming errors alone; a
/// function that can end here says so in its comment. Parsing, filling, queries and exports never
/// do. The preview locations of a FontItem do if its file name or address, which a document may
/// have set, is too short: its stem() and findRemotePreviewFile() tell before.
[[noreturn]] void fatalError(std::string_view message) noexcept;

} // namespace PerchAppLibrary
