// Tests what the declaration of a record class does, mostly for an application's own classes.
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/entity/UrlItem.hpp>

#include "RecordTesting.hpp"

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

#ifdef __clang__
#pragma clang diagnostic ignored \
    "-Winconsistent-missing-override" // of the property that is declared again
#endif

/// A client's font with properties of its own, one of them of a base's name and one computed.
class StarredFont : public FontItem {
    PERCH_RECORD(StarredFont, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars, 3);
    PERCH_PROPERTY_SET_BY(std::string, note_text, setNote_text, "none");
    PERCH_PROPERTY(float, Weight, 400.5F);
    PERCH_COMPUTED(std::string, Badge);
    PERCH_PROPERTY(std::string, Token, "again");

    PERCH_RECORD_END;

public:
    using BaseEntity::reflect;
    const std::string& Copyright() const override { return note_text(); }
    void setChildren(Records<FontItem> newChildren) override {
        setUserOrdinal(std::ssize(newChildren) + 1);
        FontItem::setChildren(std::move(newChildren));
    }
    void setVersion(std::string newVersion) override {
        FontItem::setVersion(newVersion.empty() ? "" : newVersion + std::to_string(Stars()));
    }
};
PERCH_RECORD_SCHEMA(StarredFont);
std::string StarredFont::Badge() const {
    return ProductName() + std::string(static_cast<std::size_t>(Stars()), '*');
}

TEST(BaseEntity, ReadsAnyPropertyByName) {
    const auto font =
        StarredFont::create(JSON::parse(R"({"ProductName":"A","Stars":2,"Tags":[4,7],"Id":9})"));
    const std::pair<const char*, const char*> expected[] = {
        {"Id", "9"},           {"Stars", "2"},        {"Tags", "[4,7]"},
        {"Badge", R"("A**")"}, {"Weight", "4.005E2"}, {"note_text", R"("none")"},
        {"Children", "[]"},    {"IsOnline", "false"}, {"DisplayName", R"("A")"}};
    for (const auto& [name, text] : expected)
        EXPECT_EQ(toText(font->value(name)), text) << name;
    EXPECT_EQ(font->value("Dict"), Value(font->Dict()));
    EXPECT_EQ(font->value("Font"), Value({{"name", font->Font().name()}, {"size", 32.0}}));
}

TEST(BaseEntity, NamesTheClassAndTheKeyThatItDoesNotHave) {
    const auto font = StarredFont::create();
    for (const char* const unknown : {"", "id", "setId"})
        try {
            ADD_FAILURE() << unknown << ": " << font->value(unknown);
        } catch (const UndefinedKeyError& error) {
            EXPECT_EQ(error.className() + "." + error.key(), std::string("StarredFont.") + unknown);
        }
}

TEST(BaseEntity, TakesAClientsOwnProperties) {
    const auto font = StarredFont::create();
    std::string names;
    for (const auto& [name, value] : font->Dict())
        names.append(name).append(" ");
    EXPECT_TRUE(names.ends_with(" Stars note_text Weight Token Children ")) << names;
    EXPECT_EQ(names.find("Token"), names.rfind("Token")) << "of two of a name, the class's own";
    EXPECT_EQ(font->schema().ownProperties().size(), 5U);
    EXPECT_EQ(toText(font->Dict().at("Copyright")), R"("none")") << "by its overridden accessor";
    // An override in a class that declares properties sees those before it, and no later ones.
    for (const char* const json : {R"({"Version":"1.","Token":"t","Stars":5})",
                                   R"({"Stars":5,"DateStamp":"x","Token":"t","Version":"1."})"}) {
        const auto filled = StarredFont::create(JSON::parse(json));
        EXPECT_EQ(filled->Version() + filled->Token(), "1.3t") << json;
        EXPECT_EQ(filled->UserOrdinal(), 1) << "Children are set to none";
        EXPECT_EQ(toText(filled->Dict().at("Token")), R"("t")") << json;
    }
}

TEST(BaseEntity, ExportsWhateverASetterWasGiven) {
    const auto font = StarredFont::create();
    font->setProductName("a\xFF\xC3(");
    font->setTags({std::numeric_limits<std::int64_t>::min(), -1});
    font->setWeight(std::numeric_limits<float>::infinity());
    EXPECT_EQ(changed(font),
              "{\"ProductName\":\"a\uFFFD\uFFFD(\",\"Tags\":[-9223372036854775808,-1],"
              "\"Weight\":null}");
}

TEST(BaseEntity, ClearsTheExceptionAndNothingElse) {
    const auto item = UrlItem::create(JSON::parse(
        R"({"Exception":true,"ErrorCode":5,"ExceptionCode":"c","ExceptionMessage":"m","Token":"t"})"));
    item->clearException();
    EXPECT_EQ(changed(item), R"({"Token":"t"})");
}

TEST(BaseEntityDeathTest, EndsTheProcessOverAnExclusionThatIsNoStoredProperty) {
    const auto font = StarredFont::create();
    EXPECT_DEATH((void)font->reflect(Excluded{"Nonsense"}),
                 "StarredFont has no stored property \"Nonsense\"");
    EXPECT_DEATH((void)font->reflect(Excluded{"Badge"}), "Badge"); // computed
    EXPECT_DEATH((void)font->reflect(Excluded{"Id", "Id"}), "Id");
}

/// Sparse texts and flags of a subclass, and of a subclass of that, which has more properties than
/// usual.
class NotedFont : public FontItem {
    PERCH_RECORD(NotedFont, FontItem);

    PERCH_PROPERTY(Rare<std::string>, Note);
    PERCH_PROPERTY(Near<bool>, IsMine);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(NotedFont);

class WideFont : public NotedFont {
    PERCH_RECORD(WideFont, NotedFont);

    PERCH_PROPERTY(std::int64_t, A);
    PERCH_PROPERTY(std::int64_t, B);
    PERCH_PROPERTY(Near<bool>, IsYours);
    PERCH_PROPERTY(std::int64_t, C);
    PERCH_PROPERTY(std::int64_t, D);
    PERCH_PROPERTY(std::int64_t, E);
    PERCH_PROPERTY(std::int64_t, F);
    PERCH_PROPERTY(std::int64_t, G);
    PERCH_PROPERTY(std::int64_t, H);
    PERCH_PROPERTY(Rare<std::string>, SecondNote);
    PERCH_PROPERTY(std::int64_t, I);
    PERCH_PROPERTY(std::int64_t, J);
    PERCH_PROPERTY(std::int64_t, K);

    PERCH_ELEMENTS(Children, FontItem);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(WideFont);

TEST(Declaration, KeepsSparseTextsAndFlagsOfAllClassesApart) {
    struct BySetters : WideFont {};
    for (const Property& property : WideFont::create()->schema().properties())
        if (const std::string kind = property.kind(); kind == "Bool" || kind == "String") {
            const std::string value = kind == "Bool" ? "true" : "\"mine\"";
            const std::string text = "{\"" + std::string(property.name) + "\":" + value + "}";
            EXPECT_EQ(changed(WideFont::parse(text)), text);
            EXPECT_EQ(changed(WideFont::parse<BySetters>(text)), text);
        }
}

TEST(Declaration, FillsAClassOfManyProperties) {
    ASSERT_GT(WideFont::create()->schema().properties().size(), 64U);
    const std::string text = R"({"K":1,"A":2,"Id":3,"J":4,"K":5,"B":6,"B":"x","Children":[{}]})";
    // The keys of the second object are guessed from the first.
    for (const auto& font : makeRecords<WideFont>(JSON::parse("[" + text + "," + text + "]"))) {
        EXPECT_EQ(font->Children().size(), 1U);
        font->setChildren({});
        EXPECT_EQ(changed(font), R"({"Id":3,"A":2,"J":4,"K":5})");
    }
}

/// A client's record with arrays of records of its own class and of one of the library's, and with
/// names that the library has as well.
class Album : public BaseEntity {
    PERCH_RECORD(Album, BaseEntity);

    PERCH_PROPERTY(Records<FontItem>, Fonts);
    PERCH_PROPERTY(std::string, Value);
    PERCH_PROPERTY(Records<Album>, Parts);
    PERCH_CONSTANT(bool, IsShared, true);

    PERCH_RECORD_END;

public:
    /// The values and, of fonts, the Ids: Value(fonts;parts).
    std::string outline() const {
        std::string text = Value() + "(";
        for (const auto& font : Fonts())
            text += std::to_string(font->Id());
        text += ";";
        for (const auto& part : Parts())
            text += part->outline();
        return text + ")";
    }
    void changed(const std::string&) = delete; // the library has names of its own
    void stored(const std::string&) = delete;
    void make() = delete;
};
PERCH_RECORD_SCHEMA(Album);

/// Defaults in braces, and what a computed property may be.
class Defaults : public BaseEntity {
    PERCH_RECORD(Defaults, BaseEntity);

    PERCH_PROPERTY(std::vector<std::string>, One, {"en"});
    PERCH_PROPERTY(std::vector<std::string>, Two, {"en", "de"});
    PERCH_PROPERTY(std::vector<std::string>, Three, {"en", "de", "fr"});
    PERCH_PROPERTY(std::vector<std::int64_t>, Numbers, {3, 4});
    PERCH_PROPERTY(std::int64_t, Watched);
    PERCH_COMPUTED(int, Int);
    PERCH_COMPUTED(std::uint64_t, Large);
    PERCH_COMPUTED(double, Real);
    PERCH_COMPUTED(std::optional<std::int64_t>, Some);
    PERCH_COMPUTED(std::optional<double>, None);
    PERCH_COMPUTED(std::vector<std::optional<float>>, Floats);
    PERCH_COMPUTED(Records<FontItem>, Fonts);

    PERCH_RECORD_END;
    PERCH_ON_CHANGE(count, Watched);

public:
    int changes = 0;

private:
    void count() noexcept { ++changes; }
};
PERCH_RECORD_SCHEMA(Defaults);
int Defaults::Int() const { return -1; }
std::uint64_t Defaults::Large() const { return std::numeric_limits<std::uint64_t>::max(); }
double Defaults::Real() const { return 0.1; }
std::optional<std::int64_t> Defaults::Some() const { return 5; }
std::optional<double> Defaults::None() const { return std::nullopt; }
std::vector<std::optional<float>> Defaults::Floats() const { return {0.1F, std::nullopt}; }
Records<FontItem> Defaults::Fonts() const { return {nullptr}; }

/// Declares a property of its base again. A change of it has an effect on the base.
class Redeclared : public Defaults {
    PERCH_RECORD(Redeclared, Defaults);

    PERCH_PROPERTY(std::int64_t, Watched);
    PERCH_PROPERTY(std::int64_t, Other);

    PERCH_RECORD_END;
    PERCH_ON_CHANGE(countOther, Other);

public:
    int otherChanges = 0;

private:
    void countOther() noexcept { ++otherChanges; }
};
PERCH_RECORD_SCHEMA(Redeclared);

TEST(Declaration, TakesDefaultsAsTheyAreWritten) {
    EXPECT_EQ(toText(Defaults::create()->value("One")), R"(["en"])");
    EXPECT_EQ(toText(Defaults::create()->value("Two")), R"(["en","de"])");
    EXPECT_EQ(toText(Defaults::create()->value("Three")), R"(["en","de","fr"])");
    EXPECT_EQ(toText(Defaults::create()->value("Numbers")), "[3,4]");
}

TEST(Declaration, ReadsComputedPropertiesOfAnyKindByName) {
    const std::pair<const char*, const char*> expected[] = {
        {"Int", "-1"},    {"Large", "18446744073709551615"}, {"Real", "1E-1"},   {"Some", "5"},
        {"None", "null"}, {"Floats", "[1E-1,null]"},         {"Fonts", "[null]"}};
    for (const auto& [name, text] : expected)
        EXPECT_EQ(toText(Defaults::create()->value(name)), text) << name;
}

TEST(Declaration, KeepsTheEffectOfAPropertyThatASubclassDeclaresAgain) {
    const auto record = Redeclared::create();
    record->setWatched(1);
    EXPECT_EQ(record->changes, 1);
    record->setOther(1);
    EXPECT_EQ(record->otherChanges, 1);
    EXPECT_EQ(record->changes, 1);
}

TEST(Declaration, FillsArraysOfRecordsFromTheirDeclaration) {
    const auto album = Album::parse(R"({"Fonts":[{"Id":1},7],"Value":"t",
        "Parts":[{"Value":"a","Parts":[{"Value":"b","Fonts":[{"Id":2}]}]},{"Value":"c"}]})");
    EXPECT_EQ(album->outline(), "t(10;a(;b(2;))c(;))");
    album->setValue(JSON::parse(R"({"Fonts":[{"Id":3}],"Parts":"x"})"));
    EXPECT_EQ(album->outline(), "t(3;)") << "an array holds what the last document has";
    album->setValue(JSON::parse(R"({"Fonts":[],"Value":"u"})"), Excluded());
    EXPECT_EQ(album->outline(), "u(3;)") << "the mapping alone leaves arrays as they are";
    album->setValue(JSON::parse(R"({"IsShared":false})"));
    album->setValue(std::string("v"));
    EXPECT_EQ(album->outline(), "v(;)");
    EXPECT_EQ(album->properties().at("IsShared"), Value(true)) << "a constant";
}

TEST(Declaration, FillsArraysAfterAllOtherPropertiesAndExcludesThemFromTheMapping) {
    struct WatchedAlbum : Album {
        using Album::fill;
        using Album::setValue;
        void setValue(const JSON& json, Excluded excluded) override {
            for (const std::string& key : excluded.keys())
                keys += key + " ";
            Album::setValue(json, std::move(excluded));
        }
        void setFonts(Records<FontItem>) override { setGuid(Value()); }
        std::string keys;
    };
    const auto album = Album::parse<WatchedAlbum>(R"({"Fonts":[{}],"Value":"set before"})");
    EXPECT_EQ(album->keys + album->Guid(), "Fonts Parts set before");
    album->fill(JSON(), Excluded{"Value"});
    EXPECT_EQ(album->keys, "Fonts Parts Value Fonts Parts ");
    EXPECT_EQ(makeRecords<WatchedAlbum>(JSON::parse("[{}]")).at(0)->keys, "Fonts Parts ");
}

TEST(Declaration, EmptiesAnArrayWhoseGetterIsOverridden) {
    struct Folded : FontItem {
        const Records<FontItem>& Children() const override { return none; }
        Records<FontItem> none;
    };
    const auto font = FontItem::create<Folded>(JSON::parse(R"({"Children":[{}]})"));
    EXPECT_EQ(font->FontItem::Children().size(), 1U);
    font->setValue(JSON::parse("{}"));
    EXPECT_EQ(font->FontItem::Children().size(), 0U);
}

TEST(Declaration, MakesTheElementsOfAnArrayByTheirOwnCreate) {
    struct Stamped : FontItem {
        static std::shared_ptr<Stamped> create(const JSON&) { return nullptr; }
    };
    EXPECT_EQ(makeRecords<Stamped>(JSON::parse("[{}]")), Records<Stamped>{nullptr});
}

TEST(Declaration, FillsTheDeepestDocument) { // run again with a small stack
    std::string text = "{}";
    for (int depth = 1; depth < 512; ++depth)
        text = R"({"Children":[)" + text + "]}";
    int depth = 1;
    for (auto font = FontItem::create(JSON::parse(text)); !font->Children().empty(); ++depth)
        font = font->Children()[0];
    EXPECT_EQ(depth, 512);
}

} // namespace
