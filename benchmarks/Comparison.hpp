#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

/// One kind of work at one size, done by several sides in one run: "key, fuzzy" over 60,160 leaves
/// by "Qt".
class Comparison {
public:
    Comparison(std::string work, std::size_t leaves) : m_work(std::move(work)), m_leaves(leaves) {}

    /// The name under which a side is registered; what the table reads.
    std::string nameOf(const std::string& side) const {
        return m_work + '/' + std::to_string(m_leaves) + '/' + side;
    }

    /// Adds a side. `run()` does the work, and is timed without the destruction of its result;
    /// `digest(result)` says what it came to. A side that does not come to the same as those before
    /// it is not timed but reported.
    template <class Run, class Digest>
    void add(const std::string& side, Run run, Digest digest) {
        benchmark::RegisterBenchmark(nameOf(side).c_str(), [run, isAgreed = agreementOf(
                                                                     side, [run, digest] {
                                                                         return digest(run());
                                                                     })](benchmark::State& state) {
            if (!isAgreed())
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

    /// A function that says whether the side comes to the same as the others: at its first call it
    /// asks what the side comes to.
    auto agreementOf(std::string side, std::function<std::size_t()> digest) const {
        return [side = std::move(side), digest = std::move(digest), digests = m_digests] {
            if (!digests->contains(side))
                digests->emplace(side, digest());
            return digests->at(side) == digests->begin()->second;
        };
    }

private:
    std::string m_work;
    std::size_t m_leaves;
    /// What the sides that have run came to.
    std::shared_ptr<std::map<std::string, std::size_t>> m_digests =
        std::make_shared<std::map<std::string, std::size_t>>();
};

/// Joins the elements' hashes in their order.
template <class Range, class Projection>
std::size_t digestOf(const Range& range, Projection projection) {
    std::size_t digest = range.size();
    for (const auto& element : range)
        digest = (digest ^ static_cast<std::size_t>(projection(element))) * 0x9E3779B97F4A7C15U;
    return digest;
}
