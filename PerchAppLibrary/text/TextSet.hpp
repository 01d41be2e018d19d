#pragma once

#include <functional>
#include <set>
#include <string>

namespace PerchAppLibrary::text {

/// A set of texts, compared by their bytes. Looks up a std::string_view without creating a string.
/// Not a hash table: whoever sends the texts could make all of them collide.
using TextSet = std::set<std::string, std::less<>>;

} // namespace PerchAppLibrary::text
