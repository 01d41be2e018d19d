// Runs the comparisons and prints them as a table: medians of interleaved repetitions, and what
// each side takes in proportion to the library. Takes the options of Google Benchmark and
// --results=FOLDER, where the table goes as Markdown and as JSON, with charts.
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

class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            m_hasFailed = m_hasFailed || run.error_occurred;
            if (run.aggregate_name != "median")
                continue;
            const std::string& name = run.run_name.function_name;
            const std::size_t behindWork = name.find('/');
            const std::size_t behindFonts = name.find('/', behindWork + 1);
            const auto bytes = run.counters.find("bytes/font");
            m_medians.push_back({run.family_index, name.substr(0, behindWork),
                                 std::stoll(name.substr(behindWork + 1)),
                                 name.substr(behindFonts + 1), run.GetAdjustedRealTime(),
                                 bytes == run.counters.end() ? 0.0 : double{bytes->second}});
        }
    }

    /// In the order of registration.
    std::vector<Median> medians() const {
        std::vector<Median> sorted = m_medians;
        std::ranges::sort(sorted, {}, &Median::place);
        return sorted;
    }

    /// Whether a side was not timed because it came to another result than the others.
    bool hasFailed() const { return m_hasFailed; }

private:
    bool m_hasFailed = false;
    std::vector<Median> m_medians; // in the order in which they came to an end
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

/// Has the heap keep what is freed. Otherwise each repetition of a load or an export begins with
/// new pages of the system, whose price, on a virtual machine, depends on what ran before: it
/// varies tenfold and hides what is compared.
void keepFreedMemory() {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
}

/// Takes `--results=FOLDER` out of the arguments.
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
    std::string leastSeconds = "--benchmark_min_time=0.2";
    for (std::string* const option : {&repetitions, &interleaving, &aggregates, &leastSeconds})
        arguments.insert(arguments.begin() + 1,
                         option->data()); // before the user's, which override them
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
                "sides of a comparison come to different results: see \"ERROR\" above");
        if (results)
            writeResults(*results, reporter.medians());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmo-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
