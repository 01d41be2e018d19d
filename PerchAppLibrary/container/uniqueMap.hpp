#pragma once

#include <PerchAppLibrary/fatalError.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// Returns a map of the pairs. Ends the process (fatalError) if a key comes twice, since a table
/// with two rows for one key is a programming error.
template <class T>
std::map<std::string, T> uniqueMap(std::vector<std::pair<const std::string, T>> pairs) {
    std::map<std::string, T> map;
    for (auto& [key, value] : pairs)
        if (!map.emplace(key, std::move(value)).second)
            fatalError("The key \"" + key + "\" comes twice in a table");
    return map;
}

} // namespace PerchAppLibrary
