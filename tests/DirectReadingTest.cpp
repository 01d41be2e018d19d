// Reading a list wrapper straight from a text gives what the document gives.
#include "BothPaths.hpp"
#include "RecordTesting.hpp"
#include "Sample.hpp"

#include <VelmoCloudEntity/account/UserFontMap.hpp>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

template <class List = FontList>
void expectEqual(const std::string& text) {
    const std::string expected = BothPaths<List>::byDocument(text);
    EXPECT_EQ(BothPaths<List>::directly(text), expected) << text;
    EXPECT_EQ(BothPaths<List>::inWindows(text).value_or(expected), expected) << text;
}

// Everything that a reply may have, in few bytes: spaces, escapes, a repeated key, an unknown
// member, values of other kinds, fonts in groups.
const std::string reply = R"( [{"Id":7,"Product\u004eame":"\u5b8b\/\ud83d\ude00é","Tags":[1,-2],
"IsFree":true , "ApplyHot":"5","Ordinal":1.5e1,"x":{"y":[null,"\\",-0.5E+3,{}]}, "Children":[]},3,
{"IsGroup":true,"Children":[{"Id":1}],"Id":-9,"Children":[{"Id":2,"Tags":["3"],"displayName":""},{}
]}] )";

#ifdef PERCH_DIRECT_READING
TEST(DirectReading, NeedsNoDocumentForASoundText) {
    if (simdjson::get_active_implementation()->name() == "fallback")
        GTEST_SKIP() << "an old processor takes a document";
    std::string text = "[";
    for (int count = 0; count < 100; ++count) // more windows and arrays than are nested at most
        text += reply.substr(2, reply.size() - 4) + ",";
    EXPECT_EQ(BothPaths<FontList>::inWindows(text + "{}]"),
              BothPaths<FontList>::byDocument(text + "{}]"));
    EXPECT_TRUE(BothPaths<SampleList>::inWindows(R"([{"Int":1,"String":"\n"},{"Int":2}])"));
}
#endif

TEST(DirectReading, AgreesOnEachTruncationAndEachFlippedBit) {
    ASSERT_EQ(FontList::parse(reply)[1]->Children().size(), 2U);
    for (std::size_t size = 0; size <= reply.size(); ++size)
        expectEqual(reply.substr(0, size));
    for (std::size_t bit = 0; bit < reply.size() * 8; ++bit) {
        std::string flipped = reply;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
        expectEqual(flipped);
    }
}

TEST(DirectReading, AgreesAtEachDepth) {
    for (const std::string key : {"Children", "x"})
        for (const std::size_t depth : {31U, 32U, 33U, 64U, 65U, 512U, 513U}) {
            std::string text = "[";
            for (std::size_t level = 1; level < depth; ++level)
                text += "{\"IsGroup\":true,\"" + key + "\":[";
            for (std::size_t level = 1; level < depth; ++level)
                text += "]}";
            expectEqual(text + "]");
        }
}

TEST(DirectReading, AgreesOnEachLimit) {
    const std::string text = "[{\"Id\":7,\n\"Tags\":[1,2,3],\"x\":[[4],{}]},\n" + reply.substr(2);
    for (std::size_t limit = 0; limit <= text.size() + 1; ++limit)
        for (const JSON::Limits& limits :
             {JSON::Limits{.depth = limit}, JSON::Limits{.bytes = limit},
              JSON::Limits{.elements = limit}}) {
            const std::string expected = BothPaths<FontList>::byDocument(text, limits);
            EXPECT_EQ(BothPaths<FontList>::directly(text, limits), expected) << limit;
        }
}

/// A class in which another nests two levels, so that records of both have even depths.
struct MapList : RecordList<MapList, UserFontMap> {
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;
};

TEST(DirectReading, KeepsTheOrdersOfKeysOfNestedClassesApart) {
    const std::string fonts = R"(:[{"IsGroup":true,"Children":[{"TopCount":1,"Tags":[],"Id":2}]}])";
    std::string text = "[";
    for (const std::string key : {"FontList", R"(\u0046ontList)", R"(F\u006fntLis\u0074)", "x"})
        text += R"({"UserGuid":"1",")" + key + '"' + fonts + R"(,"UserGuid":"2"},)";
    expectEqual<MapList>(text + "{}]");
}

} // namespace
