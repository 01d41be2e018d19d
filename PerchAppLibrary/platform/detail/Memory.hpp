#pragma once

#include <cstddef>

namespace PerchAppLibrary::memory {

/// Asks the system to back this part of a large allocation with large pages, so that touching it
/// for the first time costs one page fault for each of those rather than for every 4 KiB. A hint:
/// where the system has no such pages, or the allocation is too small for one, nothing happens.
void preferLargePages(void* begin, std::size_t size) noexcept;

} // namespace PerchAppLibrary::memory
