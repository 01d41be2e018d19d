// Tests what the declaration of a record class does, for an application's own classes.
#include <VelmoCloudEntity/entity/UrlItem.hpp>

#include "RecordTesting.hpp"
#include "Sample.hpp"

#include <PerchAppLibrary/record/internal/RecordWriter.hpp>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// A client's font with properties of its own, one of them of a base's name, with defaults in
/// braces and with each kind of computed property.
class StarredFont : public FontItem {
    PERCH_RECORD(StarredFont, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars, 3);
    PERCH_PROPERTY_SET_BY(std::string, größe_text, setGröße_text, "none");
    PERCH_PROPERTY(float, Weight, 400.5F);
    PERCH_PROPERTY(std::string, Token, "again");
    PERCH_PROPERTY(std::vector<std::string>, One, {"en"});
    PERCH_PROPERTY(std::vector<std::string>, Two, {"en", "de"});
    PERCH_PROPERTY(std::vector<std::int64_t>, Numbers, {3, 4});
    PERCH_COMPUTED(std::string, Badge);
    PERCH_COMPUTED(int, Int);
    PERCH_COMPUTED(std::uint64_t, Large);
    PERCH_COMPUTED(std::vector<std::optional<float>>, Floats);
    PERCH_COMPUTED(std::vector<bool>, Flags);
    PERCH_COMPUTED(std::vector<Dictionary>, Dicts);
    PERCH_COMPUTED(Records<FontItem>, Fonts);

    PERCH_RECORD_END;

public:
    using BaseEntity::reflect;
    using BaseEntity::select;
    const std::string& Copyright() const override { return größe_text(); }
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
int StarredFont::Int() const { return -1; }
std::uint64_t StarredFont::Large() const { return std::numeric_limits<std::uint64_t>::max(); }
std::vector<std::optional<float>> StarredFont::Floats() const { return {0.1F, std::nullopt}; }
std::vector<bool> StarredFont::Flags() const { return {true, false}; }
std::vector<Dictionary> StarredFont::Dicts() const { return {{{"a", 1}}, {}}; }
Records<FontItem> StarredFont::Fonts() const { return {nullptr}; }

TEST(BaseEntity, ReadsAnyPropertyByName) {
    const auto font = StarredFont::create(JSON::parse(R"({"ProductName":"A","Stars":2})"));
    const std::vector<std::string> names{"Stars",   "Badge", "Weight",     "One",    "Two",
                                         "Numbers", "Int",   "Large",      "Floats", "Flags",
                                         "Dicts",   "Fonts", "DisplayName"};
    EXPECT_EQ(toText(font->select(names)),
              R"({"Stars":2,"Badge":"A**","Weight":4.005E2,"One":["en"],"Two":["en","de"],)"
              R"("Numbers":[3,4],"Int":-1,"Large":18446744073709551615,"Floats":[1E-1,null],)"
              R"("Flags":[true,false],"Dicts":[{"a":1},{}],"Fonts":[null],"DisplayName":"A"})");
    EXPECT_EQ(font->value("Dict"), Value(font->Dict()));
    EXPECT_EQ(font->value("Font"), Value({{"name", font->Font().name()}, {"size", 32.0}}));
}

TEST(BaseEntity, TakesAClientsOwnProperties) {
    const auto font = StarredFont::create();
    std::string names;
    for (const auto& [name, value] : font->Dict())
        names.append(name).append(" ");
    EXPECT_TRUE(names.ends_with(" Stars größe_text Weight Token One Two Numbers Children "))
        << names;
    EXPECT_EQ(names.find("Token"), names.rfind("Token")) << "of two of a name, the class's own";
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
    font->setChildren({nullptr});
    EXPECT_EQ(changed(font),
              "{\"UserOrdinal\":2,\"ProductName\":\"a\uFFFD\uFFFD(\","
              "\"Tags\":[-9223372036854775808,-1],\"Children\":[null],\"Weight\":null}");
    std::string written = "{";
    font->schema().writer().write(*font, written);
    EXPECT_EQ(written + "}", toText(font->properties()));
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
    PERCH_PROPERTY(Near<bool>, IsYours);
    PERCH_PROPERTY(Rare<std::string>, SecondNote);
    PERCH_PROPERTY(std::int64_t, Last);
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
    const std::string text = R"({"Last":1,"Note":"a","Id":3,"IsYours":true,"Last":5,"Ordinal":6,
        "Ordinal":"x","Note":"b","Children":[{}]})";
    // The keys of the second object are guessed from the first.
    for (const auto& font : makeRecords<WideFont>(JSON::parse("[" + text + "," + text + "]"))) {
        EXPECT_EQ(font->Children().size(), 1U);
        font->setChildren({});
        EXPECT_EQ(changed(font), R"({"Id":3,"Note":"b","IsYours":true,"Last":5})");
    }
}

/// Returns the texts and the records in them: String(samples).
std::string outline(const Sample& sample) {
    std::string text = sample.String() + "(";
    for (const auto& each : sample.Samples())
        text += outline(*each);
    return text + ")";
}

TEST(Declaration, FillsArraysOfRecordsAsSetValueOfTheClassDoes) {
    const auto sample = Sample::parse(R"({"Samples":[{"String":"a","Samples":[{"String":"b"},7]},
        {"String":"c"}],"String":"t"})");
    EXPECT_EQ(outline(*sample), "t(a(b()kept())c())");
    sample->setValue(JSON::parse(R"({"Samples":[{}]})"));
    EXPECT_EQ(outline(*sample), "t(kept())") << "an array holds what the last document has";
    sample->setValue(JSON::parse(R"({"Samples":[],"String":"u"})"), Excluded());
    EXPECT_EQ(outline(*sample), "u(kept())") << "the mapping alone leaves arrays as they are";
    sample->setValue(JSON::parse(R"({"Constant":8})"));
    EXPECT_EQ(outline(*sample), "u()");
    EXPECT_EQ(sample->properties().at("Constant"), Value(7));
}

TEST(Declaration, FillsArraysLastAndExcludesThemFromTheMapping) {
    struct Watched : Sample {
        using Sample::fill;
        using Sample::setValue;
        void setValue(const JSON& json, Excluded excluded) override {
            for (const std::string& key : excluded.keys())
                keys += key + " ";
            Sample::setValue(json, std::move(excluded));
        }
        void setSamples(Records<Sample>) override { setGuid(String()); }
        std::string keys;
    };
    const auto sample = Sample::parse<Watched>(R"({"Samples":[{}],"String":"set before"})");
    EXPECT_EQ(sample->keys + sample->Guid(), "Samples Single set before");
    sample->fill(JSON(), Excluded{"Value"});
    EXPECT_EQ(sample->keys, "Samples Single Value Samples Single ");
    EXPECT_EQ(makeRecords<Watched>(JSON::parse("[{}]")).at(0)->keys, "Samples Single ");
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

TEST(Declaration, MakesElementsAsTheirClassDecides) {
    struct Stamped : FontItem {
        static std::shared_ptr<Stamped> create(const JSON&) { return nullptr; }
    };
    EXPECT_EQ(makeRecords<Stamped>(JSON::parse("[{}]")), Records<Stamped>{nullptr});
    struct Doubled : FontItem {
        using FontItem::setValue;
        void setValue(const JSON& json) override {
            FontItem::setValue(json);
            setId(2 * Id());
        }
    };
    EXPECT_EQ(makeRecords<Doubled>(JSON::parse(R"([{"Id":2}])"))[0]->Id(), 4);
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
