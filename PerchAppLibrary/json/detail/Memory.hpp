#pragma once

#include <cstddef>

namespace PerchAppLibrary::memory {

/// Asks the system to use large pages for this memory, so the first access costs one page fault for
/// each large page, not for every 4 KiB. Takes `size` bytes from `begin`. Does nothing if the
/// system has no large pages or the memory is too small for one.
void preferLargePages(void* begin, std::size_t size) noexcept;

} // namespace PerchAppLibrary::memory
