#pragma once

/// An allocator for a whole program that can fail one allocation. Serves malloc and its relatives
/// and, through it, operator new; with a sanitizer, which has a malloc of its own, only operator
/// new.
namespace failing {

/// Sets the number of the allocation that fails after the next start(), counted from 1; zero for
/// none.
void arm(long number);

/// Starts to count allocations, if arm() was called before.
void start();

/// Like start(), but counts only operator new, for the rest of the process.
void startWithoutMalloc();

/// Ends the count. Returns whether an allocation has failed.
bool stop();

/// Returns the number of blocks of operator new that are not deleted. Some C libraries leak when an
/// allocation of their own fails; these blocks do not count.
long blocks();

} // namespace failing
