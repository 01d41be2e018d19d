#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

/// One kind of work at one size, such as "key, fuzzy" over 60,160 leaves, that several sides, such
/// as "Qt", do in one run.
class Comparison {
public:
    Comparison(std::string work, std::size_t leaves) : m_work(std::move(work)), m_leaves(leaves) {}

    /// Returns the name of the benchmark of a side. The table is made from it.
    std::string benchmarkName(const std::string& side) const {
        return m_work + '/' + std::to_string(m_leaves) + '/' + side;
    }

    /// Returns a function that tests whether the digest of the side equals that of the others. It
    /// calls `digest()` once.
    auto consistencyCheck(std::string side, std::function<std::size_t()> digest) const {
        return [side = std::move(side), digest = std::move(digest), digests = m_digests] {
            if (!digests->contains(side))
                digests->emplace(side, digest());
            return digests->at(side) == digests->begin()->second;
        };
    }

    /// Adds a side. `run()` does the work and is timed, without the destruction of its result.
    /// `digest(result)` is a hash of the result. A side whose digest differs from the others is
    /// reported as an error and not timed.
    template <class Run, class Digest>
    void add(const std::string& side, Run run, Digest digest) {
        const auto isConsistent = consistencyCheck(side, [run, digest] { return digest(run()); });
        const auto time = [run, isConsistent](benchmark::State& state) {
            if (!isConsistent())
                state.SkipWithError("the result differs from that of another side");
            for (auto _ : state) {
                auto result = run();
                benchmark::DoNotOptimize(result);
                state.PauseTiming();
                result = {};
                state.ResumeTiming();
            }
        };
        benchmark::RegisterBenchmark(benchmarkName(side).c_str(), time)
            ->Unit(benchmark::kMillisecond);
    }

private:
    std::string m_work;
    std::size_t m_leaves;
    /// The digests of the sides that have run.
    std::shared_ptr<std::map<std::string, std::size_t>> m_digests =
        std::make_shared<std::map<std::string, std::size_t>>();
};

/// Returns a hash of the elements' projections, in order.
template <class Range, class Projection>
std::size_t digestOf(const Range& range, Projection projection) {
    std::size_t digest = range.size();
    for (const auto& element : range)
        digest = (digest ^ static_cast<std::size_t>(projection(element))) * 0x9E3779B97F4A7C15U;
    return digest;
}
