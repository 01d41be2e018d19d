#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

/// One kind of work at one size, done by several sides in one run: "key, fuzzy" over 60,160 leaves by "Qt".
class Comparison {
public:
    Comparison(std::string work, std::size_t leaves) : m_work(std::move(work)), m_leaves(leaves) {}

    /// The name under which a side is registered; what the table reads.
    std::string nameOf(const std::string& side) const {
        return m_work + '/' + std::to_string(m_leaves) + '/' + side;
    }

    /// Adds a side. `run()` does the work, and is timed without the destruction of its result; `digest(result)` says
    /// what it came to. A side that does not come to the same as those before it is not timed but reported.
    template <class Run, class Digest>
    void add(const std::string& side, Run run, Digest digest) {
        benchmark::RegisterBenchmark(nameOf(side).c_str(), [run, digest,
                                                            agreed = m_digest](benchmark::State& state) {
            const std::size_t own = digest(run());
            if (!*agreed)
                *agreed = own;
            if (**agreed != own)
                state.SkipWithError("comes to another result");
            for (auto _ : state) {
                auto result = run();
                benchmark::DoNotOptimize(result);
                state.PauseTiming();
                result = {};
                state.ResumeTiming();
            }
        })->Unit(benchmark::kMillisecond);
    }

private:
    std::string m_work;
    std::size_t m_leaves;
    /// What the first of the sides that ran came to.
    std::shared_ptr<std::optional<std::size_t>> m_digest = std::make_shared<std::optional<std::size_t>>();
};

/// Joins the elements' hashes in their order.
template <class Range, class Projection>
std::size_t digestOf(const Range& range, Projection projection) {
    std::size_t digest = range.size();
    for (const auto& element : range)
        digest = (digest ^ static_cast<std::size_t>(projection(element))) * 0x9E3779B97F4A7C15U;
    return digest;
}
