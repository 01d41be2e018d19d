#pragma once

#include <simdjson.h>

namespace PerchAppLibrary {

/// Whether two elements hold equal values: see operator== of JSON.
bool areEqual(simdjson::dom::element left, simdjson::dom::element right);

} // namespace PerchAppLibrary
