#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace PerchAppLibrary::text {

/// Hashes the bytes of a text.
struct BytesHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view bytes) const noexcept {
        return std::hash<std::string_view>()(bytes);
    }
};

/// A set of texts, compared by their bytes. Looks up a std::string_view without creating a string.
using TextSet = std::unordered_set<std::string, BytesHash, std::equal_to<>>;

} // namespace PerchAppLibrary::text
