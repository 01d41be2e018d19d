#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

TEST(RecordTree, VisitsTheLeavesOfTemporaryLists) {
    std::vector<std::int64_t> ids;
    const auto visit = [&ids](const auto& leaf) { ids.push_back(leaf->Id()); };
    forEachLeaf(FontTagList(JSON::parse(R"([{"Id":1,"IsGroup":true,"Children":[
        {"Id":2},{"Id":3,"IsGroup":true,"Children":[{"Id":4,"Children":[{"Id":5}]}]}]},{"Id":6}])"))
                    .List(),
                visit);
    const auto font = FontItem::create(JSON::parse(R"({"Id":7})"));
    forEachLeaf<FontItem>({font, FontItem::create({.groupTag = "empty"}), font}, visit);
    EXPECT_EQ(ids, (std::vector<std::int64_t>{2, 4, 6, 7, 7}));
}

TEST(RecordTree, LetsAVisitorChangeWhatComesLaterAndStopTheWalk) {
    const auto group = FontItem::create({.groupTag = "filled while the walk goes on"});
    const Records<FontItem> list{FontItem::create(), group, FontItem::create()};
    Records<FontItem> visited;
    const auto visit = [&](const std::shared_ptr<FontItem>& leaf) {
        visited.push_back(leaf);
        if (leaf == list.front())
            group->setChildren({FontItem::create(), FontItem::create()});
        if (leaf == group->Children().back())
            throw std::runtime_error("enough");
    };
    EXPECT_THROW(forEachLeaf(list, visit), std::runtime_error);
    EXPECT_EQ(visited, (Records<FontItem>{list[0], group->Children()[0], group->Children()[1]}));
}

} // namespace
