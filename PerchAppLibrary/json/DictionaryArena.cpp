#include <PerchAppLibrary/json/DictionaryArena.hpp>

#include <boost/json/storage_ptr.hpp>

#include <algorithm>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// Boost.JSON calls it memory_resource until version 1.92, where it is of Boost.Container.
using MemoryResource = std::remove_pointer_t<decltype(boost::json::storage_ptr().get())>;

/// Hands out pieces of its blocks while it is open, then pieces of the heap.
class DictionaryArena::Resource final : public MemoryResource {
public:
    /// Says where it stands, since make_shared_resource does not.
    Resource(std::size_t size, Resource*& place) {
        addBlock(size);
        place = this;
    }

    void close() { isOpen = false; }

private:
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size;

        bool holds(const void* piece) const {
            const std::less<> isBefore; // the order of pointers into several blocks
            return !isBefore(piece, bytes.get()) && isBefore(piece, bytes.get() + size);
        }
    };

    void addBlock(std::size_t size) {
        blocks.push_back({std::make_unique_for_overwrite<std::byte[]>(size), size});
        next = blocks.back().bytes.get();
        left = size;
    }

    void* do_allocate(std::size_t size, std::size_t alignment) override {
        if (!isOpen)
            return heap->allocate(size, alignment);
        if (void* const piece = takeFromBlock(size, alignment))
            return piece;
        addBlock(std::max(size, 2 * blocks.back().size));
        return takeFromBlock(size, alignment);
    }

    /// Null where too little is left.
    void* takeFromBlock(std::size_t size, std::size_t alignment) {
        if (std::align(alignment, size, next, left) == nullptr)
            return nullptr;
        left -= size;
        return std::exchange(next, static_cast<std::byte*>(next) + size);
    }

    void do_deallocate(void* piece, std::size_t size, std::size_t alignment) override {
        if (std::ranges::none_of(blocks, [&](const Block& block) { return block.holds(piece); }))
            heap->deallocate(piece, size, alignment);
    }

    bool do_is_equal(const MemoryResource& other) const noexcept override { return this == &other; }

    const Storage heap;
    std::vector<Block> blocks; // each twice the one before, or larger
    void* next = nullptr;      // the unused part of the last block
    std::size_t left = 0;
    bool isOpen = true;
};

DictionaryArena::DictionaryArena(std::size_t size)
    : storage(boost::json::make_shared_resource<Resource>(size, resource)) {}

DictionaryArena::~DictionaryArena() { resource->close(); }

} // namespace PerchAppLibrary
