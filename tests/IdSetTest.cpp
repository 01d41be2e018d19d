#include <PerchAppLibrary/container/IdSet.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <unordered_set>

using namespace PerchAppLibrary;

namespace {

using Ids = IdSet::Ids;

constexpr std::uint64_t one = 1;
constexpr std::int64_t least = INT64_MIN, most = INT64_MAX;

/// Identifiers a step apart, going round at the ends of the range.
Ids row(std::int64_t first, std::size_t count, std::uint64_t step) {
    Ids ids(count);
    for (std::size_t i = 0; i < count; ++i)
        ids[i] = static_cast<std::int64_t>(static_cast<std::uint64_t>(first) + i * step);
    return ids;
}

/// Lists to be kept as bits, as hashes, or to be taken for the wrong kind.
std::vector<Ids> lists() {
    std::vector<Ids> all{{}, {0}, {least, most}, {most, least, 0, -1, most}, row(7, 5000, 0)};
    for (const std::int64_t first : {least, -300L, -1L, 0L, 63L, most - 298})
        for (const std::uint64_t outlier : {one * 5, one << 40, one << 63}) {
            all.push_back(row(first, 300, 1));
            all.back().push_back(row(first, 2, outlier)[1]);
        }
    for (unsigned shift = 0; shift < 64;
         ++shift) // ever farther apart: bits give way to hashes on the way
        for (const std::uint64_t step : {(one << shift) - 1, one << shift, (one << shift) + 1})
            all.push_back(row(-5, 100, step));
    std::mt19937_64 random(1);
    for (Ids& ids : all)
        std::shuffle(ids.begin(), ids.end(), random);
    return all;
}

TEST(IdSet, HoldsAndCombinesTheIdentifiersOfLists) {
    const auto all = lists();
    std::mt19937_64 random(2);
    int common = 0;
    for (std::size_t run = 0; run < 10 * all.size(); ++run) {
        std::vector<const Ids*> chosen{&all[run % all.size()]};
        std::set<std::int64_t> any(chosen[0]->begin(), chosen[0]->end()), each = any;
        for (auto more = random() % 4; more > 0; --more) {
            chosen.push_back(&all[random() % all.size()]);
            const std::set<std::int64_t> ids(chosen.back()->begin(), chosen.back()->end());
            any.insert(ids.begin(), ids.end());
            std::erase_if(each, [&](std::int64_t id) { return !ids.contains(id); });
        }
        common += chosen.size() > 1 && !each.empty() && each.size() < any.size();
        EXPECT_EQ(unionOf(chosen), Ids(any.begin(), any.end()));
        EXPECT_EQ(intersectionOf(chosen), Ids(each.begin(), each.end()));
        IdSet first = chosen.size() > 1 ? IdSet(chosen) : IdSet(*chosen[0]), set(Ids{1, most});
        set = std::move(first); // of either kind
        EXPECT_EQ(set.ids(), Ids(any.begin(), any.end()));
        for (const std::int64_t id : any)
            for (const std::uint64_t step :
                 {0 * one, one, -one, 64 * one, -(64 * one), one << 32, one << 63})
                EXPECT_EQ(set.contains(row(id, 2, step)[1]), any.contains(row(id, 2, step)[1]))
                    << id << ' ' << step;
    }
    EXPECT_GT(common, 200) << "the lists are too much alike, or too little";
    EXPECT_TRUE(unionOf({}).empty() && intersectionOf({}).empty());
    EXPECT_FALSE(IdSet(Ids{}).contains(0) || IdSet(Ids{}).contains(least));
}

TEST(IdSet, TakesAMillionOfAnyKind) {
    constexpr std::size_t million = 1'000'000;
    // The last kind falls into one place of a table that goes by the remainder.
    const std::uint64_t buckets = std::unordered_set<std::int64_t>(million).bucket_count();
    for (const std::uint64_t step : {0 * one, one, one << 43, buckets}) {
        const Ids ids = row(least, million, step), held = unionOf(std::vector{&ids, &ids});
        EXPECT_EQ(held.size(), step == 0 ? 1U : million);
        EXPECT_EQ(intersectionOf(std::vector{&ids, &held}), held);
    }
}

} // namespace
