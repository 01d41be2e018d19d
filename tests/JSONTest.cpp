#include "RecordTesting.hpp"

#include <PerchAppLibrary/json/detail/JSONText.hpp>

#include <sstream>
#include <type_traits>

using namespace PerchAppLibrary;

namespace {

std::string nested(std::size_t depth, const std::string& open, const std::string& core,
                   const std::string& close) {
    std::string text = core;
    for (std::size_t level = 0; level < depth; ++level)
        text = open + text + close;
    return text;
}

/// Returns why the text is refused.
JSON::ParseError errorOf(const std::string& text, const JSON::Limits& limits = {}) {
    try {
        ADD_FAILURE() << toText(toValue(JSON::parse(text, limits))) << " is a document";
    } catch (const JSON::ParseError& error) {
        return error;
    }
    return {0, 0, ""};
}

TEST(JSON, RefusesWhatIsNoDocumentAndSaysWhereAndWhy) {
    const std::tuple<std::string, std::size_t, std::size_t, std::string> cases[] = {
        // text, line, column and reason
        {"", 1, 1, "empty"},
        {" \n ", 2, 2, "empty"},
        {"\xEF\xBB\xBF[]", 1, 1, "byte order mark"},
        {"[1,\n2", 2, 2, "ends before"},
        {"{\"a\":\"x", 1, 8, "ends before"},
        {"[1]]", 1, 4, "after the end"},
        {"{\"好\" 1}", 1, 6, "unexpected \"1\""}, // columns count characters, not bytes
        {"[01]", 1, 3, "unexpected \"1\""},
        {"[\"a\xC3\"]", 1, 4, "not UTF-8"},
        {"[\"a\nb\"]", 1, 4, "control character 10"},
        {"[\xC2\x9B", 1, 2, "control character 155"},
        {"[\"\\q\"]", 1, 4, "unexpected \"q\""},
        {"[123456789012345678901234567890, x]", 1, 34, "unexpected \"x\""},
        {"[\"\\ud800\\u1\"]", 1, 12, "expected hex digit"},
        {"[\"\\ud800\\udc0\xC3\xA9\"]", 1, 14, "expected hex digit"},
        {std::string(100'000, '['), 1, 1025, "deeper than 1024"},
        {nested(1025, "{\"a\":", "1", "}"), 1, 5121, "deeper than 1024"},
    };
    for (const auto& [text, line, column, reason] : cases) {
        const JSON::ParseError error = errorOf(text);
        EXPECT_EQ(error.what(), "line " + std::to_string(line) + ", column " +
                                    std::to_string(column) + ": " + error.reason());
        EXPECT_EQ(std::pair(error.line(), error.column()), std::pair(line, column));
        EXPECT_NE(error.reason().find(reason), std::string::npos) << error.what();
    }
    EXPECT_EQ(JSON::parse(nested(1024, "[", "", "]")).count(), 1U); // the greatest depth
    EXPECT_EQ(JSON::parse(nested(1024, "{\"a\":", "1", "}")).count(), 1U);
}

TEST(JSON, SaysWhereATextExceedsALimitOfTheCaller) {
    const std::tuple<const char*, JSON::Limits, std::size_t> cases[] = {
        // text, a limit that is one too small, and the column of the error
        {R"([{"a":[1,"],[{",true]},[ ]])", {.depth = 2}, 7},
        {R"([{"a":[1,"],[{",true]},[ ]])", {.elements = 5}, 23},
        {R"({ "a" : { } , "b" : "\\\",,[[" })", {.elements = 1}, 13},
        {"[[\t] ,1, 12345678901234567890123]", {.elements = 2}, 8},
        {"[]", {.depth = 0}, 1},
        {"12", {.bytes = 1}, 1},
        {"[1", {.elements = 9}, 3}};
    for (const auto& [text, limits, column] : cases)
        EXPECT_EQ(errorOf(text, limits).column(), column) << text;
    EXPECT_STREQ(errorOf("[7,\n[1,2,3]]", {.elements = 4}).what(),
                 "line 2, column 5: more than 4 elements");
}

TEST(JSON, TakesNumbersOutOfRangeAndLoneSurrogates) {
    // In one document, since one of them has the whole text spelled anew.
    const JSON json = JSON::parse(R"( {"big": 18446744073709551616, "least": -1e999, "tiny": 1e-999,
        "leading": "\ud800x\\ud800", "last leading": "\udbff", "trailing": "\udc00",
        "last trailing": "\udfff", "pair": "\ud83d\ude00", "line feed": "\ndc00",
        "after an escape": "\n\ud800", "no escape": "\ud800xudc00",
        "in a text": "\"99999999999999999999", "integer": 12e000000000000001} )");
    EXPECT_EQ(
        toText(toValue(json)),
        "{\"big\":1.8446744073709552E19,\"least\":-1.7976931348623157E308,\"tiny\":0E0,"
        "\"leading\":\"\uFFFDx\\\\ud800\",\"last leading\":\"\uFFFD\",\"trailing\":\"\uFFFD\","
        "\"last trailing\":\"\uFFFD\",\"pair\":\"\U0001F600\",\"line feed\":\"\\ndc00\","
        "\"after an escape\":\"\\n\uFFFD\",\"no escape\":\"\uFFFDxudc00\","
        "\"in a text\":\"\\\"99999999999999999999\",\"integer\":1.2E2}");
    EXPECT_EQ(json["least"].as<std::string>(), std::nullopt); // no text says what has been rounded
    EXPECT_EQ(JSON::parse(std::string(400, '9')).as<float>(), std::nullopt); // beyond floats
    EXPECT_EQ(JSON("1e999").as<double>(), std::nullopt);
    EXPECT_EQ(JSON::parse(R"([1e9999999999, "1e99999999999"])").count(), 2U);
    EXPECT_EQ(JSON::parse("[1e-99999999999, 1e999]")[0U].as<float>(), 0.0F);
}

TEST(JSON, GivesNullEmptyOrZeroForWhatAValueDoesNotHold) {
    const JSON json = JSON::parse(R"({"list": [1, "two", null], "none": {}, "text": "[1]"})");
    EXPECT_EQ(json.count() * 10 + json["list"].count(), 33U);
    for (const JSON& missing : {json["nothing"], json[0], json["list"][3], json["list"]["a"],
                                json["list"][2], json["text"][0], JSON(), JSON::null}) {
        EXPECT_TRUE(missing.type() == JSON::Type::null && missing["a"].isNull());
        EXPECT_EQ(missing.count() + missing.arrayValue().size(), 0U);
        EXPECT_EQ(missing.begin(), missing.end());
    }
    EXPECT_TRUE(json.arrayValue().empty() && json.begin() == json.end());
}

TEST(JSON, StepsThroughAnArray) {
    const JSON json = JSON::parse(R"([1, [2, [3]], {"a": 4}, "5", true, null, 1.5])");
    std::string stepped;
    std::size_t index = 0;
    for (const JSON& element : json) {
        stepped += std::to_string(static_cast<int>(element.type())) + " ";
        EXPECT_TRUE(element == json.arrayValue().at(index) && element == json[index]) << index;
        ++index;
    }
    EXPECT_EQ(stepped, "0 3 4 1 2 5 0 ");
    EXPECT_EQ(toText(toValue(*std::next(json.begin(), 1))), "[2,[3]]");
}

TEST(JSON, KeepsTheDocumentAliveAndTheLastOfARepeatedKey) {
    JSON json = JSON::parse(R"({"a": {"c": 1}, "b": 2, "a": {"c": "first", "c": "last"}})");
    EXPECT_EQ(json.count(), 3U);
    json = json["a"];
    EXPECT_EQ(json["c"].as<std::string>(), "last");
}

static_assert(std::is_convertible_v<const char*, JSON> && std::is_convertible_v<signed char, JSON>);
static_assert(!std::is_convertible_v<char, JSON> && !std::is_convertible_v<const void*, JSON>);

TEST(JSON, IsMadeFromAValueAsFromItsText) {
    const std::pair<JSON, std::string> rows[] = {
        {nullptr, "null"},
        {true, "true"},
        {static_cast<signed char>(-7), "-7"},
        {std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"},
        {2.0, "2.0"},
        {0.1F, "0.1"},
        {-0.0, "-0.0"},
        {-std::numeric_limits<float>::infinity(), "null"},
        {"", R"("")"},
        {std::string("\0\"\\\n", 4), R"("\u0000\"\\\n")"},
        {std::string_view("\xC3"), "\"\uFFFD\""}};
    for (const auto& [made, text] : rows) {
        const JSON read = JSON::parse(text);
        EXPECT_EQ(toText(toValue(made)), toText(toValue(read)));
        EXPECT_TRUE(made == read && (text == "null" || made != nullptr)) << text;
    }
}

TEST(JSON, EqualsByWhatItHoldsAlsoAfterWriting) {
    // Those of one line are equal, those of different lines are not.
    std::istringstream lines(R"(null
        true
        0 -0 0.0 -0.0
        1 1.0 10e-1
        "1" "\u0031"
        9007199254740992 9007199254740992.0
        9007199254740993
        9223372036854775807
        9223372036854775808 9223372036854775808.0
        -9223372036854775808 -9223372036854775808.0
        18446744073709551615
        18446744073709551616 18446744073709551615.0
        [[1],{}] [[1.0],{}]
        [[1,{}]]
        [[1],{},{}]
        {"a":1,"b":[2]} {"b":[2.0],"a":1} {"a":3,"b":[2],"a":1}
        {"a":3,"b":[2]} {"a":1,"b":[2],"a":3})");
    std::vector<std::tuple<std::string, JSON, int>> all; // text, JSON and line
    int number = 0;
    for (std::string line, text; std::getline(lines, line); ++number)
        for (std::istringstream texts(line); texts >> text;) {
            all.emplace_back(text, JSON::parse(text), number);
            all.emplace_back(text, JSON::parse(toText(toValue(JSON::parse(text)))), number);
        }
    for (const auto& [text, json, line] : all)
        for (const auto& [otherText, other, otherLine] : all)
            EXPECT_EQ(json == other, line == otherLine) << text << ' ' << otherText;
}

TEST(JSON, ComparesLargeDocumentsInLinearTime) {
    constexpr int count = 400'000;
    std::string forwards, backwards, repeated;
    for (int index = 0; index < count; ++index) {
        const auto member = [](int key) { return "\"key" + std::to_string(key) + "\":0,"; };
        forwards += member(index);
        backwards += member(count - 1 - index);
        repeated += "\"key\":" + std::to_string(index) + ",";
    }
    const auto object = [](const std::string& members) {
        return JSON::parse("{" + members + R"("last":0})");
    };
    EXPECT_EQ(object(forwards) == object(backwards), true);
    EXPECT_EQ(object(repeated) == JSON::parse(R"({"last":0,"key":399999})"), true);
    const std::string deep = nested(1023, R"({"a":1,"b":)", "[2]", "}");
    EXPECT_EQ(JSON::parse(deep) == JSON::parse(deep), true);
}

/// Any byte, at any place in a word or behind the last whole one.
TEST(JSON, WritesTextsDirectlyAsByWayOfAValue) {
    for (int byte = 0; byte < 256; ++byte)
        for (const std::size_t size : {0U, 1U, 7U, 8U, 9U, 20U})
            for (std::size_t place = 0; place <= size; ++place) {
                std::string content(size, 'a');
                content.insert(place, 1, static_cast<char>(byte));
                std::string written = "before";
                appendJSONString(written, content);
                EXPECT_EQ(written, "before" + toText(toValue(content)))
                    << byte << ' ' << size << ' ' << place;
            }
}

} // namespace
