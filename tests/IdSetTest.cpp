#include <PerchAppLibrary/container/IdSet.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <unordered_set>

using namespace PerchAppLibrary;

namespace {

using Ids = IdSet::Ids;

constexpr std::uint64_t one = 1;

std::int64_t moved(std::int64_t id, std::uint64_t step) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(id) + step);
}

/// Identifiers that are a step apart, and wrap around behind the greatest one.
Ids row(std::int64_t first, std::size_t count, std::uint64_t step) {
    Ids ids(count);
    for (std::size_t i = 0; i < count; ++i)
        ids[i] = moved(first, i * step);
    return ids;
}

/// Lists that are kept as bits, lists that are kept as hashes, and lists close to the limit.
std::vector<Ids> lists() {
    std::vector<Ids> all{
        {}, {0}, {INT64_MIN, INT64_MAX}, {INT64_MAX, 0, -1, INT64_MAX}, row(7, 9, 0)};
    for (const std::int64_t first : {INT64_MIN, -300L, -1L, 0L, 63L, INT64_MAX - 298})
        for (const std::uint64_t outlier : {one * 5, one << 40, one << 63}) {
            all.push_back(row(first, 300, 1));
            all.back().push_back(moved(first, outlier));
        }
    for (unsigned shift = 0; shift < 64; ++shift)
        for (const std::uint64_t step : {(one << shift) - 1, one << shift, (one << shift) + 1})
            all.push_back(row(-5, 100, step));
    std::mt19937_64 random(1);
    for (Ids& ids : all)
        std::ranges::shuffle(ids, random);
    return all;
}

TEST(IdSet, ContainsTheIdentifiersOfItsListAndNoOther) {
    for (const Ids& list : lists()) {
        SCOPED_TRACE("the list " + testing::PrintToString(list));
        const std::set<std::int64_t> expected(list.begin(), list.end());
        IdSet made(list), set(Ids{1, INT64_MAX});
        set = std::move(made);
        EXPECT_EQ(set.ids(), Ids(expected.begin(), expected.end()));
        for (const std::int64_t id : list)
            for (const std::uint64_t step :
                 {0 * one, one, -one, 64 * one, -(64 * one), one << 32, one << 63})
                EXPECT_EQ(set.contains(moved(id, step)), expected.contains(moved(id, step)))
                    << moved(id, step);
        EXPECT_EQ(set.contains(0), expected.contains(0));
    }
}

TEST(IdSet, GivesTheUnionAndTheIntersectionOfUpToFourLists) {
    const auto all = lists();
    std::mt19937_64 random(2);
    for (std::size_t run = 0; run < 10 * all.size(); ++run) {
        std::vector<const Ids*> chosen{&all[run % all.size()]};
        std::set<std::int64_t> any(chosen[0]->begin(), chosen[0]->end()), each = any;
        for (auto more = random() % 4; more > 0; --more) {
            chosen.push_back(&all[random() % all.size()]);
            const std::set<std::int64_t> ids(chosen.back()->begin(), chosen.back()->end());
            any.insert(ids.begin(), ids.end());
            std::erase_if(each, [&](std::int64_t id) { return !ids.contains(id); });
        }
        EXPECT_EQ(unionOf(chosen), Ids(any.begin(), any.end())) << "run " << run;
        EXPECT_EQ(intersectionOf(chosen), Ids(each.begin(), each.end())) << "run " << run;
    }
    EXPECT_EQ(unionOf({}), Ids{});
    EXPECT_EQ(intersectionOf({}), Ids{});
}

TEST(IdSet, TakesManyIdentifiersOfAnyKindInLinearTime) {
    constexpr std::size_t count = 500'000;
    // The last step puts all of them into one bucket of a table that goes by the remainder.
    const std::uint64_t buckets = std::unordered_set<std::int64_t>(count).bucket_count();
    for (const std::uint64_t step : {0 * one, one, one << 43, buckets}) {
        const Ids ids = row(INT64_MIN, count, step), held = unionOf(std::vector{&ids, &ids});
        EXPECT_EQ(held.size(), step == 0 ? 1U : count) << step;
        EXPECT_EQ(intersectionOf(std::vector{&ids, &held}).size(), held.size()) << step;
    }
}

} // namespace
