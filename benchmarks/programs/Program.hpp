#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// What the measured programs have in common. velmo-bench starts them, and reads what they print.

/// Returns the content of a file, with capacity for the padding that simdjson requires. Throws
/// std::runtime_error if the file cannot be read.
std::string readFile(const std::string& file);

/// Returns a copy of the text, with capacity for that padding.
std::string padded(const std::string& text);

/// Makes the heap keep freed memory. Otherwise each repetition of a load or an export takes new
/// pages from the system. On a virtual machine their cost varies tenfold with what ran before,
/// which hides the differences between the sides.
void keepFreedMemory();

/// Returns the number of bytes in the heap, and in separate mappings of the heap.
std::size_t heapInUse();

/// Returns the most memory that the process has had, in bytes.
double peakMemory();

/// Prints a line "NAME VALUE".
void print(const char* name, double value);

/// Calls `work()` once, and returns how many seconds it took.
template <class Work>
double secondsOf(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    std::forward<Work>(work)();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Calls `work()`, which returns how many seconds it took, at least three times and for 30
/// milliseconds. Returns the median.
template <class Work>
double medianSecondsOf(Work&& work) {
    std::vector<double> seconds;
    for (double total = 0; total < 0.03 || seconds.size() < 3; total += seconds.back())
        seconds.push_back(work());
    std::ranges::sort(seconds);
    return seconds[seconds.size() / 2];
}

/// Calls `run(mode, file)` with the arguments of a program, `MODE FILE [--kept-heap]`. Prints an
/// exception. Returns the exit code.
int runProgram(int argc, char** argv,
               void (*run)(const std::string& mode, const std::string& file));
