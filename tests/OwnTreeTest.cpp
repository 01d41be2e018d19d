// Tests trees of a client's own class, and nested records.
#include "RecordTesting.hpp"

#include <VelmoCloudEntity/entity/UrlItem.hpp>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// A client's font whose members are of its own class, with one record of each of two kinds.
class StarFont : public FontItem {
    PERCH_RECORD(StarFont, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars, 3);
    PERCH_PROPERTY(std::optional<double>, Price);
    PERCH_PROPERTY(std::shared_ptr<StarFont>, Twin);
    PERCH_PROPERTY(std::shared_ptr<UrlItem>, Home);
    PERCH_ELEMENTS(Children, StarFont);

    PERCH_RECORD_END;
    PERCH_LABELS(StarLabels, (price, Price), (home, Home));
};
PERCH_RECORD_SCHEMA(StarFont);

struct StarFontList : RecordList<StarFontList, StarFont, Elements::objects> {
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;
};

/// A class that overrides what walks over a tree call for each member.
class ShoutingFont : public StarFont {
    PERCH_RECORD(ShoutingFont, StarFont);
    PERCH_ELEMENTS(Children, ShoutingFont);
    PERCH_RECORD_END;

public:
    PerchAppLibrary::Dictionary Dict() const override { return {{"Shout", Id()}}; }
    void setActivated(bool activated) override { setStars(activated ? 100 : 0); }
};
PERCH_RECORD_SCHEMA(ShoutingFont);

const std::string document = R"([{"Id":1,"IsGroup":true,"Stars":5,"Children":[
    {"Id":2,"Price":10.5,"Children":[{"Id":3,"Stars":null}]},{"Id":4,"Price":null}]},7])";

std::string outline(const Records<StarFont>& fonts) {
    std::string text;
    for (const auto& font : fonts)
        text += std::to_string(font->Id()) + ":" + std::to_string(font->Stars()) + "(" +
                outline(recordsAs<StarFont>(font->Children())) + ")";
    return text;
}

TEST(OwnTree, HasElementsOfTheClassAtAnyDepth) {
    const StarFontList direct = StarFontList::parse(document);
    EXPECT_EQ(outline(direct.List()), "1:5(2:3(3:3())4:3())");
    EXPECT_EQ(outline(StarFontList(JSON::parse(document)).List()), outline(direct.List()));
    EXPECT_EQ(toText(direct[0]->Children()[0]->value("Price")), "1.05E1");
    EXPECT_EQ(toText(direct[0]->Children()[1]->value("Price")), "null");
    std::vector<std::string_view> names, plain;
    for (const Property& each : StarFont().schema().properties())
        names.push_back(each.name);
    for (const Property& each : FontItem().schema().properties())
        plain.push_back(each.name);
    names.resize(plain.size());
    EXPECT_EQ(names, plain) << "the array keeps its place";

    direct[0]->setChildren({StarFont::create(), FontItem::create()});
    EXPECT_THROW((void)recordsAs<StarFont>(direct[0]->Children()), std::bad_cast);
}

TEST(OwnTree, FillsASingleRecordFromAnObjectAlone) {
    const std::string members = R"("Home":{"Url":"u"},"Twin":{"Stars":1,"Twin":{"Stars":2}})";
    for (const std::string& text :
         {"[{" + members + "}]", "[{\"Home\":[],\"Twin\":7," + members + "}]"})
        for (const auto& font :
             {StarFontList::parse(text)[0], StarFont::create(JSON::parse(text)[0])}) {
            EXPECT_EQ(font->Home()->Url(), "u");
            EXPECT_EQ(font->Twin()->Twin()->Stars(), 2);
            EXPECT_EQ(font->properties().at("Home"), Value(font->Home()->properties()));
            EXPECT_EQ(font->value("Twin"), Value(font->Twin()->properties()));
            EXPECT_NE(FontItem::getFontArrayText({font}).find(R"("Home":{)"), std::string::npos);
            EXPECT_EQ(FontItem::getFontArrayText({font}), toText(FontItem::getFontArray({font})));
            font->setValue(JSON::parse(R"({"Home":[{}]})"));
            EXPECT_EQ(font->Home(), nullptr) << "as an array of records is emptied";
        }
    const auto home = UrlItem::create();
    const auto labelled = StarFont::create({.price = 2.5, .home = home});
    EXPECT_EQ(labelled->Home(), home);
    EXPECT_EQ(labelled->Price(), 2.5);
    EXPECT_EQ(toText(StarFont::create()->value("Home")), "null");
}

TEST(OwnTree, CallsWhatTheClassOverrides) {
    const auto fonts = makeRecords<ShoutingFont>(JSON::parse(document), Elements::objects);
    EXPECT_EQ(FontItem::getFontArrayText(recordsAs<FontItem>(fonts)), R"([{"Shout":1}])");
    const auto group = StarFont::create({.price = 1, .home = nullptr});
    group->setGroup("g");
    group->setChildren(recordsAs<FontItem>(fonts));
    group->setActivated(true);
    EXPECT_EQ(fonts[0]->Stars(), 100);
    EXPECT_TRUE(toText(group->Dict()).ends_with(R"("Children":[{"Shout":1}]})"));
}

TEST(OwnTree, IsMarkedAndExportedAtAnyDepthInLinearTime) {
    std::shared_ptr<FontItem> root = StarFont::create();
    for (int depth = 0; depth < 300'000; ++depth) {
        const auto group = StarFont::create();
        group->setGroup("g");
        group->setChildren({std::exchange(root, group)});
    }
    root->setActivated(true);
    EXPECT_EQ(FontList::getActivatedFontCount({root}), 1);
    EXPECT_TRUE(FontItem::getFontArrayText({root}).ends_with("]}]"));
}

} // namespace
