// Runs the comparisons and prints them as a table: medians of interleaved repetitions, and what each side
// takes in proportion to the library.
#include "Benchmarks.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

/// A side's median, under the name that Comparison gave it.
struct Median {
    std::int64_t place; // in the order of registration
    std::string work;
    std::string leaves;
    std::string side;
    double milliseconds;
    double bytesPerFont; // 0 where it is not measured
};

class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.aggregate_name != "median")
                continue;
            const std::string& name = run.run_name.function_name;
            const std::size_t behindWork = name.find('/');
            const std::size_t behindLeaves = name.find('/', behindWork + 1);
            const auto bytes = run.counters.find("bytes/font");
            m_medians.push_back({run.family_index, name.substr(0, behindWork),
                                 name.substr(behindWork + 1, behindLeaves - behindWork - 1),
                                 name.substr(behindLeaves + 1), run.GetAdjustedCPUTime(),
                                 bytes == run.counters.end() ? 0.0 : double{bytes->second}});
        }
    }

    /// In the order of registration, in which each comparison's own side is the first.
    std::vector<Median> medians() const {
        std::vector<Median> sorted = m_medians;
        std::ranges::sort(sorted, {}, &Median::place);
        return sorted;
    }

private:
    std::vector<Median> m_medians; // in the order in which they came to an end
};

void printTable(const std::vector<Median>& medians) {
    std::printf("\nMedians of one interleaved run\n\n"
                "| work | leaves | side | ms | its time / ours | bytes/font | our bytes / its |\n"
                "|---|---:|---|---:|---:|---:|---:|\n");
    const Median* ours = nullptr;
    for (const Median& median : medians) {
        if (ours == nullptr || ours->work != median.work || ours->leaves != median.leaves)
            ours = &median;
        std::printf("| %s | %s | %s | %.2f | %.2f |", median.work.c_str(), median.leaves.c_str(),
                    median.side.c_str(), median.milliseconds, median.milliseconds / ours->milliseconds);
        if (median.bytesPerFont > 0)
            std::printf(" %.0f | %.2f |\n", median.bytesPerFont, ours->bytesPerFont / median.bytesPerFont);
        else
            std::printf(" | |\n");
    }
}

void registerAll() {
    registerRecords();
    registerTagFilter();
    for (const std::size_t leaves : {60'000U, 600'000U}) {
        auto document = std::make_shared<const FontDocument>(repeatedSample(leaves));
        const auto tree = std::make_shared<const FontTree>(*document);
        registerSearch(tree);
        registerLookup(tree);
        if (leaves == 60'000U)
            registerLoad(document);
    }
}

} // namespace

int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    for (std::string* const option : {&repetitions, &interleaving, &aggregates})
        arguments.insert(arguments.begin() + 1, option->data()); // before the user's, which override them
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    try {
        registerAll();
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        printTable(reporter.medians());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmo-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
