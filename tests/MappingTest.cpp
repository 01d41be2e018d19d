#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <tuple>

using namespace PerchAppLibrary;

namespace {

/// One property of each kind.
class Sample : public BaseEntity {
    PERCH_RECORD(Sample, BaseEntity);

    PERCH_PROPERTY(std::int64_t, Int, -7);
    PERCH_PROPERTY(bool, Bool);
    PERCH_PROPERTY(float, Float, -7.5F);
    PERCH_PROPERTY(std::string, String, "kept");
    PERCH_PROPERTY(std::optional<std::string>, Optional, "kept");
    PERCH_PROPERTY(std::vector<std::int64_t>, Ints, -7, -7);
    PERCH_PROPERTY(std::vector<std::string>, Strings, "kept");
    PERCH_PROPERTY(std::vector<std::shared_ptr<Sample>>, Samples);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Sample);

/// The same with an overridden accessor, so that it is filled through its accessors.
class Overriding : public Sample {
public:
    void setId(std::int64_t newValue) override { Sample::setId(newValue); }
};

/// A record filled through its fields, and one filled through its accessors.
std::vector<std::shared_ptr<Sample>> bothWays(const JSON& json) {
    return {Sample::create(json), Sample::create<Overriding>(json)};
}

const char* const keptInt = "-7";
const char* const keptFloat = "-7.5";
const char* const keptText = R"("kept")";
const char* const keptInts = "[-7,-7]";
const char* const keptTexts = R"(["kept"])";

struct Row {
    const char* json; // under the key of each property
    const char* asInt;
    const char* asBool;
    const char* asFloat;
    const char* asString;
};

TEST(Mapping, ConvertsEachKindOfValueToEachKindOfPropertyOrLeavesItAlone) {
    const Row rows[] = {
        {"12", "12", "false", "1.2E1", R"("12")"},
        {"1", "1", "true", "1E0", R"("1")"},
        {"-0", "0", "false", "0E0", R"("0")"},
        {"9223372036854775807", "9223372036854775807", "false", "9.223372E18",
         R"("9223372036854775807")"},
        {"-9223372036854775808", "-9223372036854775808", "false", "-9.223372E18",
         R"("-9223372036854775808")"},
        {"9223372036854775808", keptInt, "false", "9.223372E18", R"("9223372036854775808")"},
        {"18446744073709551615", keptInt, "false", "1.8446744E19", R"("18446744073709551615")"},
        {"3.0", "3", "false", "3E0", R"("3.0")"},
        {"1e3", "1000", "false", "1E3", R"("1000.0")"},
        {"1.0", "1", "true", "1E0", R"("1.0")"},
        {"-0.0", "0", "false", "-0E0", R"("-0.0")"},
        {"1.10", keptInt, "false", "1.1E0", R"("1.1")"},
        {"-9.223372036854775808e18", keptInt, "false", "-9.223372E18", keptText},
        {"9.223372036854775808e18", keptInt, "false", "9.223372E18", keptText},
        {"1e39", keptInt, "false", keptFloat, keptText},
        {"9007199254740991.0", "9007199254740991", "false", "9.0071993E15",
         R"("9007199254740991.0")"},
        {"9007199254740993.0", keptInt, "false", "9.0071993E15", R"("9007199254740992.0")"},
        {"-9223372036854775809", keptInt, "false", "-9.223372E18", keptText},
        {"123456789012345678901234567890", keptInt, "false", "1.2345679E29", keptText},
        {"1e-60", keptInt, "false", keptFloat, R"("1e-60")"},
        {R"("-12")", "-12", "false", "-1.2E1", R"("-12")"},
        {R"("007")", "7", "false", "7E0", R"("007")"},
        {R"("9223372036854775808")", keptInt, "false", "9.223372E18", R"("9223372036854775808")"},
        {R"("3.0")", keptInt, "false", "3E0", R"("3.0")"},
        {R"("1e999")", keptInt, "false", keptFloat, R"("1e999")"},
        {R"("1e-999")", keptInt, "false", keptFloat, R"("1e-999")"},
        {R"("0.0e-999")", keptInt, "false", "0E0", R"("0.0e-999")"},
        {R"("12px")", keptInt, "false", keptFloat, R"("12px")"},
        {R"(" 12")", keptInt, "false", keptFloat, R"(" 12")"},
        {R"("+12")", keptInt, "false", keptFloat, R"("+12")"},
        {R"("inf")", keptInt, "false", keptFloat, R"("inf")"},
        {R"("1")", "1", "true", "1E0", R"("1")"},
        {R"("True")", keptInt, "true", keptFloat, R"("True")"},
        {R"("yes")", keptInt, "false", keptFloat, R"("yes")"},
        {R"("")", keptInt, "false", keptFloat, R"("")"},
        {"true", "1", "true", "1E0", R"("true")"},
        {"false", "0", "false", "0E0", R"("false")"},
        {"null", keptInt, "false", keptFloat, keptText},
        {"[1]", keptInt, "false", keptFloat, keptText},
        {R"({"a":1})", keptInt, "false", keptFloat, keptText},
    };
    for (const Row& row : rows) {
        const std::string value = row.json;
        const JSON json =
            JSON::parse(R"({"Int":)" + value + R"(,"Bool":)" + value + R"(,"Float":)" + value +
                        R"(,"String":)" + value + R"(,"Optional":)" + value + "}");
        for (const auto& sample : bothWays(json)) {
            EXPECT_EQ(toText(sample->value("Int")), row.asInt) << value;
            EXPECT_EQ(toText(sample->value("Bool")), row.asBool) << value;
            EXPECT_EQ(toText(sample->value("String")), row.asString) << value;
            EXPECT_EQ(toText(sample->value("Optional")), value == "null" ? "null" : row.asString)
                << value;
            const float expected = std::stof(row.asFloat);
            EXPECT_FLOAT_EQ(sample->Float(), expected) << value;
        }
    }
}

TEST(Mapping, ConvertsArraysAsAWholeOrNotAtAll) {
    const struct {
        const char* json;
        const char* asInts;
        const char* asStrings;
    } rows[] = {
        {"[]", "[]", "[]"},
        {R"([1,"2",3.0,true])", "[1,2,3,1]", R"(["1","2","3.0","true"])"},
        {R"([1,"x"])", keptInts, R"(["1","x"])"},
        {"[1,null]", keptInts, keptTexts},
        {"[1,[2]]", keptInts, keptTexts},
        {R"([1,{"a":2}])", keptInts, keptTexts},
        {"[1,9223372036854775808]", keptInts, R"(["1","9223372036854775808"])"},
        {"1", keptInts, keptTexts},
        {R"("[1]")", keptInts, keptTexts},
        {"null", keptInts, keptTexts},
        {R"({"a":1})", keptInts, keptTexts},
    };
    for (const auto& row : rows) {
        const std::string value = row.json;
        const JSON json = JSON::parse(R"({"Ints":)" + value + R"(,"Strings":)" + value +
                                      R"(,"Samples":)" + value + "}");
        for (const auto& sample : bothWays(json)) {
            EXPECT_EQ(toText(sample->value("Ints")), row.asInts) << value;
            EXPECT_EQ(toText(sample->value("Strings")), row.asStrings) << value;
            EXPECT_EQ(sample->Samples().size(), json["Samples"].arrayValue().size()) << value;
        }
    }
    EXPECT_EQ(JSON::null.as<std::int64_t>(), std::nullopt);
}

/// Notes the calls of its setters.
class Noting : public Sample {
public:
    void setId(std::int64_t newValue) override { note("Id", std::to_string(newValue)); }
    void setInt(std::int64_t newValue) override { note("Int", std::to_string(newValue)); }
    void setString(std::string newValue) override { note("String", newValue); }

    std::string notes;

private:
    void note(const std::string& name, const std::string& newValue) {
        notes += name + "=" + newValue + " ";
    }
};

TEST(Mapping, SetsEachPropertyOnceInTheirOrderAndTheLastOfARepeatedKeyHolds) {
    const struct {
        const char* json;
        const char* notes;
    } rows[] = {
        {R"({"String":"s","Int":1,"Id":2})", "Id=2 Int=1 String=s "},
        {R"({"Int":1,"String":"a","Int":2,"String":"b"})", "Int=2 String=b "},
        {R"({"Int":1,"Int":"x"})", ""}, // the last one does not fit, so the property is left alone
        {R"({"Int":"x","Int":1})", "Int=1 "},
        {R"({"int":1,"INT":2,"":3,"Int ":4,"Samples":[],"value":5})", ""},
        {R"([{"Int":1}])", ""},
        {R"("Int")", ""},
        {"null", ""},
    };
    for (const auto& row : rows) {
        const auto record = std::make_shared<Noting>();
        record->setValue(JSON::parse(row.json));
        EXPECT_EQ(record->notes, row.notes) << row.json;
        // The same through the fields, where nothing is overridden.
        if (const std::string notes = row.notes; notes.find("Int") == std::string::npos) {
            EXPECT_EQ(Sample::create(JSON::parse(row.json))->Int(), -7) << row.json;
        }
    }
}

/// Looks at another property when it is set.
class Observing : public BaseEntity {
    PERCH_RECORD(Observing, BaseEntity);

    PERCH_PROPERTY(std::int64_t, Int);
    PERCH_PROPERTY(std::int64_t, IntAtId);

    PERCH_RECORD_END;

public:
    void setId(std::int64_t newValue) override { setIntAtId(Int() + newValue); }
};
PERCH_RECORD_SCHEMA(Observing);

TEST(Mapping, KeepsTheOrderForAnOverrideInTheVeryClass) {
    EXPECT_EQ(Observing::create(JSON::parse(R"({"Int":5,"Id":1})"))->IntAtId(), 1);
}

/// One property of each kind, empty to begin with.
class Empty : public BaseEntity {
    PERCH_RECORD(Empty, BaseEntity);

    PERCH_PROPERTY(std::int64_t, Int);
    PERCH_PROPERTY(bool, Bool);
    PERCH_PROPERTY(float, Float);
    PERCH_PROPERTY(std::string, String);
    PERCH_PROPERTY(std::optional<std::string>, Optional);
    PERCH_PROPERTY(std::vector<std::int64_t>, Ints);
    PERCH_PROPERTY(JSON, Any);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Empty);
class SetByAccessors : public Empty {};

/// An object of some members, of which some have the same key.
std::string randomObject(std::mt19937& random) {
    const auto oneOf = [&](const auto& list) {
        return std::string(
            list[std::uniform_int_distribution<std::size_t>(0, std::size(list) - 1)(random)]);
    };
    const char* const keys[] = {"Int",  "Bool", "Float", "String", "Optional",
                                "Ints", "Any",  "Id",    "Token"};
    const char* const values[] = {"0",    "1",    "-0.0", "2.5", R"("")",    R"("text")",
                                  "true", "null", "[]",   "[3]", R"(["x"])", "{}"};
    std::string members;
    for (int count = std::uniform_int_distribution<>(0, 8)(random); count > 0; --count)
        members += (members.empty() ? "\"" : ",\"") + oneOf(keys) + "\":" + oneOf(values);
    return "{" + members + "}";
}

TEST(Mapping, GivesTheSameThroughFieldsAndThroughSetters) {
    std::mt19937 random(5); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    for (int run = 0; run < 2'000; ++run) {
        const auto byFields = Empty::create();
        const auto bySetters = Empty::create<SetByAccessors>();
        std::string objects;
        for (int filling = 0; filling < 3; ++filling) {
            const std::string object = randomObject(random);
            objects += object + " ";
            const JSON json = JSON::parse(object);
            byFields->setValue(json);
            bySetters->setValue(json);
            ASSERT_EQ(toText(byFields->properties()), toText(bySetters->properties())) << objects;
        }
    }
}

class Bare : public BaseEntity {
    PERCH_RECORD(Bare, BaseEntity);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Bare);

/// Arrays of two classes, whose keys have other slots in their indexes.
class Pair : public BaseEntity {
    PERCH_RECORD(Pair, BaseEntity);

    PERCH_PROPERTY(std::vector<std::shared_ptr<Empty>>, Wide);
    PERCH_PROPERTY(std::vector<std::shared_ptr<Bare>>, Narrow);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Pair);

TEST(Mapping, ForgetsTheOrderOfKeysOfAnotherClass) {
    const std::string item = R"({"Any":1,"Int":2,"Id":3,"Token":"t","String":"s"})";
    const std::string items = "[" + item + "," + item + "]";
    const auto pair =
        Pair::create(JSON::parse(R"({"Narrow":)" + items + R"(,"Wide":)" + items + "}"));
    ASSERT_EQ(pair->Wide().size() + pair->Narrow().size(), 4U);
    for (const auto& wide : pair->Wide())
        EXPECT_EQ(std::tuple(wide->Int(), wide->Id(), wide->Token(), wide->String()),
                  std::tuple(2, 3, "t", "s"));
    for (const auto& narrow : pair->Narrow())
        EXPECT_EQ(std::tuple(narrow->Id(), narrow->Token()), std::tuple(3, "t"));
}

TEST(Mapping, LeavesExcludedKeysAlone) {
    const JSON json = JSON::parse(R"({"Id":1,"Int":2,"String":"s"})");
    const auto sample = Sample::create();
    sample->setValue(json, Excluded{"Int", "Unknown", "Id"});
    EXPECT_EQ(sample->Id(), 0);
    EXPECT_EQ(sample->Int(), -7);
    EXPECT_EQ(sample->String(), "s");
}

} // namespace
