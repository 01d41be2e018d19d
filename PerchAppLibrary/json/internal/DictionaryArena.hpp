#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstddef>

namespace PerchAppLibrary {

/// An arena for one dictionary and all values in it. While this object lives, they are allocated
/// one behind the other. The arena is freed with the last dictionary or value that uses it, copies
/// included.
///
/// After this object is destroyed, allocations come from the heap. So another thread may then
/// change a copy of the dictionary, and values erased from it are freed.
class DictionaryArena {
public:
    /// Takes the expected number of bytes. The arena grows if it needs more.
    explicit DictionaryArena(std::size_t size);
    DictionaryArena(const DictionaryArena&) = delete;
    DictionaryArena& operator=(const DictionaryArena&) = delete;
    ~DictionaryArena();

    /// Returns the storage with which to construct the dictionary.
    const Storage& get() const { return storage; }

private:
    class Resource;

    Resource* resource = nullptr; // owned by `storage`
    Storage storage;
};

} // namespace PerchAppLibrary
