#include "FailingAllocator.hpp"

#include <cstdlib>
#include <new>
#include <utility>

#if defined(VELMO_SANITIZER) || !defined(__GLIBC__)
#define KEEPS_MALLOC true // the sanitizer has its own
#else
#define KEEPS_MALLOC false
#endif

namespace {

long armed = 0; // what start() takes
long left = 0;  // allocations up to the one that fails; zero for none
bool hasFailed = false;
bool failsInMalloc = !KEEPS_MALLOC;
long blockCount = 0; // of operator new

bool failsNow(bool isInMalloc) {
    if (isInMalloc != failsInMalloc || left == 0 || --left > 0)
        return false;
    return hasFailed = true;
}

} // namespace

void failing::arm(long number) {
    armed = number;
    left = 0;
    hasFailed = false;
}

void failing::start() { left = std::exchange(armed, 0); }

void failing::startWithoutMalloc() {
    failsInMalloc = false;
    start();
}

bool failing::stop() {
    armed = left = 0;
    return std::exchange(hasFailed, false);
}

long failing::blocks() { return blockCount; }

// The standard library defines the other forms by these, and a sanitizer has forms of its own.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* const block = failsNow(false) ? nullptr : std::malloc(size == 0 ? 1 : size);
    blockCount += block == nullptr ? 0 : 1;
    return block;
}
void* operator new(std::size_t size) {
    if (void* const block = operator new(size, std::nothrow))
        return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    blockCount -= block == nullptr ? 0 : 1;
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { operator delete(block); }

#if !KEEPS_MALLOC
// The C library's own functions have these second names. A program may define the first ones.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
void* __libc_malloc(std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) { return failsNow(true) ? nullptr : __libc_malloc(size); }
void* realloc(void* block, std::size_t size) {
    return failsNow(true) ? nullptr : __libc_realloc(block, size);
}
// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
}
#endif
