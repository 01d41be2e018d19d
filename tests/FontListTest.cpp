#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include "RecordTesting.hpp"

#include <stdexcept>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

using Fonts = Records<FontItem>;
using Ids = std::vector<std::int64_t>;

Fonts fonts(const std::string& text) { return FontList(JSON::parse(text)).List(); }

std::shared_ptr<FontItem> font(std::int64_t id, const std::string& name, bool isPrivate = false) {
    return FontItem::create({.id = id, .productName = name, .isPrivate = isPrivate});
}

TEST(RecordTree, LetsAVisitorChangeWhatComesLaterAndStopTheWalk) {
    const auto list = fonts(R"([{"ProductName":"A"},{"IsGroup":true},{"ProductName":"Z"}])");
    std::string visited;
    const auto visit = [&](const std::shared_ptr<FontItem>& leaf) {
        visited += leaf->ProductName();
        if (visited == "A")
            list[1]->setChildren(fonts(R"([{"ProductName":"B"},{"ProductName":"C"}])"));
        if (visited == "ABC")
            throw std::runtime_error("enough");
    };
    EXPECT_THROW(forEachLeaf(list, visit), std::runtime_error);
    EXPECT_EQ(visited, "ABC");
}

TEST(FontList, TakesManyFontsIdentifiersAndTagsInLinearTime) {
    constexpr std::int64_t count = 200'000;
    Ids ids;
    Fonts list, unnamed;
    for (std::int64_t i = 1; i <= count; ++i) {
        ids.push_back(i % 2 ? i : i << 40); // dense ones, and outliers
        list.push_back(font(2 * i, "A"));
        unnamed.push_back(font(0, std::to_string(i)));
    }
    list.back()->setId(1);
    EXPECT_EQ(FontList::getFontById(list, ids).size(), 1U);
    for (const Fonts& fonts : {list, unnamed}) {
        FontList::setActivatedFont(fonts, fonts);
        EXPECT_EQ(FontList::getActivatedFontCount(fonts), count);
    }

    const Ids half(ids.begin(), ids.begin() + count / 2);
    Ids allButOne = half;
    allButOne[count / 4] = 0;
    list[0]->setTags(half);
    list[1]->setTags(allButOne);
    Fonts repeated(100, list[0]);
    repeated.push_back(list[1]);
    Records<FontTagItem> tags;
    for (const std::int64_t id : half)
        tags.emplace_back(FontTagItem::create())->setId(id);
    EXPECT_EQ(FontList::getFontByTags(repeated, tags).size(), 100U);

    std::string key;
    for (int i = 0; i < 300'000; ++i)
        key += {'\xE4', static_cast<char>(0x80 | i / 64 % 64), static_cast<char>(0x80 | i % 64)};
    EXPECT_FALSE(FontList::isFontMatchedByCharacter(list[0], key));
    list[0]->setDisplayName(key);
    EXPECT_EQ(FontList::getSearchResultFont({list[0]}, key).second.size(), 1U);
}

/// A leaf, or a group of one, whose accessors return something other than what is stored.
struct ClientFont : FontItem {
    std::string name = "Client", writes;
    bool isStored = false;
    Fonts members;
    const std::string& ProductName() const override { return name; }
    std::string DisplayName() const override { return "Shown"; }
    bool isActivated() const override { return isStored; }
    bool IsActivated() const override { return true; }
    std::string LocalFile() const override { return "/dev/null"; }
    bool IsGroup() const override { return !members.empty(); }
    const Fonts& Children() const override { return members; }
    void setId(std::int64_t) override { writes += "I"; }
    void setIsActivated(bool flag) override { writes += flag ? "A" : "a"; }
    PerchAppLibrary::Dictionary Dict() const override { return {{"client", "own"}}; }
};

TEST(FontItem, DerivedValuesReadOverriddenAccessors) {
    const auto client =
        FontItem::create<ClientFont>({.id = 7, .productName = "A", .isPrivate = true});
    const auto group = FontItem::create<ClientFont>();
    EXPECT_EQ(FontList::getActivatedFontCount({client}), 1) << "IsActivated()";
    EXPECT_EQ(FontList::getActivatedFont({client}).size(), 1U);
    EXPECT_EQ(client->PreviewText() + client->TreeNodeTitle(), "ShownClient(, )");
    EXPECT_TRUE(client->IsLocaled() && !FontItem::create()->IsLocaled());
    group->members = {client};
    EXPECT_FALSE(group->FontItem::IsActivated()) << "the member's IsActivated() does not count";
    client->isStored = true;
    EXPECT_TRUE(group->FontItem::IsActivated()) << "its isActivated() does";
    group->setActivated(true);
    group->setActivated(false);
    EXPECT_EQ(client->writes, "IAa");
    EXPECT_EQ(group->FontItem::DisplayName(), " (1)");
    EXPECT_EQ(toText(group->FontItem::Dict().at("Children")), R"([{"client":"own"}])");
}

#ifndef NDEBUG
TEST(FontListDeathTest, NamesTheArgumentThatHoldsANullInADebugBuild) {
    const Records<FontItem> list{FontItem::create()}, none{FontList::getFontItemById(list, 99)};
    EXPECT_DEATH(FontList::setActivatedFont(list, none), "hasNoNull\\(activatedFont\\)");
    EXPECT_DEATH(FontList::setFavoritedFont(list, none), "hasNoNull\\(favoritedFont\\)");
    EXPECT_DEATH(FontList::getFontByTags(list, {nullptr}), "hasNoNull\\(tags\\)");
    EXPECT_DEATH(FontList::getFontCount(none), "hasNoNull\\(list\\)");
    const auto group = FontItem::create({.groupTag = "g"});
    group->setChildren(none);
    EXPECT_DEATH(FontList::getFontCount({group}), "no member of a group is null");
}
#endif

} // namespace
