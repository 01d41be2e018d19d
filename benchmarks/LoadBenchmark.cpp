#include "Benchmarks.hpp"
#include "ChildProcess.hpp"
#include "Comparison.hpp"

#include <algorithm>
#include <exception>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>

namespace {

/// A side that is compared, and its program.
struct Side {
    const char* name;
    const char* program;
    bool isMain = true; // also measured with 600,000 fonts, and with documents of other shapes
};

constexpr Side loaders[] = {
    {"VelmoCloudEntity", "velmo-load-Ours"},
    {"simdjson on-demand by hand", "velmo-load-OnDemand"},
    {"simdjson document by hand", "velmo-load-DOM", false},
#ifdef VELMO_BENCH_YYJSON
    {"yyjson by hand", "velmo-load-Yyjson"},
#endif
#ifdef VELMO_BENCH_GLAZE
    {"glaze", "velmo-load-Glaze"},
#endif
    {"RapidJSON SAX by hand", "velmo-load-RapidJSONSAX"},
    {"RapidJSON", "velmo-load-RapidJSON", false},
    {"Boost.JSON", "velmo-load-BoostJSON", false},
    {"Qt", "velmo-load-Qt", false},
    {"nlohmann/json", "velmo-load-Nlohmann", false},
};

constexpr Side exporters[] = {
    {"VelmoCloudEntity", "velmo-export-Ours"},
    {"RapidJSON's writer by hand", "velmo-export-RapidJSON"},
#ifdef VELMO_BENCH_GLAZE
    {"glaze", "velmo-export-Glaze"},
#endif
};

/// A kind of work, and the arguments for it before and after the file.
struct Work {
    const char* name;
    const char* mode;
    const char* option = "";
};

constexpr Work loads[] = {
    {"load, kept heap", "warm", "--kept-heap"},
    {"load, default heap", "warm"},
    {"first load", "first"},
    {"taking down", "teardown"},
};
constexpr Work checkFields{"check", "check"};

using Document = std::shared_ptr<const DocumentFile>;

bool isLarge(const Document& document) { return document->fonts() > 100'000; }

ChildProcess run(const Side& side, const Work& work, const Document& document) {
    return {side.program, {work.mode, document->path(), work.option}};
}

/// Returns a hash of what the program prints, without its peak memory.
std::size_t digestOf(const ChildProcess& child) {
    const std::size_t end = child.output.rfind("peak ");
    return std::hash<std::string>()(child.output.substr(0, end));
}

/// Returns a test whether a side has the digest of the others. The test may serve several works.
auto consistencyOf(const Comparison& comparison, const Side& side, const Work& check,
                   const Document& document) {
    return comparison.consistencyCheck(side.name,
                                       [=] { return digestOf(run(side, check, document)); });
}

/// Registers a row: a side's program does one kind of work, in a new process each time.
template <class IsConsistent>
void addRow(const Side& side, const Work& work, const std::string& name, const Document& document,
            const IsConsistent& isConsistent) {
    const auto time = [=](benchmark::State& state) {
        try {
            if (!isConsistent())
                throw std::runtime_error("the result differs from that of another side");
            const auto fonts = static_cast<double>(document->fonts());
            for (auto _ : state) {
                const ChildProcess child = run(side, work, document);
                state.SetIterationTime(child.figure("seconds").value_or(child.seconds));
                if (const auto bytes = child.figure("bytes"))
                    state.counters["bytes/font"] = *bytes / fonts;
                if (const auto peak = child.figure("peak"))
                    state.counters["peak MB"] = *peak / 1e6;
            }
        } catch (const std::exception& error) {
            state.SkipWithError(error.what());
        }
    };
    const std::size_t fontsOfRun = work.mode == std::string("warm") ? 30'000 : 100'000;
    const std::size_t iterations = std::max<std::size_t>(1, fontsOfRun / document->fonts());
    const Comparison comparison(name, document->fonts());
    benchmark::internal::Benchmark* const row =
        benchmark::RegisterBenchmark(comparison.benchmarkName(side.name).c_str(), time);
    row->UseManualTime()->Unit(benchmark::kMillisecond);
    row->Iterations(static_cast<benchmark::IterationCount>(iterations));
    if (isLarge(document))
        row->Repetitions(3); // each takes seconds
}

/// Registers rows of sides that agree on what `check` prints.
void addRows(std::span<const Side> sides, bool onlyMain, std::span<const Work> works,
             const Work& check, const std::string& suffix, const Document& document) {
    const Comparison checked(check.name, document->fonts());
    for (const Work& work : works)
        for (const Side& side : sides)
            if (side.isMain || !onlyMain)
                addRow(side, work, work.name + suffix, document,
                       consistencyOf(checked, side, check, document));
}

} // namespace

void registerLoad(const Document& document) {
    const bool onlyMain = isLarge(document);
    addRows(loaders, onlyMain, loads, checkFields, "", document);
    constexpr Work whole{"whole process", "process"};
    addRows(loaders, onlyMain, {&whole, 1}, whole, "", document);
    constexpr Work exporting{"export, default heap", "time"};
    addRows(exporters, onlyMain, {&exporting, 1}, checkFields, "", document);
    for (const char* const mode : {"first", "next"})
        addRow({mode, "velmo-search"}, {"first search", mode}, "first search", document,
               [] { return true; });
}

void registerShape(const std::string& shape, const Document& document) {
    addRows(loaders, true, std::span(loads).first(2), checkFields, ", " + shape, document);
}
