#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontCollectionList.hpp>
#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchList.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>
#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <gtest/gtest.h>

#include <concepts>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

TEST(Catalogue, RecordsAreMadeToBeSent) {
    EXPECT_EQ(toText(changes(*FontSearchItem::create({.userGuid = "u", .searchKey = "k"}),
                             FontSearchItem())),
              R"({"UserGuid":"u","SearchKey":"k"})");
    const auto apply = FontApplyItem::create(
        {.userGuid = "u", .fontId = 7, .platformId = 2, .appTag = "t", .content = "c"});
    EXPECT_EQ(toText(changes(*apply, FontApplyItem())),
              R"({"UserGuid":"u","FontId":7,"PlatformId":2,"AppTag":"t","Content":"c"})");
    EXPECT_EQ(FontApplyItem::create(
                  {.userGuid = "", .fontId = 0, .platformId = 0, .appTag = "", .content = ""})
                  ->PlatformId(),
              0);
}

/// A client's search record that answers in place of what is stored, and has a property of its own.
class ClientSearch : public FontSearchItem {
    PERCH_RECORD(ClientSearch, FontSearchItem);
    PERCH_PROPERTY(std::string, Extra, "x");
    PERCH_RECORD_END;
    const std::string& SearchKey() const override { return Guid(); }
};
PERCH_RECORD_SCHEMA(ClientSearch);

TEST(Catalogue, ExportsFixedKeysOnly) {
    const auto search = ClientSearch::create(JSON::parse(R"({"Guid":"g","SearchKey":"k","Id":3})"));
    EXPECT_EQ(
        toText(search->Dict()),
        R"({"UserGuid":"","ProductId":0,"SearchKey":"g","PlatformId":1,"SearchCount":0,"Ranking":0})");
    const auto image =
        FontImageItem::create(JSON::parse(R"({"EmSize":48,"UserGuid":"u","IsPrivate":true})"));
    EXPECT_EQ(
        toText(image->Dict()),
        R"({"ProductId":0,"PreviewText":"","BackColor":"#000000","ForeColor":"#FFFFFF","EmSize":4.8E1})");
    EXPECT_EQ(FontImageItem().Dict().at("EmSize").as_double(), 32.0);
    EXPECT_EQ(toText(FontUploadItem().Dict()), R"({"UserGuid":"","ProductFileName":""})");
}

struct ClientEffect : ZRFontEffectEntity {
    using ZRFontEffectEntity::setValue;
    void setValue(const JSON& json) override {
        EXPECT_TRUE(ContainDisabled()) << "defaults come first";
        ZRFontEffectEntity::setValue(json["effect"]);
    }
};

TEST(Catalogue, AnEffectIsFilledThroughItsSetValue) {
    const JSON json =
        JSON::parse(R"({"FontId":1,"effect":{"FontId":2,"ContainDisabled":"false"}})");
    const auto effect = ZRFontEffectEntity::create<ClientEffect>(json);
    EXPECT_EQ(effect->FontId(), 2);
    EXPECT_FALSE(effect->ContainDisabled());
    EXPECT_EQ(ZRFontEffectEntity::create(json)->FontId(), 1);
}

template <class Record>
concept MadeOfNothing = requires { Record::create(); };
template <class Record>
concept MadeOfUser = requires { Record::create({.userGuid = "u"}); };
template <class Record>
concept MadeWithoutContent =
    requires { Record::create({.userGuid = "u", .fontId = 7, .platformId = 2, .appTag = "t"}); };
template <class Record>
concept Exported = requires(const Record& record) { record.Dict(); };

static_assert(!MadeOfNothing<ZRFontEffectEntity> &&
              !std::default_initializable<ZRFontEffectEntity>);
static_assert(!MadeOfUser<FontSearchItem> && !MadeOfUser<FontUploadItem> &&
              !MadeOfUser<WebFontItem>);
static_assert(!MadeWithoutContent<FontApplyItem> && MadeOfNothing<FontApplyItem>);
static_assert(Exported<FontSearchItem> && !Exported<FontCollectionItem> &&
              !Exported<ZRFontEffectEntity>);

} // namespace
