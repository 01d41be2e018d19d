#pragma once

namespace PerchAppLibrary {

/// Asks the memory for what is read soon; takes any address, and changes nothing but the time that the reading takes.
inline void prefetch([[maybe_unused]] const void* address) noexcept {
#if defined(__GNUC__)
    __builtin_prefetch(address);
    asm volatile(""); // or GCC drops the call of a function that does nothing but ask
#endif
}

} // namespace PerchAppLibrary
