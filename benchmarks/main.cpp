// Runs the comparisons and prints a table: the median time of each side, from interleaved
// repetitions, and its ratio to the time of the library. Takes the options of Google Benchmark and
// --results=FOLDER, which writes the table to that folder as Markdown and as JSON, with charts.
#include "Benchmarks.hpp"
#include "Report.hpp"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Collects the medians of the benchmarks.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            m_hasFailed = m_hasFailed || run.error_occurred;
            if (run.aggregate_name != "median")
                continue;
            const std::string& name = run.run_name.function_name;
            const std::size_t workEnd = name.find('/');
            const std::size_t fontsEnd = name.find('/', workEnd + 1);
            const auto bytes = run.counters.find("bytes/font");
            m_medians.push_back({run.family_index, name.substr(0, workEnd),
                                 std::stoll(name.substr(workEnd + 1)), name.substr(fontsEnd + 1),
                                 run.GetAdjustedRealTime(),
                                 bytes == run.counters.end() ? 0.0 : double{bytes->second}});
        }
    }

    /// Returns the medians in the order of registration.
    std::vector<Median> medians() const {
        std::vector<Median> sorted = m_medians;
        std::ranges::sort(sorted, {}, &Median::index);
        return sorted;
    }

    /// Returns whether a side was not timed because its result differs from the others.
    bool hasFailed() const { return m_hasFailed; }

private:
    bool m_hasFailed = false;
    std::vector<Median> m_medians; // in the order in which the benchmarks ended
};

void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error("cannot write " + file.string());
}

void writeResults(const std::filesystem::path& folder, const std::vector<Median>& medians) {
    std::filesystem::create_directories(folder);
    write(folder / "results.md", markdownOf(medians));
    write(folder / "results.json", jsonOf(medians));
    for (const std::string work : {"load", "export"}) {
        write(folder / (work + "-throughput.svg"), throughputChartOf(medians, work));
        write(folder / (work + "-growth.svg"), growthChartOf(medians, work));
    }
}

void registerAll() {
    registerRecords();
    registerTagFilter();
    for (const std::size_t fonts : {6'000U, 60'000U, 600'000U}) {
        const auto document = std::make_shared<const FontDocument>(repeatedSample(fonts));
        const auto tree = std::make_shared<const FontTree>(*document);
        registerLoad(document);
        registerExport(document);
        registerSearch(tree);
        registerLookup(tree);
    }
}

/// Makes the heap keep freed memory. Otherwise each repetition of a load or an export takes new
/// pages from the system. On a virtual machine their cost varies tenfold with what ran before,
/// which hides the differences between the sides.
void keepFreedMemory() {
    mallopt(M_MMAP_MAX, 0);        // NOLINT(concurrency-mt-unsafe): no thread runs yet
    mallopt(M_TRIM_THRESHOLD, -1); // NOLINT(concurrency-mt-unsafe)
}

/// Removes `--results=FOLDER` from the arguments. Returns the folder, or nullopt if there is none.
std::optional<std::filesystem::path> takeResultsFolder(std::vector<char*>& arguments) {
    constexpr std::string_view option = "--results=";
    const auto found = std::ranges::find_if(
        arguments, [=](const char* each) { return std::string_view(each).starts_with(option); });
    if (found == arguments.end())
        return std::nullopt;
    std::filesystem::path folder = *found + option.size();
    arguments.erase(found);
    return folder;
}

} // namespace

int main(int argc, char** argv) {
    keepFreedMemory();
    std::vector<char*> arguments(argv, argv + argc);
    const std::optional<std::filesystem::path> results = takeResultsFolder(arguments);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    std::string minTime = "--benchmark_min_time=0.2";
    for (std::string* const option : {&repetitions, &interleaving, &aggregates, &minTime})
        arguments.insert(arguments.begin() + 1, option->data()); // The user's follow and override.
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    try {
        registerAll();
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\nMedians of one interleaved run\n\n%s",
                    markdownOf(reporter.medians()).c_str());
        if (reporter.hasFailed())
            throw std::runtime_error(
                "the sides of a comparison have different results: see \"ERROR\" above");
        if (results)
            writeResults(*results, reporter.medians());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmo-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
