#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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
    FontList::setActivatedFont(list, list);
    FontList::setActivatedFont(unnamed, unnamed);
    EXPECT_EQ(FontList::getActivatedFontCount(list), count);
    EXPECT_EQ(FontList::getActivatedFontCount(unnamed), count);

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
    for (char32_t i = 0; i < 300'000; ++i)
        key += {'\xE4', static_cast<char>(0x80 | i / 64 % 64), static_cast<char>(0x80 | i % 64)};
    EXPECT_FALSE(FontList::isFontMatchedByCharacter(list[0], key));
    list[0]->setDisplayName(key);
    EXPECT_EQ(FontList::getSearchResultFont({list[0]}, key).second.size(), 1U);
}

/// Returns texts of 16 ASCII bytes that std::hash of libstdc++, a Murmur hash with a known seed,
/// maps to one number: after any first half, a second half leads to a chosen state.
std::vector<std::string> collidingNames(std::size_t count) {
    constexpr std::uint64_t factor = 0xC6A4A7935BD1E995, inverse = 0x5F7A0EA7E59B19BD,
                            begin = 0xC70F6907 ^ (16 * factor), state = 0x123456789ABCDEF;
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::vector<std::string> names;
    for (std::uint64_t number = 1; names.size() < count; ++number) {
        const std::uint64_t first = (number * 0x9E3779B97F4A7C15) & ~highBits;
        std::uint64_t mixed = first * factor;
        mixed = (mixed ^ mixed >> 47) * factor;
        std::uint64_t second = (((begin ^ mixed) * factor) ^ (state * inverse)) * inverse;
        second = (second ^ second >> 47) * inverse;
        if ((second & highBits) != 0)
            continue;
        std::string& name = names.emplace_back(16, '\0');
        std::memcpy(name.data(), &first, 8);
        std::memcpy(name.data() + 8, &second, 8);
    }
    return names;
}

TEST(FontList, MarksByNamesThatAreMadeToCollideInLinearTime) {
    Fonts list;
    for (const std::string& name : collidingNames(250'000))
        list.push_back(font(0, name));
#ifdef __GLIBCXX__
    const auto hashOf = [&](const auto& font) {
        return std::hash<std::string>()(font->ProductName());
    };
    EXPECT_EQ(hashOf(list.front()), hashOf(list.back()));
#endif
    FontList::setActivatedFont(list, list);
    EXPECT_EQ(FontList::getActivatedFontCount(list), std::ssize(list));
}

/// A leaf, or a group of one, whose accessors return something other than what is stored.
struct ClientFont : FontItem {
    std::string name = "Client", writes;
    bool isStored = false;
    Fonts members;
    std::int64_t Id() const override { return 12; }
    bool IsPrivate() const override { return true; }
    const std::string& ProductName() const override { return name; }
    std::string DisplayName() const override { return "Shown"; }
    bool isActivated() const override { return isStored; }
    bool IsActivated() const override { return true; }
    bool IsFavorited() const override { return true; }
    std::string LocalFile() const override { return "/dev/null"; }
    bool IsGroup() const override { return !members.empty(); }
    const Fonts& Children() const override { return members; }
    void setId(std::int64_t) override { writes += "I"; }
    void setIsActivated(bool flag) override { writes += flag ? "A" : "a"; }
    void setIsFavorited(bool flag) override { writes += flag ? "F" : "f"; }
    PerchAppLibrary::Dictionary Dict() const override { return {{"client", "own"}}; }
};

TEST(FontList, LabelsAndMarkingCallOverriddenOperations) {
    const auto client =
        FontItem::create<ClientFont>({.id = 7, .productName = "A", .isPrivate = true});
    EXPECT_EQ(client->writes, "I") << "setId";
    const auto byId = font(12, "A", true), other = font(12, "Client"), byName = font(0, "Client");
    FontList::setActivatedFont({client}, {other, byName});
    EXPECT_EQ(client->writes, "I") << "Id and IsPrivate count";
    FontList::setActivatedFont({client}, {byId});
    FontList::setFavoritedFont({client}, {byId});
    EXPECT_EQ(client->writes, "IAF");
    for (const auto& filter : {FontList::getActivatedFont, FontList::getFavoritedFont})
        EXPECT_EQ(filter({client}), Fonts{client});
    EXPECT_EQ(FontList::getActivatedFontCount({client}), 1);
    FontList::setActivatedFont({byId, other, byName}, {client});
    EXPECT_EQ(FontList::getActivatedFont({byId, other, byName}), (Fonts{byId, byName}));
}

TEST(FontItem, DerivedValuesReadOverriddenAccessors) {
    const auto client = FontItem::create<ClientFont>(), group = FontItem::create<ClientFont>();
    EXPECT_EQ(client->PreviewText(), "Shown");
    EXPECT_EQ(client->TreeNodeTitle(), "Client(, )");
    EXPECT_TRUE(client->IsLocaled());
    group->members = {client};
    EXPECT_FALSE(group->FontItem::IsActivated()) << "the member's IsActivated() does not count";
    client->isStored = true;
    EXPECT_TRUE(group->FontItem::IsActivated()) << "its isActivated() does";
    group->setActivated(true);
    group->setActivated(false);
    EXPECT_EQ(client->writes, "Aa");
    EXPECT_EQ(group->FontItem::DisplayName(), " (1)");
    EXPECT_EQ(toText(group->FontItem::Dict().at("Children")), R"([{"client":"own"}])");
    EXPECT_EQ(toText(FontItem::getFontArray({client})), R"([{"client":"own"}])");
}

} // namespace
