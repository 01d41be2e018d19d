#include <PerchAppLibrary/json/internal/DictionaryArena.hpp>

#include <boost/json/storage_ptr.hpp>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

namespace PerchAppLibrary {

/// Named boost::json::memory_resource before version 1.92, which takes that of Boost.Container.
using MemoryResource = std::remove_pointer_t<decltype(boost::json::storage_ptr().get())>;

/// Allocates from its blocks until close(), then from the heap.
class DictionaryArena::Resource final : public MemoryResource {
public:
    /// Stores its address in `self`, since make_shared_resource() does not return it.
    Resource(std::size_t size, Resource*& self) {
        addBlock(size);
        self = this;
    }

    void close() {
        isOpen = false;
        left = 0;
    }

private:
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size;

        bool contains(const void* piece) const {
            const std::less<> isBefore; // orders pointers into different blocks, which < does not
            return !isBefore(piece, bytes.get()) && isBefore(piece, bytes.get() + size);
        }
    };

    void addBlock(std::size_t size) {
        blocks.push_back({std::make_unique_for_overwrite<std::byte[]>(size), size});
        next = blocks.back().bytes.get();
        left = size;
    }

    void* do_allocate(std::size_t size, std::size_t alignment) override {
        if (void* const piece = takeFromBlock(size, alignment)) [[likely]]
            return piece;
        if (!isOpen)
            return heap->allocate(size, alignment);
        addBlock(std::max(size, 2 * blocks.back().size));
        return takeFromBlock(size, alignment);
    }

    /// Returns null if too little is left.
    void* takeFromBlock(std::size_t size, std::size_t alignment) {
        const std::size_t padding = -reinterpret_cast<std::uintptr_t>(next) & (alignment - 1);
        if (size > left || padding > left - size)
            return nullptr;
        left -= padding + size;
        std::byte* const piece = next + padding;
        next = piece + size;
        return piece;
    }

    void do_deallocate(void* piece, std::size_t size, std::size_t alignment) override {
        if (std::ranges::none_of(blocks, [&](const Block& block) { return block.contains(piece); }))
            heap->deallocate(piece, size, alignment);
    }

    bool do_is_equal(const MemoryResource& other) const noexcept override { return this == &other; }

    const Storage heap;
    std::vector<Block> blocks; // each has at least twice the size of the one before
    std::byte* next = nullptr; // begin of the unused part of the last block
    std::size_t left = 0;      // size of that part
    bool isOpen = true;
};

DictionaryArena::DictionaryArena(std::size_t size)
    : storage(boost::json::make_shared_resource<Resource>(size, resource)) {}

DictionaryArena::~DictionaryArena() { resource->close(); }

} // namespace PerchAppLibrary
