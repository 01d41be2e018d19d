#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include "RecordTesting.hpp"
#include "Sample.hpp"

#include <algorithm>

using namespace PerchAppLibrary;
using namespace std::string_view_literals;

namespace {

/// Overrides an accessor, so that it is filled through its accessors.
struct Overriding : Sample {
    void setId(std::int64_t newValue) override { Sample::setId(newValue); }
};

/// Returns a sample that is filled through its fields, and one filled through its accessors, with
/// one value under each of the keys.
std::vector<std::shared_ptr<Sample>> filledWith(const std::string& value,
                                                const std::vector<std::string>& keys) {
    std::string members;
    for (const std::string& key : keys)
        members += (members.empty() ? "\"" : ",\"") + key + "\":" + value;
    const JSON json = JSON::parse("{" + members + "}");
    return {Sample::create(json), Sample::create<Overriding>(json)};
}

/// Returns the value of a property as text; "-" if it has its default.
std::string taken(const Sample& sample, std::string_view name) {
    const Value value = sample.value(name);
    return value == Sample().value(name) ? "-" : toText(value);
}

TEST(Mapping, ConvertsEachKindOfValueToEachKindOfPropertyOrLeavesItAlone) {
    const std::pair<const char*, const char*> rows[] = {
        // JSON, then as Int, Bool, Float and String; "-" where it does not convert
        {"12", R"(12 - 1.2E1 "12")"},
        {"1", R"(1 true 1E0 "1")"},
        {"-0", R"(0 false 0E0 "0")"},
        {"18446744073709551615", R"(- - 1.8446744E19 "18446744073709551615")"},
        {"3.0", R"(3 - 3E0 "3.0")"},
        {"1.0", R"(1 true 1E0 "1.0")"},
        {"-0.0", R"(0 false -0E0 "-0.0")"},
        {"1.10", R"(- - 1.1E0 "1.1")"},
        {"9.223372036854775808e18", "- - 9.223372E18 -"},
        {"1e39", "- - - -"},
        {"9007199254740991.0", R"(9007199254740991 - 9.007199E15 "9007199254740991.0")"},
        {"9007199254740993.0", R"(- - 9.007199E15 "9007199254740992.0")"},
        {"-9007199254740992.0", R"(- - -9.007199E15 "-9007199254740992.0")"},
        {"1e-60", R"(- - - "1e-60")"},
        {R"("-12")", R"(-12 - -1.2E1 "-12")"},
        {R"("007")", R"(7 - 7E0 "007")"},
        {R"("9223372036854775808")", R"(- - 9.223372E18 "9223372036854775808")"},
        {R"("3.0")", R"(- - 3E0 "3.0")"},
        {R"("1e999")", R"(- - - "1e999")"},
        {R"("1e-999")", R"(- - - "1e-999")"},
        {R"("0.0e-999")", R"(- - 0E0 "0.0e-999")"},
        {R"("12px")", R"(- - - "12px")"},
        {R"("+12")", R"(- - - "+12")"},
        {R"("1")", R"(1 true 1E0 "1")"},
        {R"("0")", R"(0 false 0E0 "0")"},
        {R"("True")", R"(- true - "True")"},
        {R"("FALSE")", R"(- false - "FALSE")"},
        {R"("")", R"(- - - "")"},
        {"true", R"(1 true 1E0 "true")"},
        {"false", R"(0 false 0E0 "false")"},
        {"null", "- - - -"},
        {"[1]", "- - - -"}};
    for (const auto& [text, expected] : rows)
        for (const auto& sample :
             filledWith(text, {"Int", "On", "Flag", "Float", "String", "Optional"})) {
            const bool isKept = sample->On() != sample->Flag();
            const std::string flag = isKept ? "-" : toText(sample->value("On"));
            EXPECT_EQ(taken(*sample, "Int") + " " + flag + " " + taken(*sample, "Float") + " " +
                          taken(*sample, "String"),
                      expected)
                << text;
            EXPECT_EQ(taken(*sample, "Optional"),
                      text == "null"sv ? "null" : taken(*sample, "String"))
                << text;
        }
}

TEST(Mapping, ConvertsArraysAsAWholeOrNotAtAll) {
    const std::pair<const char*, const char*> rows[] = {
        // JSON, then as Ints and Strings
        {"[]", "[] []"},
        {R"([1,"2",3.0,true])", R"([1,2,3,1] ["1","2","3.0","true"])"},
        {R"([1,"x"])", R"(- ["1","x"])"},
        {"[1,null]", "- -"},
        {"[1,9223372036854775808]", R"(- ["1","9223372036854775808"])"},
        {"1", "- -"},
        {"null", "- -"}};
    for (const auto& [text, expected] : rows)
        for (const auto& sample : filledWith(text, {"Ints", "Strings", "Samples"})) {
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
        {R"({"int":1,"INT":2,"":3,"Int ":4,"Samples":[],"value":5})", "", -7},
        {R"([{"Int":1}])", "", -7}};
    for (const auto& [text, notes, number] : rows) {
        const JSON json = JSON::parse(text);
        Noting record;
        record.setValue(json);
        EXPECT_EQ(record.notes, notes) << text;
        EXPECT_EQ(Sample::create(json)->Int(), number) << text;
    }
}

TEST(Mapping, LeavesExcludedKeysAlone) {
    const auto record = Sample::create();
    record->setValue(JSON::parse(R"({"Id":1,"Int":2,"Flag":true,"Token":"t","IsDisabled":true})"),
                     Excluded{"Int", "Unknown", "Id", "Token"});
    EXPECT_EQ(changed(record), R"({"IsDisabled":true,"Flag":true})");
}

/// Looks a name up in each way: on memory that ends with it, on readable memory, by the last guess,
/// and from the slot where that lookup ended.
std::size_t find(const NameIndex& index, std::string_view name, std::uint32_t& guess) {
    const std::vector<char> alone(name.begin(), name.end());
    const std::size_t found = index.find({alone.data(), alone.size()});
    std::vector<char> readable(name.begin(), name.end());
    readable.resize(std::max(name.size(), NameIndex::headSize), 'x'); // must not matter
    EXPECT_EQ(index.findReadable({readable.data(), name.size()}), found) << name;
    const std::string_view padded(readable.data(), name.size());
    EXPECT_TRUE(!index.isAt(guess, padded) || index.indexAt(guess) == found) << name;
    guess = index.slotOf(padded);
    EXPECT_EQ(index.indexAt(guess), found) << name;
    EXPECT_EQ(index.isAt(guess, padded), found != index.find("?") && name.size() <= 16) << name;
    return found;
}

TEST(NameIndex, DistinguishesNamesOfAllLengths) {
    std::vector<std::string> owned{"",
                                   "I",
                                   "Id",
                                   "IdA",
                                   "IsGroup",
                                   "GroupTag",
                                   "TagGroup",
                                   "ExceptionMessag",
                                   "ExceptionMessage",
                                   "GroupCollectionId",
                                   "GroupCollectionIdentifier",
                                   std::string("Id\0", 3)};
    for (std::size_t number = 0; number < 300; ++number)
        owned.push_back((number % 2 == 0 ? "PropertyOfARecord" : "P") + std::to_string(number));
    const std::vector<std::string_view> names(owned.begin(), owned.end());
    const NameIndex index(names);
    std::uint32_t guess = 0;
    for (std::size_t place = 0; place < names.size(); ++place) {
        EXPECT_EQ(find(index, names[place], guess), place) << names[place];
        for (const std::string_view other :
             {"i"sv, "ID"sv, "Idx"sv, "\0"sv, "Id\0\0"sv, "ExceptionMessageA"sv,
              "GroupCollectionI"sv, "GroupCollectionIx"sv, "PropertyOfARecord301"sv}) {
            (void)find(index, names[place], guess); // a guess that is wrong for the other
            EXPECT_EQ(find(index, other, guess), names.size()) << other;
        }
    }
}

} // namespace
