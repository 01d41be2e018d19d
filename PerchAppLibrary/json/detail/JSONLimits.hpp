#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <string_view>

namespace PerchAppLibrary {

/// Throws JSON::ParseError, with the position, if the text exceeds the limits. Takes any text. For
/// malformed text the result is unspecified. Linear; with default limits, the text is not read.
void checkLimits(std::string_view text, const JSON::Limits& limits);

} // namespace PerchAppLibrary
