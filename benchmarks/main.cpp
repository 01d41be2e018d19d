// Runs the comparisons and prints a table: the median time of each side, from interleaved
// repetitions, and its ratio to the time of the library. Takes the options of Google Benchmark and
// --results=FOLDER, which writes the table to that folder as Markdown and as JSON. charts.py draws
// the charts.
#include "Benchmarks.hpp"
#include "Report.hpp"
#include "programs/Program.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
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
            m_medians.push_back({run.family_index, name.substr(0, workEnd),
                                 std::stoll(name.substr(workEnd + 1)), name.substr(fontsEnd + 1),
                                 run.GetAdjustedRealTime(), counter(run, "bytes/font"),
                                 counter(run, "peak MB")});
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
    /// Returns the value of a counter, or 0 if there is none.
    static double counter(const Run& run, const char* name) {
        const auto found = run.counters.find(name);
        return found == run.counters.end() ? 0.0 : double{found->second};
    }

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
}

/// A folder for documents, which is removed at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string path = std::filesystem::temp_directory_path() / "velmo-bench-XXXXXX";
        if (mkdtemp(path.data()) == nullptr)
            throw std::runtime_error("cannot make the folder " + path);
        m_path = path;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

std::shared_ptr<const DocumentFile> fileOf(const std::shared_ptr<const FontDocument>& document,
                                           const std::filesystem::path& folder) {
    return std::make_shared<DocumentFile>(folder / std::to_string(document->fonts), document->fonts,
                                          [document] { return document->text; });
}

void registerShapes(const std::shared_ptr<const FontDocument>& document,
                    const std::filesystem::path& folder) {
    const std::pair<std::string, Shape> shapes[] = {{"shuffled keys", Shape::shuffledKeys},
                                                    {"missing keys", Shape::missingKeys},
                                                    {"unknown keys", Shape::unknownKeys},
                                                    {"pretty-printed", Shape::prettyPrinted}};
    for (const auto& each : shapes)
        registerShape(each.first, std::make_shared<DocumentFile>(
                                      folder / (std::to_string(document->fonts) + " " + each.first),
                                      document->fonts, [document, shape = each.second] {
                                          return reshaped(document->text, shape);
                                      }));
}

void registerAll(const std::filesystem::path& folder) {
    registerRecords();
    registerTagFilter();
    for (const std::size_t fonts : {6'000U, 60'000U, 600'000U}) {
        const auto document = std::make_shared<const FontDocument>(repeatedSample(fonts));
        const auto tree = std::make_shared<const FontTree>(*document);
        registerLoad(fileOf(document, folder));
        if (fonts < 100'000)
            registerShapes(document, folder);
        registerExport(document);
        registerSearch(tree);
        registerLookup(tree);
    }
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
        const TemporaryFolder folder;
        registerAll(folder.path());
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
