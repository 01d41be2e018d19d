#include <PerchAppLibrary/BaseEntity.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <VelmoCloudEntity/entity/UrlItem.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <gtest/gtest.h>

#include <limits>

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
    void setVersion(std::string newVersion) override {
        FontItem::setVersion(newVersion.empty() ? "" : "v" + newVersion);
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
    EXPECT_EQ(toText(font->value("Font").at("size")), "3.2E1");
}

TEST(BaseEntity, NamesTheClassAndTheKeyThatItDoesNotHave) {
    const auto font = StarredFont::create();
    for (const char* const unknown : {"", "id", "Badge ", "setId", "value"})
        try {
            ADD_FAILURE() << unknown << ": " << font->value(unknown);
        } catch (const UndefinedKeyError& error) {
            EXPECT_EQ(error.className() + "." + error.key(), std::string("StarredFont.") + unknown);
            EXPECT_NE(std::string(error.what()).find("StarredFont"), std::string::npos);
        }
}

TEST(BaseEntity, TakesAClientsOwnProperties) {
    const auto font = StarredFont::create();
    std::string names;
    for (const auto& [name, value] : font->Dict())
        names.append(name).append(" ");
    EXPECT_TRUE(names.ends_with("TopCount Stars note_text Weight Token Children ")) << names;
    EXPECT_EQ(names.find("Token"), names.rfind("Token")) << "of two of a name, the class's own";
    EXPECT_EQ(font->schema().ownProperties().size(), 5U);
    for (const char* const json :
         {R"({"Version":"1","Token":"t"})", R"({"DateStamp":"x","Token":"t","Version":"1"})"}) {
        const auto filled = StarredFont::create(JSON::parse(json));
        EXPECT_EQ(filled->Version() + filled->Token(), "v1t") << json;
        EXPECT_EQ(toText(filled->Dict().at("Token")), R"("t")") << json;
    }
}

TEST(BaseEntity, ExportsWhateverASetterWasGiven) {
    const auto font = StarredFont::create();
    font->setProductName("a\xFF\xC3(");
    font->setTags({std::numeric_limits<std::int64_t>::min(), -1});
    font->setWeight(std::numeric_limits<float>::infinity());
    EXPECT_EQ(font->ProductName(), "a\xFF\xC3(");
    EXPECT_EQ(changed(font),
              "{\"ProductName\":\"a\uFFFD\uFFFD(\",\"Tags\":[-9223372036854775808,-1],"
              "\"Weight\":null}");
    font->setWeight(12.7F);
    const auto again = StarredFont::create(JSON::parse(toText(font->Dict())));
    EXPECT_EQ(toText(again->Dict()), toText(font->Dict()));
    EXPECT_EQ(again->Weight(), 12.7F);
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

} // namespace
