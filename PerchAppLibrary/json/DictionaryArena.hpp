#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstddef>

namespace PerchAppLibrary {

/// Storage for one dictionary and all that it nests, which lie one behind the other while they are
/// put together: for as long as this object lives. It is given back when the last of them goes,
/// their copies included.
///
/// Afterwards whatever is added to the dictionary or to a copy lies on its own in the heap. So a
/// copy belongs to itself: other threads may change it, and what is erased from it is given back.
class DictionaryArena {
public:
    /// Bytes that are expected together; more are found as they are needed.
    explicit DictionaryArena(std::size_t size);
    DictionaryArena(const DictionaryArena&) = delete;
    DictionaryArena& operator=(const DictionaryArena&) = delete;
    ~DictionaryArena();

    /// For those who put the dictionary together.
    const Storage& get() const { return storage; }

private:
    class Resource;

    Resource* resource = nullptr; // of the storage
    Storage storage;
};

} // namespace PerchAppLibrary
