#include <PerchAppLibrary/json/detail/Memory.hpp>

#ifdef __linux__
#include <cstdint>

#include <sys/mman.h>
#endif

namespace PerchAppLibrary::memory {

void preferLargePages([[maybe_unused]] void* begin, [[maybe_unused]] std::size_t size) noexcept {
#ifdef __linux__
    constexpr std::uintptr_t largePage = std::uintptr_t{2} << 20;
    const auto address = reinterpret_cast<std::uintptr_t>(begin);
    const std::uintptr_t first = (address + largePage - 1) / largePage * largePage;
    const std::uintptr_t last = (address + size) / largePage * largePage;
    if (first < last)
        madvise(static_cast<char*>(begin) + (first - address), last - first, MADV_HUGEPAGE);
#endif
}

} // namespace PerchAppLibrary::memory
