#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

using Ids = std::vector<std::int64_t>;
using Fonts = Records<FontItem>;

/// The product names, one after the other.
std::string names(const Fonts& list) {
    std::string joined;
    for (const auto& font : list)
        joined += font->ProductName();
    return joined;
}

/// Tags with these identifiers; nothing else of a tag is to be read.
Records<FontTagItem> tags(const Ids& ids) {
    Records<FontTagItem> list;
    for (const std::int64_t id : ids) {
        list.push_back(FontTagItem::create());
        list.back()->setId(id);
    }
    return list;
}

Fonts catalogue() {
    return FontList(JSON::parse(R"([
        {"ProductName":"G","Id":9,"IsGroup":true,"Tags":[4,7],"Children":[
            {"ProductName":"A","Id":3,"Tags":[7,1,4]},
            {"ProductName":"H","Id":6,"IsGroup":true,"Children":[
                {"ProductName":"B","Id":9,"Tags":[4,4]},{"ProductName":"C","Id":-1}]}]},
        {"ProductName":"D","Id":3,"Tags":[4,4,7],"Children":[{"ProductName":"X","Id":5,"Tags":[4,7]}]},
        {"ProductName":"E","Id":9,"Tags":[0,-1]},{"ProductName":"F"},
        {"ProductName":"M","Id":9223372036854775807},{"ProductName":"N","Id":-9223372036854775808}])"))
        .List();
}

TEST(FontLookup, FindsLeavesByTheirIdsAndByTheTagsTheyCarry) {
    const Fonts list = catalogue();
    const std::tuple<Ids, const char*, const char*> cases[] = {
        {{}, "", "ABCDEFMN"},
        {{9, 3, 9}, "ABDE", ""},         // each once; groups with these Ids are not found
        {{5, 6, 1, 4294967299}, "", ""}, // below a leaf, a group, unknown ones
        {{4, 7, 4}, "", "AD"},
        {{0, -1}, "CF", "E"},
        {{INT64_MAX, 0, INT64_MIN}, "FMN", ""},
    };
    for (const auto& [ids, byId, byTags] : cases) {
        EXPECT_EQ(names(FontList::getFontById(list, ids)), byId) << testing::PrintToString(ids);
        EXPECT_EQ(names(FontList::getFontByTags(list, tags(ids))), byTags)
            << testing::PrintToString(ids);
    }
    EXPECT_EQ(names(FontList::getFontById({list[1], list[0], list[1]}, {3})), "DAD");
    const auto group = tags({4});
    group[0]->setIsGroup(true);
    group[0]->setChildren(tags({7}));
    EXPECT_EQ(names(FontList::getFontByTags(list, group)), "ABD")
        << "of a group of tags, its own Id is read";
}

TEST(FontLookup, FindsOneItemOfTheListItself) {
    const Fonts list = catalogue();
    for (const std::size_t index : {0U, 1U, 3U, 4U, 5U}) // the first, be it a group or not
        EXPECT_EQ(FontList::getFontItemById(list, list[index]->Id()), list[index]);
    EXPECT_EQ(FontList::getFontItemById({list[2], list[0]}, 9), list[2]);
    for (const std::int64_t id :
         {-1, 5, 6, 1}) // in a group, below a leaf, a group in a group, unknown
        EXPECT_EQ(FontList::getFontItemById(list, id), nullptr) << id;
}

/// A random tree, and its leaves in order.
Fonts randomTree(std::mt19937_64& random, int depth, Fonts& leaves) {
    Fonts list(random() % 6);
    for (auto& font : list) {
        font = FontItem::create();
        const bool isFar = random() % 8 == 0;
        font->setId(static_cast<std::int64_t>((random() % 24 - 4) << (isFar ? 59 : 0)));
        Ids carried(random() % 4);
        for (std::int64_t& tag : carried)
            tag = static_cast<std::int64_t>(random() % 4);
        font->setTags(carried);
        font->setIsGroup(depth > 0 && random() % 3 == 0);
        Fonts unseen;
        if (!font->IsGroup())
            leaves.push_back(font);
        if (depth > 0)
            font->setChildren(randomTree(random, depth - 1, font->IsGroup() ? leaves : unseen));
    }
    return list;
}

TEST(FontLookup, FindsWhatAScanFinds) {
    std::mt19937_64 random(3);
    const auto isIn = [](const Ids& ids, auto id) {
        return std::find(ids.begin(), ids.end(), id) != ids.end();
    };
    std::size_t found = 0, carrying = 0, left = 0;
    for (int run = 0; run < 2000; ++run) {
        Fonts leaves, byId, byTags;
        const Fonts list = randomTree(random, 3, leaves);
        Ids ids(leaves.empty() ? 0 : random() % 8), tagIds(random() % 3);
        for (std::int64_t& id : ids)
            id = random() % 2 ? static_cast<std::int64_t>(random() % 32)
                              : leaves[random() % leaves.size()]->Id();
        for (std::int64_t& id : tagIds)
            id = static_cast<std::int64_t>(random() % 4);
        for (const auto& leaf : leaves) {
            if (isIn(ids, leaf->Id()))
                byId.push_back(leaf);
            if (std::all_of(tagIds.begin(), tagIds.end(),
                            [&](auto id) { return isIn(leaf->Tags(), id); }))
                byTags.push_back(leaf);
        }
        EXPECT_TRUE(FontList::getFontById(list, ids) == byId) << testing::PrintToString(ids);
        EXPECT_TRUE(FontList::getFontByTags(list, tags(tagIds)) == byTags)
            << testing::PrintToString(tagIds);
        found += byId.size();
        carrying += tagIds.empty() ? 0 : byTags.size();
        left += leaves.size() - std::max(byId.size(), byTags.size());
    }
    EXPECT_GT(std::min({found, carrying, left}), 1000U);
}

/// A font, or a group of one, by its accessors alone.
struct ClientFont : FontItem {
    Ids carried{4};
    Fonts members;
    std::int64_t Id() const override { return 12; }
    const Ids& Tags() const override { return carried; }
    bool IsGroup() const override { return !members.empty(); }
    const Fonts& Children() const override { return members; }
};
struct ClientTag : FontTagItem {
    std::int64_t Id() const override { return 4; }
};

TEST(FontLookup, HonoursOverriddenAccessors) {
    const auto font = FontItem::create<ClientFont>(), group = FontItem::create<ClientFont>();
    group->members = {font};
    EXPECT_EQ(FontList::getFontById({group}, {12}), Fonts{font});
    EXPECT_EQ(FontList::getFontItemById({FontItem::create(), group}, 12), group);
    EXPECT_EQ(FontList::getFontByTags({group}, {FontTagItem::create<ClientTag>()}), Fonts{font});
}

TEST(FontLookup, ManagesManyFontsIdentifiersAndTags) {
    Ids ids, carried;
    for (std::int64_t i = 0; i < 1'000'000; ++i)
        ids.push_back(i % 2 ? i % 100'000 * 8 : i << 40); // duplicates and outliers
    for (std::int64_t i = 100'000; i > 0; --i)
        carried.push_back(i);
    const auto all = FontItem::create(), allButOne = FontItem::create();
    all->setTags(carried);
    carried[50'000] = 0;
    allButOne->setTags(carried);
    Fonts list{allButOne, all};
    EXPECT_EQ(FontList::getFontByTags(list, tags(all->Tags())), Fonts{all});
    while (list.size() < 20'000) {
        list.push_back(FontItem::create());
        list.back()->setId(static_cast<std::int64_t>(list.size()) * 8 - 4);
    }
    list.back()->setId(ids.back());
    EXPECT_EQ(FontList::getFontById(list, ids), (Fonts{allButOne, all, list.back()}));
}

} // namespace
