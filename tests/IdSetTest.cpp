#include <PerchAppLibrary/container/internal/IdSet.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

using namespace PerchAppLibrary;

namespace {

using Ids = IdSet::Ids;

/// Identifiers that are a step apart, and wrap around behind the greatest one.
Ids row(std::int64_t first, std::size_t count, std::uint64_t step) {
    Ids ids(count);
    for (std::size_t i = 0; i < count; ++i)
        ids[i] = static_cast<std::int64_t>(static_cast<std::uint64_t>(first) + i * step);
    return ids;
}

/// Lists that are kept in a bitmap, in a sorted array, and lists close to the limit.
std::vector<Ids> lists() {
    std::vector<Ids> all{{}, {0}, {INT64_MIN, INT64_MAX}, {INT64_MAX, 0, -1, INT64_MAX}};
    for (unsigned shift = 0; shift < 64; ++shift)
        for (const std::int64_t first : {INT64_MIN, -5L, 63L, INT64_MAX - 98})
            all.push_back(row(first, 100, std::uint64_t{1} << shift));
    for (const std::uint64_t step : {654U, 655U, 656U}) // 1024 words
        all.push_back(row(-5, 101, step));
    std::mt19937_64 random(1);
    for (Ids& ids : all)
        std::ranges::shuffle(ids, random);
    return all;
}

TEST(IdSet, HoldsTheUnionOfLists) {
    const auto all = lists();
    std::mt19937_64 random(2);
    for (std::size_t run = 0; run < 4 * all.size(); ++run) {
        std::vector<const Ids*> chosen{&all[run % all.size()]};
        for (auto more = random() % 4; more > 0; --more)
            chosen.push_back(&all[random() % all.size()]);
        std::set<std::int64_t> any;
        for (const Ids* const ids : chosen)
            any.insert(ids->begin(), ids->end());
        EXPECT_EQ(unionOf(chosen), Ids(any.begin(), any.end())) << "run " << run;
        const IdSet set(chosen);
        for (const std::int64_t id : *chosen.back())
            for (const std::uint64_t far : {0UL, 1UL, -1UL, 64UL, -64UL, 1UL << 63U})
                EXPECT_EQ(set.contains(row(id, 2, far)[1]), any.contains(row(id, 2, far)[1]));
    }
    EXPECT_EQ(unionOf({}), Ids{});
}

} // namespace
