#pragma once

#include <string_view>

namespace PerchAppLibrary {

/// Writes the message, as one line, to standard error and aborts. For programming errors only: a
/// function that may call it says so in its comment. Parsing, filling, queries and exports never
/// call it. The preview locations of a FontItem call it if the font's file name is too short or its
/// address is no valid URL, which a document can cause. Call its stem() or findRemotePreviewFile()
/// first.
[[noreturn]] void fatalError(std::string_view message) noexcept;

} // namespace PerchAppLibrary
