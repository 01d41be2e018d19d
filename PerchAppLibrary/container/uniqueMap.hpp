#pragma once

#include <PerchAppLibrary/fatalError.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// A map of the pairs. Ends the process (fatalError) when a key comes twice: a table with two rows
/// for one key is wrong, and neither row may quietly go.
template <class T>
std::map<std::string, T> uniqueMap(std::vector<std::pair<const std::string, T>> pairs) {
    std::map<std::string, T> map;
    for (auto& [key, value] : pairs)
        if (!map.emplace(key, std::move(value)).second)
            fatalError("The key \"" + key + "\" comes twice in a table");
    return map;
}

} // namespace PerchAppLibrary
