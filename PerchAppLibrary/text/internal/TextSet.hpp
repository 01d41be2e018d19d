#pragma once

#include <functional>
#include <set>
#include <string>

namespace PerchAppLibrary::text {

/// A set of texts, compared by their bytes. Looks up a std::string_view without creating a string.
/// It is not a hash table, since an attacker could choose texts that collide in one.
using TextSet = std::set<std::string, std::less<>>;

} // namespace PerchAppLibrary::text
