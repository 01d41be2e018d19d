#pragma once

#include "Loaders.hpp"

#include <cstddef>
#include <string>
#include <vector>

/// What a client does with its fonts, as a developer would write it for plain structs.

/// Returns a hash of all fields.
std::size_t digestOf(const PlainFonts& fonts);

/// Marks the fonts with these identifiers as activated.
void activate(const PlainFonts& fonts, const std::vector<std::int64_t>& ids);

/// Returns a line for each font whose name contains the key in ASCII, case ignored: a star if it is
/// activated, and its name.
std::string textOfFound(const PlainFonts& fonts, const std::string& key);
