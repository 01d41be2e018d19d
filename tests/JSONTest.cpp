#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <type_traits>
#include <utility>

using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using PerchAppLibrary::toValue;

namespace {

std::string nested(std::size_t depth, const std::string& open, const std::string& core,
                   const std::string& close) {
    std::string text;
    for (std::size_t level = 0; level < depth; ++level)
        text += open;
    text += core;
    for (std::size_t level = 0; level < depth; ++level)
        text += close;
    return text;
}

TEST(JSON, RefusesWhatIsNoDocumentAndSaysWhereAndWhy) {
    using namespace std::string_literals;
    const struct {
        std::string text;
        std::size_t line, column;
        std::string reason;
    } cases[] = {
        {"", 1, 1, "empty"},
        {" \n ", 2, 2, "empty"},
        {"\xEF\xBB\xBF[]", 1, 1, "byte order mark"},
        {"[1,\n2", 2, 2, "ends before"},
        {"{\"a\":\"x", 1, 8, "ends before"},
        {"[1 2]", 1, 4, "unexpected \"2\""},
        {"[1]]", 1, 4, "after the end"},
        {"{\"好\" 1}", 1, 6, "unexpected \"1\""}, // columns count characters, not bytes
        {"[01]", 1, 3, "unexpected \"1\""},
        {"nul", 1, 4, "ends before"},
        {"[\"a\xC3\"]", 1, 4, "not UTF-8"},
        {"\xFF", 1, 1, "not UTF-8"},
        {"[\"a\nb\"]", 1, 4, "control character 10"},
        {"[1]\0"s, 1, 4, "control character 0"},
        {"[\xC2\x9B", 1, 2, "control character 155"},
        {"[\"\\q\"]", 1, 4, "unexpected \"q\""},
        {"[123456789012345678901234567890, x]", 1, 34, "unexpected \"x\""},
        {nested(1025, "[", "", "]"), 1, 1025, "deeper than 1024"},
        {nested(1025, "{\"a\":", "1", "}"), 1, 5121, "deeper than 1024"},
    };
    for (const auto& each : cases) {
        try {
            JSON::parse(each.text);
            ADD_FAILURE() << "taken for a document: " << each.text.substr(0, 40);
        } catch (const JSON::ParseError& error) {
            EXPECT_EQ(error.line(), each.line) << error.what();
            EXPECT_EQ(error.column(), each.column) << error.what();
            EXPECT_NE(error.reason().find(each.reason), std::string::npos) << error.what();
            EXPECT_EQ(error.what(), "line " + std::to_string(each.line) + ", column " +
                                        std::to_string(each.column) + ": " + error.reason());
        }
    }
}

TEST(JSON, TakesEveryWellFormedText) {
    for (const char* const core : {"", "1", "\"x\"", "null"})
        EXPECT_EQ(JSON::parse(nested(1024, "[", core, "]")).type(), JSON::Type::array) << core;
    EXPECT_EQ(JSON::parse(nested(1024, "{\"a\":", "1", "}")).count(), 1U);

    // Numbers beyond 64 bits and beyond the doubles, escapes without their other half: all in one
    // document.
    const JSON json = JSON::parse(
        R"( {"big": 18446744073709551616, "-": -1e999, "tiny": 1e-999, "u": "\ud800x\\ud800",
                                       "t": "\udc00", "pair": "\ud83d\ude00", "in text": "99999999999999999999"} )");
    EXPECT_EQ(json["big"].as<float>(), 18446744073709551616.0F);
    EXPECT_EQ(json["-"].type(), JSON::Type::number);
    EXPECT_EQ(json["-"].as<std::string>(), std::nullopt); // no text says what has been rounded
    EXPECT_EQ(json["tiny"].as<float>(), 0.0F);
    EXPECT_EQ(json["u"].as<std::string>(), "\uFFFDx\\ud800");
    EXPECT_EQ(json["t"].as<std::string>(), "\uFFFD");
    EXPECT_EQ(json["pair"].as<std::string>(), "\U0001F600");
    EXPECT_EQ(json["in text"].as<std::string>(), "99999999999999999999");
    EXPECT_EQ(JSON::parse(std::string(400, '9')).as<float>(), std::nullopt); // beyond floats
    EXPECT_EQ(JSON::parse("[1e99999999999, \"1e99999999999\"]").count(), 2U);
    EXPECT_EQ(JSON::parse("[1e-99999999999, 1e999]")[0U].as<float>(), 0.0F);
    EXPECT_EQ(JSON::parse("[12e000000000000001, 1e999]")[0].as<float>(), 120.0F);
}

TEST(JSON, GivesNullEmptyOrZeroForWhatAValueDoesNotHold) {
    const JSON json = JSON::parse(R"({"list": [1, "two", null], "none": {}, "text": "[1]"})");
    EXPECT_EQ(json.type(), JSON::Type::dictionary);
    EXPECT_EQ(json.count(), 3U);
    EXPECT_EQ(json["list"].count(), 3U);
    EXPECT_EQ(json["list"][1].as<std::string>(), "two");
    EXPECT_EQ(json["none"].count(), 0U);
    for (const JSON& missing :
         {json["nothing"], json[0], json["list"][3], json["list"][-1], json["list"]["a"],
          json["list"][2], json["text"][0], JSON(), JSON::null}) {
        EXPECT_TRUE(missing.isNull());
        EXPECT_EQ(missing.count(), 0U);
        EXPECT_TRUE(missing.arrayValue().empty());
        EXPECT_EQ(missing.begin(), missing.end());
        EXPECT_TRUE(missing["a"].isNull());
    }
    EXPECT_TRUE(json.arrayValue().empty());
    EXPECT_EQ(json.begin(), json.end());
}

TEST(JSON, StepsThroughAnArrayAsArrayValueGivesIt) {
    const JSON json = JSON::parse(R"([1, [2, [3]], {"a": 4}, "5", true, null, 1.5])");
    const std::vector<JSON> elements = json.arrayValue();
    ASSERT_EQ(elements.size(), json.count());
    std::size_t index = 0;
    for (const JSON& element : json) {
        EXPECT_EQ(element.type(), elements[index].type());
        EXPECT_EQ(element.type(), json[static_cast<std::int64_t>(index)].type());
        EXPECT_EQ(element.count(), elements[index].count());
        ++index;
    }
    EXPECT_EQ(index, elements.size());
    const JSON none = JSON::parse("[]");
    EXPECT_EQ(none.begin(), none.end());
}

TEST(JSON, KeepsTheDocumentAliveAndTheLastOfARepeatedKey) {
    JSON inner;
    {
        std::string text = R"({"a": 1, "b": {"c": "first", "c": "last"}, "a": 2})";
        const JSON json = JSON::parse(std::move(text));
        EXPECT_EQ(json["a"].as<std::int64_t>(), 2);
        EXPECT_EQ(json.count(), 3U);
        inner = json["b"];
    }
    EXPECT_EQ(inner["c"].as<std::string>(), "last");
}

static_assert(std::is_convertible_v<const char*, JSON> && std::is_convertible_v<signed char, JSON>);
static_assert(!std::is_convertible_v<char, JSON> && !std::is_convertible_v<const void*, JSON>);
static_assert(!std::is_convertible_v<JSON::Type, JSON> &&
              !std::is_convertible_v<long double, JSON>);
static_assert(std::is_nothrow_copy_constructible_v<JSON> &&
              std::is_nothrow_move_constructible_v<JSON>);

TEST(JSON, IsMadeFromAValueAsFromItsText) {
    using Double = std::numeric_limits<double>;
    const struct {
        JSON made;
        std::string text;
    } rows[] = {
        {nullptr, "null"},
        {true, "true"},
        {false, "false"},
        {7, "7"},
        {static_cast<signed char>(-7), "-7"},
        {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
        {std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"},
        {2.0, "2.0"},
        {0.1F, "0.1"},
        {-0.0, "-0.0"},
        {Double::denorm_min(), "5e-324"},
        {Double::max(), "1.7976931348623157e308"},
        {Double::quiet_NaN(), "null"},
        {-std::numeric_limits<float>::infinity(), "null"},
        {"", R"("")"},
        {"abc", R"("abc")"},
        {"{}", R"("{}")"},
        {std::string("\0\"\\\n", 4), R"("\u0000\"\\\n")"},
        {std::string_view("\xC3"), "\"\uFFFD\""},
    };
    for (const auto& [made, text] : rows) {
        const JSON read = JSON::parse(text);
        EXPECT_EQ(made.type(), read.type()) << text;
        EXPECT_EQ(toText(toValue(made)), toText(toValue(read))) << text;
        EXPECT_EQ(made.as<std::string>(), read.as<std::string>()) << text;
        EXPECT_EQ(made.as<double>(), read.as<double>()) << text;
        EXPECT_TRUE(made == read) << text;
    }
}

/// Any bits: integers, and numbers of every magnitude.
TEST(JSON, GivesBackWhatItWasMadeFrom) {
    std::mt19937_64 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    for (int run = 0; run < 20'000; ++run) {
        const std::uint64_t bits = random() >> (random() % 64);
        const auto integer = static_cast<std::int64_t>(bits);
        EXPECT_EQ(JSON(integer).as<std::int64_t>(), integer);
        EXPECT_EQ(JSON(bits).as<std::string>(), std::to_string(bits));
        if (const auto real = std::bit_cast<double>(random()); std::isfinite(real)) {
            EXPECT_EQ(JSON(real).as<double>(), real);
        }
        if (const auto real = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
            std::isfinite(real)) {
            EXPECT_EQ(JSON(real).as<float>(), real);
        }
        std::string text;
        for (std::uint64_t rest = bits; rest != 0; rest >>= 7)
            text += static_cast<char>(rest & 0x7F);
        EXPECT_EQ(JSON(text).as<std::string>(), text);
    }
}

TEST(JSON, ReadsDoublesAsPropertiesReadFloats) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"0.1", 0.1},
        {"1e300", 1e300},
        {"9007199254740993", 9007199254740992.0},
        {"18446744073709551615", 18446744073709551616.0},
        {R"("-2.5e3")", -2500.0},
        {R"("1e300")", 1e300},
        {R"("1e999")", std::nullopt},
        {R"("1e-999")", std::nullopt},
        {R"("0e-999")", 0.0},
        {R"("0x10")", std::nullopt},
        {R"("nan")", std::nullopt},
        {"true", 1.0},
        {"null", std::nullopt},
        {"[1]", std::nullopt},
    };
    for (const auto& [text, number] : rows)
        EXPECT_EQ(JSON::parse(text).as<double>(), number) << text;
}

TEST(JSON, EqualsByWhatItHolds) {
    const std::vector<std::string> groups[] = {
        {"null"},
        {"true"},
        {"false"},
        {"0", "-0", "0.0", "-0.0", "0e5"},
        {"1", "1.0", "1e0", "10e-1"},
        {R"("1")"},
        {"-1", "-1.0"},
        {"0.5", "5e-1"},
        {"9007199254740992", "9007199254740992.0"},
        {"9007199254740993"},
        {"9223372036854775807"},
        {"9223372036854775808", "9223372036854775808.0"},
        {"-9223372036854775808", "-9223372036854775808.0"},
        {"18446744073709551615"},
        {"18446744073709551616", "18446744073709551615.0"},
        {"1e300", "1e+300"},
        {R"("a")", R"("\u0061")"},
        {R"("a\u0000")"},
        {R"("\u00E9")", "\"\xC3\xA9\""},
        {R"("e\u0301")"}, // by bytes: another text
        {R"("")"},
        {"[]"},
        {"{}"},
        {"[1,2]", "[1.0, 2e0]"},
        {"[2,1]"},
        {"[1]"},
        {"[null]"},
        {"[[1],{}]", "[[1.0],{}]"},
        {R"({"a":1,"b":[2]})", R"({"b":[2.0],"a":1})", R"({"a":3,"b":[2],"a":1})"},
        {R"({"a":3,"b":[2]})", R"({"a":1,"b":[2],"a":3})"},
        {R"({"a":1,"c":[2]})"},
        {R"({"a":1})"},
        {R"({"a":null})"},
    };
    for (const auto& group : groups)
        for (const std::string& left : group)
            for (const auto& otherGroup : groups)
                for (const std::string& right : otherGroup)
                    EXPECT_EQ(JSON::parse(left) == JSON::parse(right), &group == &otherGroup)
                        << left << ' ' << right;
}

TEST(JSON, ComparesWithAValue) {
    const JSON json =
        JSON::parse(R"({"Id": 7, "Name": "A", "Size": 0.1, "Big": 18446744073709551615})");
    EXPECT_TRUE(json["Id"] == 7 && 7U == json["Id"] && json["Id"] == 7.0 && json["Id"] != "7");
    EXPECT_TRUE(json["Name"] == "A" && std::string("A") == json["Name"] && json["Name"] != nullptr);
    EXPECT_TRUE(json["Size"] == 0.1 && json["Size"] == 0.1F && json["Size"] != true);
    EXPECT_TRUE(json["Big"] == std::numeric_limits<std::uint64_t>::max() && json["Big"] != -1);
    EXPECT_TRUE(json["missing"] == nullptr && json["missing"] == JSON::null &&
                JSON::parse("null") == JSON());
    EXPECT_TRUE(json == json && json["Name"] == json["Name"] && json != json["Name"]);
}

/// A text of a few values, many of them equal to others.
std::string randomDocument(std::mt19937& random, int depth) {
    const auto below = [&random](std::size_t end) { return random() % end; };
    const char* const scalars[] = {"1",    "1.0", "true", R"("1")", "null", "18446744073709551615",
                                   "-0.0", "0"};
    std::string text;
    switch (depth == 0 ? 0 : below(3)) {
    case 0:
        return scalars[below(std::size(scalars))];
    case 1:
        for (std::size_t count = below(3); count > 0; --count)
            text += (text.empty() ? "" : ",") + randomDocument(random, depth - 1);
        return "[" + text + "]";
    default:
        for (std::size_t count = below(4); count > 0; --count)
            text += std::string(text.empty() ? "" : ",") + (below(2) == 0 ? R"("a":)" : R"("b":)") +
                    randomDocument(random, depth - 1);
        return "{" + text + "}";
    }
}

/// The value with each integral real as an integer, since Boost takes these for different values.
boost::json::value normalised(boost::json::value value) {
    if (auto* const array = value.if_array())
        for (auto& element : *array)
            element = normalised(element);
    if (auto* const object = value.if_object())
        for (auto& member : *object)
            member.value() = normalised(member.value());
    if (const double* const real = value.if_double(); real != nullptr && std::trunc(*real) == *real)
        value = static_cast<std::int64_t>(*real); // the reals above are small
    return value;
}

TEST(JSON, EqualsAsBoostsValuesDoAndSurvivesWriting) {
    std::mt19937 random(11); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    int equal = 0;
    for (int run = 0; run < 20'000; ++run) {
        const std::string left = randomDocument(random, 2), right = randomDocument(random, 2);
        const JSON json = JSON::parse(left), other = JSON::parse(right);
        const bool expected =
            normalised(boost::json::parse(left)) == normalised(boost::json::parse(right));
        ASSERT_EQ(json == other, expected) << left << ' ' << right;
        ASSERT_EQ(other == json, expected) << left << ' ' << right;
        ASSERT_TRUE(json == JSON::parse(toText(toValue(json)))) << left;
        equal += expected ? 1 : 0;
    }
    EXPECT_GT(equal, 500);
}

/// Quadratic work would take minutes.
TEST(JSON, ComparesLargeAndDeepDocuments) {
    constexpr int count = 100'000;
    std::string forwards, backwards, repeated;
    for (int index = 0; index < count; ++index) {
        forwards += "\"key" + std::to_string(index) + "\":" + std::to_string(index) + ",";
        const std::string last = std::to_string(count - 1 - index);
        backwards += "\"key" + last + "\":" + last + ",";
        repeated += "\"key\":" + std::to_string(index) + ",";
    }
    const auto object = [](const std::string& members) {
        return JSON::parse("{" + members + R"("last":0})");
    };
    EXPECT_TRUE(object(forwards) == object(backwards));
    EXPECT_TRUE(object(repeated) == JSON::parse(R"({"last":0,"key":99999})"));
    const std::string deep = nested(1023, R"({"a":1,"b":)", "[2]", "}");
    EXPECT_TRUE(JSON::parse(deep) == JSON::parse(deep));
    EXPECT_FALSE(JSON::parse(deep) == JSON::parse(nested(1023, R"({"a":1,"b":)", "[3]", "}")));
}

/// Any byte, at any place in a word or behind the last whole one.
TEST(JSON, TextsAreWrittenDirectlyAsByWayOfAValue) {
    for (int byte = 0; byte < 256; ++byte)
        for (const std::size_t size : {0U, 1U, 7U, 8U, 9U, 20U})
            for (std::size_t place = 0; place <= size; ++place) {
                std::string content(size, 'a');
                content.insert(place, 1, static_cast<char>(byte));
                std::string written = "before";
                PerchAppLibrary::appendJSONString(written, content);
                EXPECT_EQ(written, "before" + toText(toValue(content)))
                    << byte << ' ' << size << ' ' << place;
            }
}

} // namespace
