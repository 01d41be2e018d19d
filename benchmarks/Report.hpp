#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What one side of a comparison takes: the median of its repetitions.
struct Median {
    std::int64_t place; // in the order of registration, in which the library's own side is a
                        // comparison's first
    std::string work;
    std::int64_t fonts;
    std::string side;
    double milliseconds;
    double bytesPerFont; // of the heap, after the work; 0 where it is not measured
};

/// A table in Markdown: each side's time, and how many times the library's it takes.
std::string markdownOf(const std::vector<Median>& medians);

/// The same as a JSON array of objects.
std::string jsonOf(const std::vector<Median>& medians);

/// Charts in SVG of one work: fonts per second of each side, at the middle one of the sizes, and
/// time per font against the number of fonts.
std::string throughputChartOf(const std::vector<Median>& medians, const std::string& work);
std::string growthChartOf(const std::vector<Median>& medians, const std::string& work);
