#pragma once

namespace PerchAppLibrary {

/// Requests what is at the address from memory, so that reading it soon takes less time. Takes any
/// address, valid or not.
inline void prefetch([[maybe_unused]] const void* address) noexcept {
#if defined(__GNUC__)
    __builtin_prefetch(address);
    asm volatile(""); // otherwise GCC drops calls of functions that only prefetch
#endif
}

} // namespace PerchAppLibrary
