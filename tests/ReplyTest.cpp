// What a client learns of a reply: its error, a document of another kind, what filling ignores.
#include "RecordTesting.hpp"
#include "Sample.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/entity/Reply.hpp>

#include <PerchAppLibrary/record/explain.hpp>
#include <PerchAppLibrary/text/Text.hpp>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// Returns "1 fonts" or "record", or what is thrown.
template <class T>
std::string told(const std::string& text) {
    try {
        const auto read = parseReply<T>(text);
        if constexpr (std::derived_from<T, BaseEntity>)
            return "record";
        else
            return std::to_string(read.size()) + " fonts";
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(Reply, SaysWhatCameInsteadOfWhatWasAskedFor) {
    const std::string shortened = "error 009009: " + std::string(186, 'm') + "...";
    const std::tuple<std::string, std::string, std::string> rows[] = {
        // the reply, and what comes of it as a list and as a record
        {" \n[{},7]", "1 fonts", "an object is expected, not an array"},
        {"{}", "an array is expected, not an object", "record"},
        {R"({"ErrorCode":0,"Exception":false})", "an array is expected, not an object", "record"},
        {"null", "an array is expected, not null", "an object is expected, not null"},
        {"\"[]\"", "an array is expected, not a string", "an object is expected, not a string"},
        {"7", "an array is expected, not a number", "an object is expected, not a number"},
        {"true", "an array is expected, not a Boolean", "an object is expected, not a Boolean"}};
    for (const auto& [text, asList, asRecord] : rows) {
        EXPECT_EQ(told<FontList>(text), asList);
        EXPECT_EQ(told<FontItem>(text), asRecord);
    }
    const std::pair<std::string, std::string> errors[] = {
        {R"({"ErrorCode":5001})", "error 005001: The user login has expired."},
        {R"({"ErrorCode":"-7","ExceptionMessage":"m"})", "error -7: m"},
        {R"({"ExceptionCode":"001001","ExceptionMessage":"m"})", "error 001001: m"},
        {R"({"Exception":true})", "error"},
        {R"({"Exception":true,"ErrorCode":9,"ExceptionMessage":"\n\u001b"})",
         R"(error 000009: \u000A\u001B)"},
        {R"({"Exception":true,"ErrorCode":9009,"ExceptionMessage":")" + std::string(1000, 'm') +
             "\"}",
         shortened}};
    for (const auto& [text, error] : errors) {
        EXPECT_EQ(told<FontList>(text), error);
        EXPECT_EQ(told<FontItem>(text), error);
    }
    EXPECT_EQ(told<FontList>("[{]").substr(0, 6), "line 1");
    EXPECT_THROW((void)parseReply<FontList>("[{}]", {.elements = 0}), JSON::ParseError);
    const ServiceError error = *serviceError(JSON::parse(R"({"ErrorCode":5001})"));
    EXPECT_EQ(error.text("Ch") + error.text("De"), "登录过期");
}

std::string explained(const Explanation& explanation) {
    std::string text;
    for (const Mismatch& each : explanation.mismatches)
        text += each.text() + "\n";
    return text + std::to_string(explanation.used) + " used, " +
           std::to_string(explanation.ignored) + " ignored";
}

TEST(Explain, NamesEachReasonOnceForAllValues) {
    EXPECT_EQ(explained(explain<FontList>(JSON::parse(R"([{"Id":1,"Id":"2","Colour":"r","ID":0,
        "ProductName":null},{"Colour":"s","Colour":7,"Tags":[1,{}],"IsLocaled":true},8,
        {"Children":[{"Price":0},{"Version":[]}],"Price":10.5,"ApplyHot":10.5}])"))),
              R"([0].Id: a later member has this key: 1
[0].Colour: FontItem has no such property: "r" (3 times)
[0].ID: FontItem has no such property, but Id: 0
[1].Tags[1]: FontItem.Tags takes an array of Int, not an array with object: [1,{}]
[1].IsLocaled: FontItem.IsLocaled cannot be set: true
[2]: FontItem is read from an object, not an Int: 8
[3].Children[0].Price: FontItem has no such property: 0 (2 times)
[3].Children[1].Version: FontItem.Version takes a String, not an array: []
[3].ApplyHot: FontItem.ApplyHot takes an Int, not a Float: 10.5
1 used, 12 ignored)");
    EXPECT_EQ(explained(explain<ClientOperaItem>(JSON::parse(R"({"PlatformId":1,"Id":"x"})"))),
              "Id: ClientOperaItem.Id takes an Int, not a String: \"x\"\n0 used, 1 ignored");
    EXPECT_EQ(explained(explain<ClientOperaItem>(JSON::parse(R"({"PlatformId":2})"))),
              "PlatformId: ClientOperaItem.PlatformId cannot be set: 2\n0 used, 1 ignored");
    EXPECT_EQ(explained(explain<Sample>(JSON::parse(R"({"Single":[{"Int":1}],"Samples":{}})"))),
              R"(Single: Sample.Single takes a Sample, not an array: [{"Int":1}]
Samples: Sample.Samples takes an array of Sample, not an object: {}
0 used, 2 ignored)");
    EXPECT_EQ(explain<FontList>(JSON::parse(R"([{"x":1},{"x":1},{"x":1}])"), 2).ignored, 2U);
}

TEST(Explain, TellsADocumentOfAnotherTypeButNoEmptyOne) {
    for (const char* const empty : {"null", "{}", "[]"})
        for (const bool isList : {false, true})
            EXPECT_EQ(explain(JSON::parse(empty), FontItem().schema(), isList).ignored, 0U)
                << empty;
    EXPECT_EQ(explained(explain<FontList>(JSON::parse(R"({"Id":1})"))),
              "the document: a list of FontItem is read from an array of objects, not an object: "
              "{\"Id\":1}\n0 used, 1 ignored");
    const JSON tags = JSON::parse(R"([{"Id":1,"Name":"n","Type":0,"FontIdList":[1],"Ordinal":1,
        "FontCount":2,"Icon":""}])");
    EXPECT_TRUE(explain<FontList>(tags).isOfOtherType());
}

TEST(Explain, BoundsWhatAHostileDocumentLeavesInLinearTime) {
    std::string text = "[";
    for (int count = 0; count < 100'000; ++count)
        text += "{\"" + std::to_string(count) + std::string(100, 'k') + "\\n\":\"" +
                std::string(100, 'v') + "\\u001b\"},";
    for (int depth = 0; depth < 500; ++depth)
        text += R"({"Children":[)";
    text += "{\"Id\":[" + std::string(1'000'000, ' ') + "\"" + std::string(1'000'000, '\x7F');
    text += "\"]}";
    for (int depth = 0; depth < 500; ++depth)
        text += "]}";
    const Explanation explanation = explain<FontList>(JSON::parse(text + "]"));
    EXPECT_EQ(explanation.mismatches.size(), 1000U);
    EXPECT_EQ(explanation.ignored, 100'001U);
    const std::string deep = text.substr(text.find(R"({"Children")"));
    for (const Mismatch& each :
         {explanation.mismatches[999], explain<FontItem>(JSON::parse(deep)).mismatches.at(0)}) {
        EXPECT_LT(each.text().size(), 700U);
        EXPECT_EQ(each.text().find_first_of("\n\x1B\x7F"), std::string::npos) << each.text();
    }
}

} // namespace
