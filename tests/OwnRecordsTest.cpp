// Tests records of a client's own classes: how they are named and overridden, nested records, and
// deep trees.
#include "RecordTesting.hpp"

#include <VelmoCloudEntity/entity/UrlItem.hpp>

#include <PerchAppLibrary/record/explain.hpp>

using namespace VelmoCloudEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using PerchAppLibrary::Value;

// A class with the name of the library's base, one in the library's namespace, and a template.
namespace client {
class BaseEntity : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(BaseEntity, PerchAppLibrary::BaseEntity);
    PERCH_PROPERTY(std::string, Name);
    PERCH_RECORD_END;
    PERCH_LABELS(NameLabels, (name, Name));
};
PERCH_RECORD_SCHEMA(BaseEntity);
} // namespace client

namespace PerchAppLibrary {
class OwnPupil : public client::BaseEntity {
    PERCH_RECORD(OwnPupil, client::BaseEntity);
    PERCH_PROPERTY(std::int64_t, Age, 7);
    PERCH_PROPERTY(std::string, Value); // whose setter has the name of the library's
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(NameLabels);
    void changed(const std::string&) = delete; // the library has functions of its own
    void stored(const std::string&) = delete;
    void make() = delete;
};
PERCH_RECORD_SCHEMA(OwnPupil);
} // namespace PerchAppLibrary

namespace {

template <class T>
class Holder : public PerchAppLibrary::OwnPupil {
    PERCH_RECORD(Holder, PerchAppLibrary::OwnPupil);
    PERCH_PROPERTY(T, Held);
    PERCH_PROPERTY(Records<Holder>, Parts);
    PERCH_COMPUTED(bool, IsHeld);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(NameLabels);
};
PERCH_RECORD_SCHEMA(Holder<T>, template <class T>);
template <class T>
bool Holder<T>::IsHeld() const {
    return true;
}

TEST(OwnRecords, InheritLabelsAndPropertiesOfAnyNamespace) {
    for (const std::shared_ptr<PerchAppLibrary::BaseEntity>& record :
         {std::shared_ptr<PerchAppLibrary::BaseEntity>(Holder<bool>::create({.name = "A"})),
          {client::BaseEntity::create<PerchAppLibrary::OwnPupil>({.name = "A"})}})
        EXPECT_EQ(toText(record->value("Name")) + toText(record->value("Age")), "\"A\"7");
    const auto holder = Holder<std::string>::parse(
        R"({"Age":5,"Held":"x","Parts":[{"Held":"y"}],"Name":"B","Id":1})");
    EXPECT_EQ(holder->Parts().at(0)->Held(), "y");
    holder->setParts({});
    holder->setValue(std::string("v"));
    EXPECT_EQ(changed(holder), R"({"Id":1,"Name":"B","Age":5,"Value":"v","Held":"x"})");
    EXPECT_EQ(toText(holder->value("IsHeld")), "true");
}

/// Overrides the mapping of a class that is exactly its own.
class Mapped : public FontItem {
    PERCH_RECORD(Mapped, FontItem);
    PERCH_PROPERTY(std::int64_t, Stars);
    PERCH_RECORD_END;

public:
    void setValue(const JSON& json, Excluded) override {
        FontItem::setValue(json, Excluded{"Id", "Children"});
        setStars(Stars() + 1);
    }
};
PERCH_RECORD_SCHEMA(Mapped);

/// Overrides no accessor but the setter of an array.
class Sorted : public FontItem {
    PERCH_RECORD(Sorted, FontItem);
    PERCH_RECORD_END;

public:
    void setChildren(Records<FontItem> members) override {
        setOrdinal(Ordinal() + 1);
        FontItem::setChildren({members.rbegin(), members.rend()});
    }
};
PERCH_RECORD_SCHEMA(Sorted);

struct HolderList : RecordList<HolderList, Holder<Records<Mapped>>> {
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;
};

TEST(OwnRecords, LetOverridesCountInEachWayOfFilling) {
    const std::string text = R"({"Id":9,"Stars":4,"Children":[{"Id":1},{"Id":2}],"Stars":5})";
    const HolderList holders = HolderList::parse(R"([{"Held":[)" + text + "]}]");
    for (const auto& font : {Mapped::parse(text), holders[0]->Held().at(0),
                             makeRecords<Mapped>(JSON::parse("[{}," + text + "]"))[1]}) {
        EXPECT_EQ(font->Id(), 0);
        EXPECT_EQ(font->Stars(), 6);
        EXPECT_EQ(font->Children().at(1)->Id(), 2);
    }
    for (const auto& font :
         {Sorted::parse(text), makeRecords<Sorted>(JSON::parse("[{}," + text + "]"))[1]}) {
        EXPECT_EQ(font->Id(), 9);
        EXPECT_EQ(font->Children().at(0)->Id(), 2);
    }
    EXPECT_EQ(Sorted::parse("{}")->Ordinal(), 1) << "set to none";
    EXPECT_EQ(PerchAppLibrary::explain<Mapped>(JSON::parse(R"({"Stars":4,"x":1})")).used, 1U);
    const auto font = FontItem::create(); // an excluded key may come twice
    font->setValue(JSON::parse(text), Excluded{"Id", "Children", "Id"});
    EXPECT_EQ(changed(font), "{}");
}

/// Two levels of classes with a cached value each, one of several properties.
class Totalled : public FontItem {
    PERCH_RECORD(Totalled, FontItem);
    PERCH_PROPERTY(std::int64_t, Stars);
    PERCH_PROPERTY(std::int64_t, Votes);
    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetTotal, Stars, Votes);

public:
    void forgetTotal() noexcept { total.reset(); }
    std::optional<std::int64_t> total;
};
PERCH_RECORD_SCHEMA(Totalled);

class Titled : public Totalled {
    PERCH_RECORD(Titled, Totalled);
    PERCH_PROPERTY(std::string, Title);
    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetLength, Title);

public:
    void forgetLength() noexcept { length.reset(); }
    std::optional<std::size_t> length;
};
PERCH_RECORD_SCHEMA(Titled);

/// Declares a property again whose change has an effect on the base.
class Recounted : public Titled {
    PERCH_RECORD(Recounted, Titled);
    PERCH_PROPERTY(std::int64_t, Votes);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Recounted);

TEST(OwnRecords, DropEachCachedValueAfterEachWayOfChanging) {
    const auto font = Titled::create();
    const auto kept = [&font] { // 1 for the total, 2 for the length
        EXPECT_EQ(FontList::getFontByKey({font}, "kai", true).size(),
                  font->ProductName() == "Kai" ? 1U : 0U);
        const int values = (font->total ? 1 : 0) + (font->length ? 2 : 0);
        font->total = font->length = 0;
        return values;
    };
    EXPECT_EQ(kept(), 0);
    for (const auto& [text, changed] : {std::pair(R"({"Stars":1})", 1),
                                        {R"({"Votes":2})", 1},
                                        {R"({"Title":"abc"})", 2},
                                        {R"({"ProductName":"Kai"})", 0},
                                        {R"({"ProductName":"Hei","Stars":3,"Title":"x"})", 3}}) {
        font->setValue(JSON::parse(text));
        EXPECT_EQ(kept() & changed, 0) << text;
    }
    font->setVotes(7);
    EXPECT_EQ(kept(), 2);
    font->setTitle("long");
    font->setProductName("Kai");
    EXPECT_EQ(kept(), 1);
    const auto recounted = Recounted::create();
    recounted->total = 0;
    recounted->setVotes(1);
    EXPECT_FALSE(recounted->total);
}

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

struct Bare : FontItem {}; // a class without a schema of its own

/// Overrides what walks over a tree call for each member.
class Shy : public StarFont {
    PERCH_RECORD(Shy, StarFont);
    PERCH_ELEMENTS(Children, Shy);
    PERCH_RECORD_END;

public:
    void setActivated(bool activated) override { FontItem::setActivated(!activated); }
    Dictionary Dict() const override { return {{"Shy", FontItem::Dict().at("Children")}}; }
};
PERCH_RECORD_SCHEMA(Shy);

const std::string document = R"([{"Id":1,"IsGroup":true,"Stars":5,"Children":[
    {"Id":2,"Price":10.5,"Children":[{"Id":3,"Stars":null}]},{"Id":4,"Price":null}]},7])";

TEST(OwnRecords, HaveElementsOfTheClassAtAnyDepth) {
    const StarFontList direct = StarFontList::parse(document);
    for (const auto& list : {direct, StarFontList(JSON::parse(document))}) {
        const auto members = recordsAs<StarFont>(list[0]->Children());
        EXPECT_EQ(members.at(1)->Id() * 10 + members.at(1)->Stars(), 43);
        EXPECT_EQ(recordsAs<StarFont>(members.at(0)->Children()).at(0)->Id(), 3);
        EXPECT_EQ(list.size(), 1U);
    }
    EXPECT_EQ(toText(direct[0]->Children()[0]->value("Price")), "1.05E1");
    EXPECT_EQ(toText(direct[0]->Children()[1]->value("Price")), "null");
    EXPECT_EQ(StarFont().schema().find("Children"), FontItem().schema().find("Children"));
    direct[0]->setChildren({StarFont::create(), FontItem::create()});
    EXPECT_THROW((void)recordsAs<StarFont>(direct[0]->Children()), std::bad_cast);
}

TEST(OwnRecords, FillASingleRecordFromAnObjectAlone) {
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

TEST(OwnRecords, KeepTheirOverridesWithinGroupsOfOtherClasses) {
    const auto leaf = FontItem::create(), shyLeaf = FontItem::create();
    const auto shy = nested<Shy>(1, nested<FontItem>(1, shyLeaf));
    const auto tree = nested<FontItem, StarFont, Bare>(3, shy);
    shy->setChildren({shy->Children().at(0), leaf});
    tree->setActivated(true);
    EXPECT_FALSE(leaf->IsActivated() || shyLeaf->IsActivated()) << "by the override";
    tree->setActivated(false);
    EXPECT_TRUE(leaf->IsActivated() && shyLeaf->IsActivated());
}

#ifdef VELMO_SANITIZER // which makes frames several times as large, or calls slow
constexpr int levels = 2'000;
#else
constexpr int levels = 10'000;
#endif

TEST(OwnRecords, WorkInDeepTreesInLinearTime) {
    const auto leaf = FontItem::create();
    for (const auto& tree : {nested<FontItem>(300'000, leaf), nested<StarFont>(300'000, leaf),
                             nested<StarFont, FontItem>(300'000, leaf)}) {
        leaf->setIsActivated(false);
        tree->setActivated(true);
        EXPECT_TRUE(leaf->IsActivated());
        EXPECT_GT(FontItem::getFontArrayText({tree}).size(), 100'000'000U);
    }
    // These recurse: export by dictionaries, and what a class of its own may override.
    for (const auto& tree :
         {nested<FontItem>(levels, leaf), nested<Bare>(levels, leaf),
          nested<Bare, FontItem>(levels, leaf), nested<Shy, StarFont>(levels, leaf)}) {
        leaf->setIsActivated(false);
        tree->setActivated(true);
        EXPECT_NE(toText(tree->properties()).find(R"("isActivated":true)"), std::string::npos);
        const std::string text = FontItem::getFontArrayText({tree, leaf, tree});
        EXPECT_TRUE(text == toText(FontItem::getFontArray({tree, leaf, tree}))) << text.size();
    }
}

} // namespace
