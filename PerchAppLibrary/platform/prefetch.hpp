#pragma once

namespace PerchAppLibrary {

/// Starts loading the cache line at the address, so a read soon after takes less time. Takes any
/// address, valid or not.
inline void prefetch([[maybe_unused]] const void* address) noexcept {
#if defined(__GNUC__)
    __builtin_prefetch(address);
    asm volatile(""); // keeps GCC from dropping calls of functions that only prefetch
#endif
}

} // namespace PerchAppLibrary
