#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include "RecordTesting.hpp"
#include "Sample.hpp"

#include <algorithm>

using namespace PerchAppLibrary;
using namespace std::string_view_literals;

namespace {

/// Returns a sample that is filled with one value under each of the keys.
std::shared_ptr<Sample> filledWith(const std::string& value, const std::vector<std::string>& keys) {
    std::string members;
    for (const std::string& key : keys)
        members += (members.empty() ? "\"" : ",\"") + key + "\":" + value;
    return Sample::parse("{" + members + "}");
}

/// Returns the value of a property as text; "-" if it has its default.
std::string taken(const Sample& sample, std::string_view name) {
    const Value value = sample.value(name);
    return value == Sample().value(name) ? "-" : toText(value);
}

TEST(Mapping, ConvertsEachKindOfValueToEachKindOfPropertyOrLeavesItAlone) {
    const std::pair<const char*, const char*> rows[] = {
        // JSON, then as Int, Bool, Float and String; "-" where it does not convert
        {"1", R"(1 true 1E0 "1")"},
        {"18446744073709551615", R"(- - 1.8446744E19 "18446744073709551615")"},
        {"3.0", R"(3 - 3E0 "3.0")"},
        {"-0.0", R"(0 false -0E0 "-0.0")"},
        {"9.223372036854775808e18", "- - 9.223372E18 -"},
        {"1e39", "- - - -"},
        {"9007199254740991.0", R"(9007199254740991 - 9.007199E15 "9007199254740991.0")"},
        {"9007199254740993.0", R"(- - 9.007199E15 "9007199254740992.0")"},
        {"-9007199254740992.0", R"(- - -9.007199E15 "-9007199254740992.0")"},
        {"1e-7", R"(- - 1E-7 "0.0000001")"},
        {"1e5", R"(100000 - 1E5 "100000.0")"},
        {"9.2e18", R"(- - 9.2E18 "9200000000000000000.0")"},
        {R"("007")", R"(7 - 7E0 "007")"},
        {R"("3.0")", R"(- - 3E0 "3.0")"},
        {R"("1e-999")", R"(- - - "1e-999")"},
        {R"("0.0e-999")", R"(- - 0E0 "0.0e-999")"},
        {R"("+12")", R"(- - - "+12")"},
        {R"("True")", R"(- true - "True")"},
        {R"("")", R"(- - - "")"},
        {"true", R"(1 true 1E0 "true")"},
        {"false", R"(0 false 0E0 "false")"},
        {"null", "- - - -"},
        {"[1]", "- - - -"}};
    for (const auto& [text, expected] : rows) {
        const auto sample =
            filledWith(text, {"Int", "On", "Flag", "Float", "Double", "String", "Optional",
                              "OptionalInt", "OptionalDouble", "OptionalBool"});
        const bool isKept = sample->On() != sample->Flag();
        const std::string flag = isKept ? "-" : toText(sample->value("On"));
        EXPECT_EQ(taken(*sample, "Int") + " " + flag + " " + taken(*sample, "Float") + " " +
                      taken(*sample, "String"),
                  expected)
            << text;
        const bool isNull = text == "null"sv;
        for (const std::string name : {"String", "Int", "Double"})
            EXPECT_EQ(taken(*sample, "Optional" + (name == "String" ? "" : name)),
                      isNull ? "null" : taken(*sample, name))
                << text;
        EXPECT_EQ(sample->OptionalBool(),
                  isNull ? std::nullopt : std::optional(isKept || sample->On()))
            << text;
    }
    for (const auto& [text, expected] :
         {std::pair("1e39", "1E39"), {"0.1", "1E-1"}, {"\"1e-60\"", "1E-60"}, {"\"1e-999\"", "-"}})
        EXPECT_EQ(taken(*filledWith(text, {"Double"}), "Double"), expected);
}

TEST(Mapping, ConvertsArraysAsAWholeOrNotAtAll) {
    const std::pair<const char*, const char*> rows[] = {
        // JSON, then as Ints and Strings
        {"[]", "[] []"},
        {R"([1,"2",3.0,true])", R"([1,2,3,1] ["1","2","3.0","true"])"},
        {R"([1,"x"])", R"(- ["1","x"])"},
        {"[1,null]", "- -"},
        {"[1,9223372036854775808]", R"(- ["1","9223372036854775808"])"},
        {"null", "- -"}};
    for (const auto& [text, expected] : rows) {
        const auto sample = filledWith(text, {"Ints", "Strings", "Samples"});
        EXPECT_EQ(taken(*sample, "Ints") + " " + taken(*sample, "Strings"), expected) << text;
        EXPECT_EQ(sample->Samples().size(), JSON::parse(text).arrayValue().size()) << text;
    }
    EXPECT_EQ(JSON::null.as<std::int64_t>(), std::nullopt);
}

TEST(Mapping, SetsEachPropertyOnceInTheirOrderAndTheLastOfARepeatedKeyHolds) {
    struct Noting : Sample {
        void setId(std::int64_t id) override { notes += "Id=" + std::to_string(id) + " "; }
        void setInt(std::int64_t number) override {
            notes += "Int=" + std::to_string(number) + " ";
        }
        void setString(std::string text) override { notes += "String=" + text + " "; }
        std::string notes;
    };
    const std::tuple<const char*, const char*, std::int64_t> rows[] = {
        // JSON, the calls of setters, and what Int is when it is filled through its field
        {R"({"String":"s","Int":1,"Id":2})", "Id=2 Int=1 String=s ", 1},
        {R"({"Int":1,"String":"a","Int":2,"String":"b"})", "Int=2 String=b ", 2},
        {R"({"Int":1,"Int":"x"})", "", -7}, // only the last one counts, although it does not fit
        {R"({"Int":"x","Int":1})", "Int=1 ", 1},
        {R"({"Flag":true,"Flag":false,"Float":1,"Float":0})", "", -7},
        {R"({"int":1,"INT":2,"":3,"Int ":4,"Samples":[],"value":5})", "", -7},
        {R"([{"Int":1}])", "", -7}};
    for (const auto& [text, notes, number] : rows) {
        const JSON json = JSON::parse(text);
        Noting record;
        record.setValue(json);
        EXPECT_EQ(record.notes, notes) << text;
        EXPECT_EQ(Sample::create(json)->Int(), number) << text;
        EXPECT_FALSE(Sample::create(json)->Flag()) << text;
    }
}

TEST(Mapping, LeavesExcludedKeysAlone) {
    const auto record = Sample::create();
    record->setValue(
        JSON::parse(R"({"Id":1,"Int":2,"Int":3,"Flag":true,"Token":"t","IsDisabled":true})"),
        Excluded{"Int", "Unknown", "Id", "Token"});
    EXPECT_EQ(changed(record), R"({"IsDisabled":true,"Flag":true})");
}

TEST(NameIndex, DistinguishesNamesOfAllLengths) {
    std::vector<std::string> owned{
        "", "Id", "IsGroup", "ExceptionMessag", "ExceptionMessage", "GroupCollectionIdentifier"};
    owned.emplace_back("Id\0", 3);
    for (std::size_t number = 0; number < 300; ++number)
        owned.push_back((number % 2 == 0 ? "PropertyOfARecord" : "P") + std::to_string(number));
    std::vector<std::string_view> names(owned.begin(), owned.end());
    const NameIndex index(names);
    names.insert(names.end(), {"\0"sv, "ID"sv, "ExceptionMessageA"sv, "GroupCollectionIx"sv});
    for (std::size_t place = 0; place < names.size(); ++place) {
        const std::string_view name = names[place];
        const std::string readable = std::string(name) + "xxxxxxxxxxxxxxxx"; // must not matter
        const std::string_view padded = std::string_view(readable).substr(0, name.size());
        const std::uint32_t slot = index.slotOf(padded);
        EXPECT_EQ(index.find(name), std::min(place, owned.size())) << name;
        EXPECT_EQ(index.findReadable(padded), index.find(name)) << name;
        EXPECT_EQ(index.isAt(slot, padded), place < owned.size()) << name;
        for (const std::string_view other : names) // a wrong guess
            EXPECT_FALSE(other != name && index.isAt(slot, std::string(other) + readable));
    }
}

} // namespace
