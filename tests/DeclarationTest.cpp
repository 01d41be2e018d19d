#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>

#include <pthread.h>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// Sparse texts and flags of a subclass, and of a subclass of that.
class NotedFont : public FontItem {
    PERCH_RECORD(NotedFont, FontItem);

    PERCH_PROPERTY(Rare<std::string>, Note);
    PERCH_PROPERTY(Near<bool>, IsMine);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(NotedFont);

class NotedTwice : public NotedFont {
    PERCH_RECORD(NotedTwice, NotedFont);

    PERCH_PROPERTY(Near<bool>, IsYours);
    PERCH_PROPERTY(Rare<std::string>, SecondNote);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(NotedTwice);

TEST(Declaration, KeepsSparseTextsAndFlagsOfAllClassesApart) {
    // Each is set alone: no other value may change with it.
    const auto untouched = NotedTwice::create()->properties();
    int places = 0;
    for (const Property& property : NotedTwice::create()->schema().properties()) {
        const auto record = NotedTwice::create();
        if (const auto* const text = std::get_if<FieldAccess<std::string>>(&property.access);
            text != nullptr && text->place == Place::sparse)
            ((*record).*text->set)("mine");
        else if (const auto* const flag = std::get_if<FieldAccess<bool>>(&property.access);
                 flag != nullptr && flag->place == Place::flag)
            ((*record).*flag->set)(true);
        else
            continue;
        ++places;
        for (const auto& [name, value] : record->properties())
            EXPECT_EQ(value != untouched.at(name), name == property.name)
                << property.name << " and " << name;
    }
    EXPECT_EQ(places, 6 + 2 + 7 + 5 + 2 + 2); // of BaseEntity, FontItem and the two classes above
}

TEST(Declaration, FillsPlacesFromJSONAsThroughSetters) {
    struct BySetters : NotedTwice {};
    const JSON first =
        JSON::parse(R"({"Note":"n","IsMine":"true","IsYours":1,"Token":5,"FreeTag":"f"})");
    const JSON second =
        JSON::parse(R"({"Note":"","IsMine":false,"IsYours":[],"Token":{},"FreeTag":null,
        "IsGroup":true,"IsGroup":"x","SecondNote":"a","SecondNote":{}})");
    for (const std::shared_ptr<NotedTwice>& record :
         {NotedTwice::create(), NotedTwice::create<NotedTwice>(),
          std::shared_ptr<NotedTwice>(new BySetters)}) {
        record->setValue(first);
        EXPECT_EQ(std::tuple(record->Note(), record->IsMine(), record->IsYours(), record->Token()),
                  std::tuple("n", true, true, "5"));
        record->setValue(second);
        EXPECT_EQ(std::tuple(record->Note(), record->IsMine(), record->IsYours(), record->Token()),
                  std::tuple("", false, true, "5"));
        EXPECT_EQ(std::tuple(record->FreeTag(), record->IsGroup(), record->SecondNote()),
                  std::tuple("f", false, ""));
    }
}

/// A client's record with arrays of records: of its own class and of one of the library's.
class Album : public BaseEntity {
    PERCH_RECORD(Album, BaseEntity);

    PERCH_PROPERTY(Records<FontItem>, Fonts);
    PERCH_PROPERTY(std::string, Title);
    PERCH_PROPERTY(Records<Album>, Parts);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Album);

/// Notes what is set when an array comes.
struct WatchedAlbum : Album {
    void setFonts(Records<FontItem> fonts) override {
        titleWhenFontsCame = Title();
        Album::setFonts(std::move(fonts));
    }
    std::string titleWhenFontsCame;
};

TEST(Declaration, FillsArraysOfRecordsFromTheirDeclaration) {
    const char* const text = R"({"Fonts":[{"Id":1,"Children":[{"Id":2}]},7],"Title":"t",
        "Parts":[{"Title":"a","Parts":[{"Title":"b","Fonts":[{}]}]},{"Title":"c"}]})";
    EXPECT_EQ(Album::parse<WatchedAlbum>(text)->titleWhenFontsCame, "t") << "arrays come last";
    const auto album = Album::parse(text);
    ASSERT_EQ(album->Fonts().size(), 2U);
    EXPECT_EQ(album->Fonts()[0]->Children().at(0)->Id(), 2);
    ASSERT_EQ(album->Parts().size(), 2U);
    EXPECT_EQ(album->Parts()[0]->Parts().at(0)->Fonts().size(), 1U);
    EXPECT_EQ(album->Parts()[1]->Title(), "c");
    // Filled again, an array holds what the document says, never more.
    album->setValue(JSON::parse(R"({"Fonts":[{"Id":3}],"Parts":"x"})"));
    EXPECT_EQ(album->Fonts().at(0)->Id(), 3);
    EXPECT_TRUE(album->Parts().empty());
    EXPECT_EQ(album->Title(), "t");
    album->setValue(JSON::parse("5"));
    EXPECT_TRUE(album->Fonts().empty());
    // The mapping alone leaves arrays as they are.
    album->setFonts({FontItem::create()});
    album->setValue(JSON::parse(R"({"Fonts":[],"Title":"u"})"), Excluded());
    EXPECT_EQ(std::tuple(album->Fonts().size(), album->Title()), std::tuple(1U, "u"));
}

/// Arrays of records below a class that fills the rest in its own way.
class UserWithFonts : public UserItem {
    PERCH_RECORD(UserWithFonts, UserItem);

    PERCH_PROPERTY(Records<FontItem>, Owned);
    PERCH_PROPERTY(Records<FontItem>, Fonts); // a key that users leave to the user-font maps

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(UserWithFonts);

TEST(Declaration, FillsArraysBelowAnOverriddenSetValue) {
    const auto user = UserWithFonts::parse(R"({"Tel":"1","Owned":[{"Id":1}],"Fonts":[{"Id":2}]})");
    EXPECT_EQ(std::tuple(user->Tel(), user->Owned().size(), user->Fonts().size()),
              std::tuple("1", 1U, 0U));
    struct Detour : FontItem {
        using FontItem::setValue;
        void setValue(const JSON& json, Excluded excluded) override {
            FontItem::setValue(json["font"], excluded);
        }
    };
    const auto font =
        FontItem::create<Detour>(JSON::parse(R"({"font":{"Id":1},"Children":[{"Id":2}]})"));
    EXPECT_EQ(std::tuple(font->Id(), font->Children().at(0)->Id()), std::tuple(1, 2));
}

/// Names and functions that a client's record may have.
class Crowded : public BaseEntity {
    PERCH_RECORD(Crowded, BaseEntity);

    PERCH_PROPERTY(std::string, Value);
    PERCH_PROPERTY(std::string, Note);
    PERCH_CONSTANT(std::string, Kind, "crowded");

    PERCH_RECORD_END;

public:
    virtual int area() const = 0;
    virtual void setNote(int number) { setNote(std::to_string(number)); }
    void changed(const std::string&) { ++calls; }
    void stored(const std::string&) { ++calls; }
    void make() { ++calls; }
    int calls = 0;
};
PERCH_RECORD_SCHEMA(Crowded);

TEST(Declaration, LeavesAClientsOwnNamesAndFunctionsAlone) {
    struct Square : Crowded {
        int area() const override { return 4; }
    };
    const auto square =
        Crowded::create<Square>(JSON::parse(R"({"Value":"v","Note":"n","Kind":"x"})"));
    square->setValue(std::string("w"));
    square->setNote(7);
    EXPECT_EQ(toText(square->value("Value")) + square->Note() + square->Kind(), R"("w"7crowded)");
    EXPECT_EQ(square->calls, 0);
}

TEST(Declaration, MakesTheElementsOfAnArrayByTheirOwnCreate) {
    struct Stamped : FontItem {
        static std::shared_ptr<Stamped> create(const JSON& json) {
            auto font = FontItem::create<Stamped>(json);
            font->setNewly = true;
            return font;
        }
        bool setNewly = false;
    };
    EXPECT_TRUE(makeRecords<Stamped>(JSON::parse("[{}]")).at(0)->setNewly);
}

TEST(Declaration, EmptiesAnArrayWhoseGetterIsOverridden) {
    class Folded : public FontItem {
    public:
        const Records<FontItem>& Children() const override {
            return isFolded ? none : FontItem::Children();
        }
        bool isFolded = false;
        Records<FontItem> none;
    };
    const auto font = FontItem::create<Folded>(JSON::parse(R"({"Children":[{}]})"));
    font->isFolded = true;
    font->setValue(JSON::parse("{}"));
    font->isFolded = false;
    EXPECT_TRUE(font->Children().empty());
}

TEST(Declaration, FillsARecordFromItsOwnJSON) {
    const auto user = UserItem::parse(R"({"sms_token":{"sms_token":"inner","Tel":"1"}})");
    user->setValue(user->sms_token());
    EXPECT_EQ(user->sms_token().as<std::string>(), "inner");
    EXPECT_EQ(user->Tel(), "1");
}

TEST(Declaration, FillsTheDeepestDocumentOnASmallStack) {
    std::string text = "{}";
    for (int depth = 1; depth < 512; ++depth)
        text = R"({"Children":[)" + text + "]}";
    const JSON json = JSON::parse(text);
    const auto fill = [](void* given) -> void* {
        int depth = 0;
        std::shared_ptr<FontItem> font = FontItem::create(*static_cast<const JSON*>(given));
        for (const FontItem* each = font.get(); each != nullptr; ++depth)
            each = each->Children().empty() ? nullptr : each->Children().front().get();
        return new int(depth);
    };
#ifdef __SANITIZE_ADDRESS__
    constexpr std::size_t room = 16U << 20U; // its frames are larger
#elif defined __has_feature
    constexpr std::size_t room = __has_feature(address_sanitizer) ? 16U << 20U : 512U << 10U;
#else
    constexpr std::size_t room = 512U << 10U;
#endif
    pthread_attr_t attributes{};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, room);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, fill, const_cast<JSON*>(&json)), 0);
    void* result = nullptr;
    pthread_join(thread, &result);
    const std::unique_ptr<int> depth(static_cast<int*>(result));
    EXPECT_EQ(*depth, 512);
}

TEST(Declaration, GivesASubclassTheLabelsOfItsBases) {
    const std::shared_ptr<NotedFont> noted =
        NotedFont::create({.id = 7, .productName = "A", .isPrivate = true});
    EXPECT_EQ(std::tuple(noted->Id(), noted->ProductName(), noted->IsPrivate()),
              std::tuple(7, "A", true));
    const std::shared_ptr<NotedTwice> group = NotedTwice::create({.groupTag = "x"});
    EXPECT_EQ(std::tuple(group->IsGroup(), group->GroupTag()), std::tuple(true, "x"));
    const std::shared_ptr<UserWithFonts> last = UserWithFonts::create(
        {.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"});
    EXPECT_EQ(last->Email() + last->Pwd() + last->ClientVersion() + last->ClientOemTag(), "epvo");
    const auto map = UserFontActivateMapItem::create({.userGuid = "u", .fontList = {noted, noted}});
    EXPECT_EQ(map->FontList(), (Records<FontItem>{noted, noted}));
}

struct EnterpriseUser : EsUserItem {};
static_assert(!std::default_initializable<EsUserItem> &&
              !std::default_initializable<EnterpriseUser>);

TEST(Declaration, MakesARecordOfJSONAloneFromJSONAlone) {
    const auto user =
        EsUserItem::create<EnterpriseUser>(JSON::parse(R"({"UserId":"u","Token":"t"})"));
    EXPECT_EQ(user->UserId() + user->Token(), "ut");
    EXPECT_EQ(EsUserItem::parse("{}")->schema().className(), "EsUserItem");
}

TEST(RecordList, IsARangeAndOutlivesATemporary) {
    const char* const text = R"([{"Id":1},{"Id":2}])";
    std::int64_t sum = 0;
    for (const auto& font : FontList(JSON::parse(text)).List())
        sum += font->Id();
    for (const auto& font : FontList::parse(text))
        sum += font->Id();
    EXPECT_EQ(sum, 6);
    const FontList list = FontList::parse(std::string(text));
    EXPECT_EQ(std::tuple(list.size(), list.empty(), list[1]->Id()), std::tuple(2U, false, 2));
    EXPECT_EQ(&list.List(), &list.List());
    EXPECT_THROW(FontList::parse("["), JSON::ParseError);
}

TEST(FontItem, TakesLocationsByLabel) {
    const auto font = FontItem::parse(
        R"({"ProductFileName":"A.ttf","ProductSetName":"S","Version":"1","PreviewFileUrl":"p"})");
    EXPECT_EQ(
        font->getRemoteFileUrl(
            {.productFileUrlHeader = "h/", .privateProductFileUrlHeader = "x/", .userGuid = "u"}),
        font->getRemoteFileUrl("h/", "x/", "u"));
    EXPECT_EQ(font->getLocalPreviewFile(
                  {.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32}),
              font->getLocalPreviewFile(true, "S", "B", 32));
    EXPECT_EQ(font->getRemotePreviewFile(
                  {.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32}),
              "p/A_S_B_32.png");
    EXPECT_EQ(font->getRemotePreviewFile({.isFixed = false,
                                          .previewTag = "S",
                                          .colorTag = "B",
                                          .fontSize = 32,
                                          .fixPreviewFileUrlHeader = "f/",
                                          .previewFileUrlHeader = "o/",
                                          .privatePreviewFileUrlHeader = "i/",
                                          .userGuid = "u"}),
              font->getRemotePreviewFile(false, "S", "B", 32, "f/", "o/", "i/", "u"));
}

} // namespace
