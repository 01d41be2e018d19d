#pragma once

#include "Input.hpp"

#include <string>
#include <string_view>
#include <vector>

/// Returns a JSON object some of whose members have the keys. Its values are of any kind: numbers
/// at the limits of their types, texts that convert to numbers, escapes, nested values.
std::string makeObject(Input& input, const std::vector<std::string_view>& keys);

/// Returns the bytes as they are if the first byte is ASCII, otherwise an array of such objects, in
/// which a value or byte may be wrong, or which may be cut off.
std::string makeDocument(Input& input, const std::vector<std::string_view>& keys);
