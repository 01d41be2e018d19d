#pragma once

#include <simdjson.h>

namespace PerchAppLibrary {

/// Returns whether two elements are equal, as operator== of JSON defines it.
bool areEqual(simdjson::dom::element left, simdjson::dom::element right);

} // namespace PerchAppLibrary
