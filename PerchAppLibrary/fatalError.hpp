#pragma once

#include <string_view>

namespace PerchAppLibrary {

/// Writes the message as one line to standard error and aborts. For programming errors alone: a function that
/// can end here says so in its comment. No document, no text and no missing file leads here.
[[noreturn]] void fatalError(std::string_view message) noexcept;

} // namespace PerchAppLibrary
