// Runs the comparisons and prints them as a table: medians of interleaved repetitions, and what each side
// takes in proportion to the library.
#include "Benchmarks.hpp"

#include <VelmoCloudEntity/font/FontList.hpp>

#include <cstdio>
#include <exception>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using VelmoCloudEntity::FontList;

FontDocument repeatedSample(std::size_t leastFonts) {
    std::ifstream file(VELMO_SAMPLES "/font-list.json");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string sample = content.str();
    const FontList list(PerchAppLibrary::JSON::parse(sample));
    const auto fontsInSample = static_cast<std::size_t>(FontList::getFontCount(list.List()));

    const std::size_t begin = sample.find('[') + 1;
    const std::string items = sample.substr(begin, sample.rfind(']') - begin);
    FontDocument document{"[", 0};
    for (; document.fonts < leastFonts; document.fonts += fontsInSample)
        document.text.append(document.fonts == 0 ? "" : ",").append(items);
    document.text += ']';
    return document;
}

constexpr std::string_view loadPrefix = "load/";

/// Keeps the medians by the name of the side.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    struct Median {
        double milliseconds;
        double bytesPerFont;
    };

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name.substr(loadPrefix.size())] = {
                    run.GetAdjustedRealTime(), run.counters.at("bytes/font")};
    }

    const std::map<std::string, Median>& medians() const { return m_medians; }

private:
    std::map<std::string, Median> m_medians;
};

void printTable(const MedianReporter& reporter, const FontDocument& document) {
    const MedianReporter::Median ours = reporter.medians().at("VelmoCloudEntity");
    std::printf("\nLoading %zu leaf fonts, %.1f MB of JSON; medians of one interleaved run\n\n",
                document.fonts, static_cast<double>(document.text.size()) * 1e-6);
    std::printf("| side | ms | ns/font | bytes/font | its time / ours | our bytes / its |\n");
    std::printf("|---|---:|---:|---:|---:|---:|\n");
    for (const auto& [name, median] : reporter.medians())
        std::printf("| %s | %.1f | %.0f | %.0f | %.2f | %.2f |\n", name.c_str(), median.milliseconds,
                    median.milliseconds * 1e6 / static_cast<double>(document.fonts), median.bytesPerFont,
                    median.milliseconds / ours.milliseconds, ours.bytesPerFont / median.bytesPerFont);
}

} // namespace

int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=9";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    for (std::string* const option : {&repetitions, &interleaving, &aggregates})
        arguments.insert(arguments.begin() + 1, option->data()); // before the user's, which override them
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    try {
        const FontDocument document = repeatedSample(60000);
        registerLoadBenchmarks(document);
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        printTable(reporter, document);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmo-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
