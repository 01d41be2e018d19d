#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <string_view>

namespace PerchAppLibrary {

/// Throws JSON::ParseError, with the position, if the text exceeds the limits. Takes any text; what
/// it finds in one that is no document means nothing. Linear; default limits need no look at the
/// text.
void checkLimits(std::string_view text, const JSON::Limits& limits);

} // namespace PerchAppLibrary
