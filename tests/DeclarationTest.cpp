// What the declaration of a record class brings about, mostly of a client's own.
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include "Changes.hpp"

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
    int places = 0;
    for (const Property& property : NotedTwice::create()->schema().properties()) {
        const auto record = NotedTwice::create();
        const auto* const text = std::get_if<FieldAccess<std::string>>(&property.access);
        const auto* const flag = std::get_if<FieldAccess<bool>>(&property.access);
        if (text != nullptr && text->place == Place::sparse)
            ((*record).*text->set)("mine");
        else if (flag != nullptr && flag->place == Place::flag)
            ((*record).*flag->set)(true);
        else
            continue;
        ++places;
        EXPECT_EQ(changed(record), "{\"" + std::string(property.name) +
                                       (flag != nullptr ? "\":true}" : "\":\"mine\"}"));
    }
    EXPECT_EQ(places, 6 + 2 + 7 + 5 + 2 + 2); // of BaseEntity, FontItem and the two classes above
}

TEST(Declaration, FillsPlacesFromJSONAsThroughSetters) {
    struct BySetters : NotedTwice {};
    for (const std::shared_ptr<NotedTwice>& record :
         {NotedTwice::create(), std::shared_ptr<NotedTwice>(new BySetters)}) {
        record->setValue(
            JSON::parse(R"({"Note":"n","IsMine":"true","IsYours":1,"Token":5,"FreeTag":"f"})"));
        EXPECT_EQ(changed(record),
                  R"({"Token":"5","FreeTag":"f","Note":"n","IsMine":true,"IsYours":true})");
        record->setValue(JSON::parse(
            R"({"Note":"","IsMine":false,"IsYours":[],"Token":{},"FreeTag":null,"IsGroup":true,
                "IsGroup":"x","SecondNote":"a","SecondNote":{}})"));
        EXPECT_EQ(changed(record), R"({"Token":"5","FreeTag":"f","IsYours":true})");
    }
}

/// A client's record with arrays of records of its own class and of one of the library's.
class Album : public BaseEntity {
    PERCH_RECORD(Album, BaseEntity);

    PERCH_PROPERTY(Records<FontItem>, Fonts);
    PERCH_PROPERTY(std::string, Title);
    PERCH_PROPERTY(Records<Album>, Parts);

    PERCH_RECORD_END;

public:
    /// The titles and, of fonts, the Ids: Title(fonts;parts).
    std::string outline() const {
        std::string text = Title() + "(";
        for (const auto& font : Fonts())
            text += std::to_string(font->Id());
        text += ";";
        for (const auto& part : Parts())
            text += part->outline();
        return text + ")";
    }
};
PERCH_RECORD_SCHEMA(Album);

TEST(Declaration, FillsArraysOfRecordsFromTheirDeclaration) {
    const auto album = Album::parse(R"({"Fonts":[{"Id":1},7],"Title":"t",
        "Parts":[{"Title":"a","Parts":[{"Title":"b","Fonts":[{"Id":2}]}]},{"Title":"c"}]})");
    EXPECT_EQ(album->outline(), "t(10;a(;b(2;))c(;))");
    album->setValue(JSON::parse(R"({"Fonts":[{"Id":3}],"Parts":"x"})"));
    EXPECT_EQ(album->outline(), "t(3;)") << "an array holds what the last document has";
    album->setValue(JSON::parse(R"({"Fonts":[],"Title":"u"})"), Excluded());
    EXPECT_EQ(album->outline(), "u(3;)") << "the mapping alone leaves arrays as they are";
    album->setValue(JSON::parse("5"));
    EXPECT_EQ(album->outline(), "u(;)");
}

TEST(Declaration, FillsArraysAfterAllOtherProperties) {
    struct WatchedAlbum : Album {
        void setFonts(Records<FontItem>) override { titleWhenFontsCame = Title(); }
        std::string titleWhenFontsCame;
    };
    const auto album = Album::parse<WatchedAlbum>(R"({"Fonts":[{}],"Title":"t"})");
    EXPECT_EQ(album->titleWhenFontsCame, "t");
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
            FontItem::setValue(json["font"], std::move(excluded));
        }
    };
    const auto font =
        FontItem::create<Detour>(JSON::parse(R"({"font":{"Id":1},"Children":[{"Id":2}]})"));
    EXPECT_EQ(std::tuple(font->Id(), font->Children().at(0)->Id()), std::tuple(1, 2));
}

TEST(Declaration, EmptiesAnArrayWhoseGetterIsOverridden) {
    struct Folded : FontItem {
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
    EXPECT_EQ(font->Children().size(), 0U);
}

TEST(Declaration, MakesTheElementsOfAnArrayByTheirOwnCreate) {
    struct Stamped : FontItem {
        static std::shared_ptr<Stamped> create(const JSON& json) {
            auto font = FontItem::create<Stamped>(json);
            font->setFontKey("stamped");
            return font;
        }
    };
    EXPECT_EQ(makeRecords<Stamped>(JSON::parse("[{}]")).at(0)->FontKey(), "stamped");
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
    void changed(const std::string&) { ADD_FAILURE() << "called by the library"; }
    void stored(const std::string&) { ADD_FAILURE() << "called by the library"; }
    void make() { ADD_FAILURE() << "called by the library"; }
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
    EXPECT_EQ(square->Value() + square->Note() + square->Kind(), "w7crowded");
}

TEST(Declaration, GivesASubclassTheLabelsOfItsBases) {
    EXPECT_EQ(changed(NotedFont::create({.id = 7, .productName = "A", .isPrivate = true})),
              R"({"Id":7,"ProductName":"A","IsPrivate":true})");
    EXPECT_EQ(changed(NotedTwice::create({.groupTag = "x"})), R"({"IsGroup":true,"GroupTag":"x"})");
    EXPECT_EQ(changed(UserWithFonts::create(
                  {.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"})),
              R"({"Email":"e","Pwd":"p","ClientVersion":"v","ClientOemTag":"o"})");
}

TEST(Declaration, FillsARecordFromItsOwnJSON) {
    const auto user = UserItem::parse(R"({"sms_token":{"sms_token":"inner","Tel":"1"}})");
    user->setValue(user->sms_token());
    EXPECT_EQ(changed(user), R"({"sms_token":"inner","Tel":"1"})");
}

#if defined __SANITIZE_ADDRESS__
constexpr bool hasLargeFrames = true;
#elif defined __has_feature
constexpr bool hasLargeFrames = __has_feature(address_sanitizer);
#else
constexpr bool hasLargeFrames = false;
#endif

TEST(Declaration, FillsTheDeepestDocumentOnASmallStack) {
    std::string text = "{}";
    for (int depth = 1; depth < 512; ++depth)
        text = R"({"Children":[)" + text + "]}";
    JSON json = JSON::parse(text);
    std::shared_ptr<FontItem> font;
    auto fill = [&] { font = FontItem::create(json); };
    const auto run = [](void* work) -> void* {
        (*static_cast<decltype(fill)*>(work))();
        return nullptr;
    };
    pthread_attr_t attributes{};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, hasLargeFrames ? 16U << 20U : 512U << 10U);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &fill), 0);
    pthread_join(thread, nullptr);
    int depth = 1;
    for (; !font->Children().empty(); ++depth)
        font = std::shared_ptr(font->Children().front());
    EXPECT_EQ(depth, 512);
}

TEST(RecordList, IsARangeAndOutlivesATemporary) {
    const JSON json = JSON::parse(R"([{"Id":1},{"Id":2}])");
    std::string ids;
    for (const auto& font : FontList(json).List())
        ids += std::to_string(font->Id());
    const FontList list(json);
    for (const auto& font : list)
        ids += std::to_string(font->Id());
    EXPECT_EQ(ids + std::to_string(list[1]->Id()), "12122");
    EXPECT_EQ(std::tuple(list.size(), list.empty()), std::tuple(2U, false));
    EXPECT_THROW(FontList::parse("["), JSON::ParseError);
}

TEST(FontItem, TakesLocationsByLabel) {
    const auto font = FontItem::parse(
        R"({"ProductFileName":"A.ttf","ProductSetName":"S","Version":"1","PreviewFileUrl":"p"})");
    EXPECT_EQ(
        font->getRemoteFileUrl(
            {.productFileUrlHeader = "h/", .privateProductFileUrlHeader = "x/", .userGuid = "u"}),
        "h/S/1/A.ttf");
    EXPECT_EQ(font->getLocalPreviewFile(
                  {.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32}),
              font->getLocalPreviewFile(true, "S", "B", 32));
    EXPECT_EQ(font->getRemotePreviewFile(
                  {.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32}),
              "p/A_S_B_32.png");
    const auto onService = [&](bool isFixed) {
        return font->getRemotePreviewFile({.isFixed = isFixed,
                                           .previewTag = "S",
                                           .colorTag = "B",
                                           .fontSize = 32,
                                           .fixPreviewFileUrlHeader = "f/",
                                           .previewFileUrlHeader = "o/",
                                           .privatePreviewFileUrlHeader = "i/",
                                           .userGuid = "u"});
    };
    EXPECT_EQ(onService(true), "f/S/1/A_S_B_32.png");
    EXPECT_EQ(onService(false).substr(0, 6), "o/S/1/");
    font->setIsPrivate(true);
    EXPECT_EQ(onService(true), "i/u/A_S_B_32.png");
}

} // namespace
