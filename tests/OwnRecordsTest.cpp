// Tests records of a client's own classes: how they are named and overridden, and deep trees of
// them.
#include "RecordTesting.hpp"

using namespace VelmoCloudEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

// A base of one's own with the name of the library's, and a record in the library's namespace.
namespace client {
class BaseEntity : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(BaseEntity, PerchAppLibrary::BaseEntity);
    PERCH_PROPERTY(std::string, Name);
    PERCH_RECORD_END;
    PERCH_LABELS(NameLabels, (name, Name));
};
PERCH_RECORD_SCHEMA(BaseEntity);

class Pupil : public BaseEntity {
    PERCH_RECORD(Pupil, BaseEntity);
    PERCH_PROPERTY(std::int64_t, Age, 7);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(NameLabels);
};
PERCH_RECORD_SCHEMA(Pupil);
} // namespace client

namespace PerchAppLibrary {
class OwnBase : public BaseEntity {
    PERCH_RECORD(OwnBase, BaseEntity);
    PERCH_PROPERTY(std::string, Name);
    PERCH_RECORD_END;
    PERCH_LABELS(NameLabels, (name, Name));
};
PERCH_RECORD_SCHEMA(OwnBase);
} // namespace PerchAppLibrary

namespace {

class OwnPupil : public PerchAppLibrary::OwnBase {
    PERCH_RECORD(OwnPupil, PerchAppLibrary::OwnBase);
    PERCH_PROPERTY(std::int64_t, Age, 7);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(NameLabels);
};
PERCH_RECORD_SCHEMA(OwnPupil);

template <class T>
class Holder : public PerchAppLibrary::OwnBase {
    PERCH_RECORD(Holder, PerchAppLibrary::OwnBase);
    PERCH_PROPERTY(T, Held);
    PERCH_PROPERTY(Records<Holder>, Parts);
    PERCH_COMPUTED(std::vector<bool>, Flags);
    PERCH_COMPUTED(std::vector<Dictionary>, Dicts);
    PERCH_RECORD_END;
    PERCH_INHERIT_LABELS(NameLabels);
};
PERCH_RECORD_SCHEMA(Holder<T>, template <class T>);
template <class T>
std::vector<bool> Holder<T>::Flags() const {
    return {true, false};
}
template <class T>
std::vector<Dictionary> Holder<T>::Dicts() const {
    return {{{"a", 1}}, {}};
}

TEST(OwnRecords, InheritLabelsAndPropertiesWhateverTheyAreCalledAndWhereverTheyStand) {
    for (const std::shared_ptr<PerchAppLibrary::BaseEntity>& record :
         {std::shared_ptr<PerchAppLibrary::BaseEntity>(client::Pupil::create({.name = "A"})),
          {OwnPupil::create({.name = "A"})},
          {client::BaseEntity::create<client::Pupil>({.name = "A"})}})
        EXPECT_EQ(toText(record->value("Name")) + toText(record->value("Age")), "\"A\"7");
    EXPECT_EQ(changed(client::Pupil::parse(R"({"Age":5,"Name":"B","Id":1})")),
              R"({"Id":1,"Name":"B","Age":5})");
    const std::string text = R"({"Held":"x","Parts":[{"Held":"y"}]})";
    EXPECT_EQ(Holder<std::string>::parse(text)->Parts().at(0)->Held(), "y");
    const auto flag = Holder<bool>::create({.name = "A"});
    EXPECT_EQ(toText(flag->value("Flags")) + toText(flag->value("Dicts")),
              R"([true,false][{"a":1},{}])");
}

/// Overrides the mapping of a class that is exactly its own.
class Mapped : public FontItem {
    PERCH_RECORD(Mapped, FontItem);
    PERCH_PROPERTY(std::int64_t, Stars);
    PERCH_RECORD_END;

public:
    void setValue(const JSON& json, Excluded excluded) override {
        std::vector<std::string> keys(excluded.keys().begin(), excluded.keys().end());
        keys.emplace_back("Id");
        FontItem::setValue(json, Excluded(std::move(keys)));
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
        FontItem::setChildren({members.rbegin(), members.rend()});
    }
};
PERCH_RECORD_SCHEMA(Sorted);

/// Reads the record as the second of an array, without PERCH_ELEMENTS.
template <class Item>
std::shared_ptr<Item> readInArray(const std::string& text) {
    PerchAppLibrary::RecordsSink<Item> sink;
    PerchAppLibrary::readRecords(JSON::parse("[{}," + text + "]"), false, sink);
    return sink.records.at(1);
}

TEST(OwnRecords, LetOverridesCountInEachWayOfFilling) {
    const std::string text = R"({"Id":9,"Stars":4,"Children":[{"Id":1},{"Id":2}],"Stars":5})";
    for (const auto& font : {Mapped::parse(text), readInArray<Mapped>(text)}) {
        EXPECT_EQ(font->Id(), 0);
        EXPECT_EQ(font->Stars(), 6);
        EXPECT_EQ(font->Children().at(1)->Id(), 2);
    }
    for (const auto& font : {Sorted::parse(text), readInArray<Sorted>(text)}) {
        EXPECT_EQ(font->Id(), 9);
        EXPECT_EQ(font->Children().at(0)->Id(), 2);
    }
    const auto font = FontItem::create(); // an excluded key may come twice
    font->setValue(JSON::parse(text), Excluded{"Id", "Children", "Id"});
    EXPECT_EQ(changed(font), "{}");
}

#ifdef __clang__
#pragma clang diagnostic ignored \
    "-Winconsistent-missing-override" // of the property that is declared again
#endif

/// Two levels of classes with a cached value each, of several properties.
class Totalled : public FontItem {
    PERCH_RECORD(Totalled, FontItem);
    PERCH_PROPERTY(std::int64_t, Stars);
    PERCH_PROPERTY(std::int64_t, Votes);
    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetTotal, Stars, Votes);

public:
    std::int64_t total() const { return *(m_total ? m_total : m_total = Stars() + Votes()); }

private:
    void forgetTotal() noexcept { m_total.reset(); }
    mutable std::optional<std::int64_t> m_total;
};
PERCH_RECORD_SCHEMA(Totalled);

class Titled : public Totalled {
    PERCH_RECORD(Titled, Totalled);
    PERCH_PROPERTY(std::string, Title);
    PERCH_PROPERTY(std::int64_t, Votes);
    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetLength, Title);

public:
    std::size_t length() const { return *(m_length ? m_length : m_length = Title().size()); }

private:
    void forgetLength() noexcept { m_length.reset(); }
    mutable std::optional<std::size_t> m_length;
};
PERCH_RECORD_SCHEMA(Titled);

TEST(OwnRecords, DropEachCachedValueAfterEachWayOfChanging) {
    const auto font = Titled::create();
    const auto isFresh = [&font] {
        return font->total() == font->Stars() + font->Votes() &&
               font->length() == font->Title().size() &&
               FontList::getFontByKey({font}, "kai", true).size() ==
                   (font->ProductName() == "Kai" ? 1U : 0U);
    };
    EXPECT_TRUE(isFresh());
    for (const char* const text :
         {R"({"Stars":1})", R"({"Votes":2})", R"({"Title":"abc"})", R"({"ProductName":"Kai"})",
          R"({"ProductName":"Hei","Stars":3,"Votes":4,"Title":"x"})"}) {
        font->setValue(JSON::parse(text));
        EXPECT_TRUE(isFresh()) << text;
    }
    font->setVotes(7);
    EXPECT_TRUE(isFresh());
    font->setTitle("long");
    font->setProductName("Kai");
    EXPECT_TRUE(isFresh());
}

/// Returns both names from one member, which then holds the second.
struct OneMember : FontItem {
    const std::string& ProductName() const override { return name = FontItem::ProductName(); }
    const std::string& ProductSetName() const override { return name = FontItem::ProductSetName(); }
    mutable std::string name;
};

TEST(OwnRecords, MayReturnTwoNamesFromOneMember) {
    const auto font = FontItem::create<OneMember>(
        JSON::parse(R"({"ProductName":"Kai","ProductSetName":"Song"})"));
    for (const auto& [key, count] : {std::pair("kai", 1U), {"song", 1U}, {"ai", 1U}, {"x", 0U}}) {
        EXPECT_EQ(FontList::getFontByKey({font}, key, true).size(), count) << key;
        EXPECT_EQ(FontList::getSearchResultFont({font}, key).first.size(), count) << key;
    }
}

/// A font class with trees of its own.
class Star : public FontItem {
    PERCH_RECORD(Star, FontItem);
    PERCH_PROPERTY(std::int64_t, Stars);
    PERCH_ELEMENTS(Children, Star);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Star);

struct Bare : FontItem {}; // a class without a schema of its own

/// Overrides what a walk calls.
class Shy : public FontItem {
    PERCH_RECORD(Shy, FontItem);
    PERCH_RECORD_END;

public:
    void setActivated(bool activated) override { FontItem::setActivated(!activated); }
    Dictionary Dict() const override {
        Dictionary dictionary = FontItem::Dict();
        dictionary["Shy"] = true;
        return dictionary;
    }
};
PERCH_RECORD_SCHEMA(Shy);

/// Adds groups around a tree, by turns of these classes.
template <class... Classes>
std::shared_ptr<FontItem> nested(int levels, std::shared_ptr<FontItem> tree) {
    const auto wrap = [&tree](std::shared_ptr<FontItem> group) {
        group->setGroup("g");
        group->setChildren({std::move(tree)});
        tree = std::move(group);
    };
    for (; levels > 0; levels -= static_cast<int>(sizeof...(Classes)))
        (wrap(std::make_shared<Classes>()), ...);
    return tree;
}

TEST(OwnRecords, KeepTheirOverridesWithinGroupsOfOtherClasses) {
    const auto leaf = FontItem::create(), shyLeaf = FontItem::create();
    const auto shy = nested<Shy>(1, nested<FontItem>(1, shyLeaf));
    const auto tree = nested<FontItem, Star, Bare>(3, shy);
    shy->setChildren({shy->Children().at(0), leaf});
    tree->setActivated(true);
    EXPECT_FALSE(leaf->IsActivated() || shyLeaf->IsActivated()) << "by the override";
    tree->setActivated(false);
    EXPECT_TRUE(leaf->IsActivated() && shyLeaf->IsActivated());
    const std::string text = FontItem::getFontArrayText({tree, shy});
    EXPECT_EQ(text, toText(FontItem::getFontArray({tree, shy})));
    EXPECT_EQ(text.find(R"("Shy":true)") == text.rfind(R"("Shy":true)"), false);
}

TEST(OwnRecords, WorkInDeepTreesInLinearTime) {
    const auto leaf = FontItem::create();
    for (const auto& tree : {nested<Star>(300'000, leaf), nested<Star, FontItem>(300'000, leaf)}) {
        leaf->setIsActivated(false);
        tree->setActivated(true);
        EXPECT_TRUE(leaf->IsActivated());
        EXPECT_GT(FontItem::getFontArrayText({tree}).size(), 100'000'000U);
    }
    // These may override what a walk calls, so it recurses.
    for (const auto& tree : {nested<Bare>(10'000, leaf), nested<Bare, FontItem>(10'000, leaf),
                             nested<Shy, Star>(10'000, leaf)}) {
        tree->setActivated(true);
        EXPECT_TRUE(leaf->IsActivated());
        EXPECT_GT(FontItem::getFontArrayText({tree}).size(), 5'000'000U);
    }
}

} // namespace
