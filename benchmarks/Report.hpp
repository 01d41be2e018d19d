#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The result of one side of a comparison: the median of its repetitions.
struct Median {
    std::int64_t index; // in the order of registration; the library is first in a comparison
    std::string work;
    std::int64_t fonts;
    std::string side;
    double milliseconds;
    double bytesPerFont;  // heap after the work, or 0 if not measured
    double peakMegabytes; // the most memory of a whole process, or 0 if not measured
};

/// Returns a Markdown table: the time of each side, and its ratio to the time of the library.
std::string markdownOf(const std::vector<Median>& medians);

/// Returns the medians as a JSON array of objects.
std::string jsonOf(const std::vector<Median>& medians);
