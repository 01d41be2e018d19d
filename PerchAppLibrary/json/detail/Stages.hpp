#pragma once

#include <simdjson.h>

namespace PerchAppLibrary {

/// True if this version of the parser was tested with code that runs its two stages through its
/// internal interface. Other versions run as a whole.
constexpr bool areStagesTested =
    simdjson::SIMDJSON_VERSION_MAJOR == 3 &&
    (simdjson::SIMDJSON_VERSION_MINOR == 0 || simdjson::SIMDJSON_VERSION_MINOR == 12);

} // namespace PerchAppLibrary
