#include <PerchAppLibrary/platform/Text.hpp>

#include <gtest/gtest.h>

#include <string>

namespace text = PerchAppLibrary::text;

namespace {

TEST(Text, UpperCasesFullyAndWithoutALocale) {
    const std::pair<const char*, const char*> cases[] = {
        {"abc", "ABC"}, {"Große", "GROSSE"},      {"ﬁnal", "FINAL"}, {"istanbul", "ISTANBUL"},
        {"ı", "I"},     {"ὀδυσσεύς", "ὈΔΥΣΣΕΎΣ"}, {"ᾳ", "ΑΙ"},       {"宋体", "宋体"},
        {"ｆ", "Ｆ"},   {"a\xFFz", "A\uFFFDZ"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(text::uppercased(given), expected);
}

TEST(Text, ComparesByCanonicalEquivalence) {
    const struct {
        const char *left, *right;
        bool equal;
    } cases[] = {
        {"é", "e\u0301", true},
        {"각", "\u1100\u1161\u11A8", true},
        {"q\u0323\u0307", "q\u0307\u0323", true}, // marks of different classes in either order
        {"q\u0301\u0300", "q\u0300\u0301", false},
        {"\u212B", "\u00C5", true}, // the Ångström sign
        {"A", "a", false},
        {"ﬁ", "fi", false}, // compatibility is not canonical
        {"e", "é", false},
        {"", "", true},
        {"\xFF", "\uFFFD", true},
        {"\xF0\x9F\x98", "\uFFFD", true}, // one ill-formed sequence
        {"\xFF\xFF", "\uFFFD", false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(text::equal(each.left, each.right), each.equal) << each.left << " " << each.right;
        EXPECT_EQ(text::equal(each.right, each.left), each.equal) << each.left << " " << each.right;
    }
}

TEST(Text, FindsWholeCharactersWhateverTheirSpelling) {
    const struct {
        const char *haystack, *needle;
        bool contained;
    } cases[] = {
        {"Fangsong", "SONG", true},
        {"Fangsong", "", false},
        {"", "", false},
        {"Straße", "SS", true},
        {"ß", "s", true},
        {"ﬁ", "i", true},
        {"étude", "E\u0301", true},
        {"e\u0301tude", "é", true},
        {"été", "e", false},
        {"e\u0301t", "e", false},
        {"été e", "e", true},   // a later place holds
        {"é", "\u0301", false}, // a mark alone
        {"\u0301x", "\u0301", true},
        {"ê\u0323", "ê", false},
        {"각", "가", false},
        {"각", "\u1100", false},
        {"가나", "가", true},
        {"\u1100\u1161\u11A8", "각", true},
        {"কা", "ক", true}, // the vowel sign composes, but not with this letter
        {"ো", "ে", false}, // it does with this one
        {"ΟΔΥΣΣΕΥΣ", "οδυσσευς", true},
        {"ᾴ", "\u1FB3\u0301", true},
        {"😀 Emoji", "😀", true},
        {"a\xFFz", "\uFFFD", true},
        {"宋体 标准", "体 标", true},
    };
    for (const auto& each : cases)
        EXPECT_EQ(text::contains(each.haystack, each.needle), each.contained)
            << each.haystack << " " << each.needle;
    EXPECT_FALSE(text::contains("Fangsong", "SONG", text::Case::kept));
    EXPECT_TRUE(text::contains("Fangsong", "song", text::Case::kept));
    EXPECT_FALSE(text::contains("ß", "s", text::Case::kept));
}

TEST(Text, StaysLinearOnTextMadeToBeSlow) {
    // Minutes where the cost grows with the square.
    std::string marks = "a";
    std::string ordered = "a";
    for (int count = 0; count < 100000; ++count)
        marks += "\u0344"; // decomposes into two marks
    for (int count = 0; count < 100000; ++count) {
        marks += "\u0323";
        ordered += "\u0323";
    }
    for (int count = 0; count < 100000; ++count)
        ordered += "\u0308\u0301";
    EXPECT_TRUE(text::decomposed(marks) == ordered);
    EXPECT_TRUE(text::equal(marks, ordered));
    EXPECT_FALSE(text::contains(std::string(400000, 'a'), std::string(200000, 'a') + "b"));
    EXPECT_TRUE(text::contains(std::string(400000, 'a') + "b", std::string(200000, 'a') + "b"));
    EXPECT_TRUE(text::contains("aabaabaac", "AABAAC"));
}

TEST(Text, CountsAndCutsInUTF16Units) {
    const struct {
        const char* given;
        std::size_t begin, end;
        const char* expected;
    } cases[] = {
        {"abcdef", 0, 2, "ab"},
        {"abcdef", 2, 4, "cd"},
        {"abcdef", 4, 99, "ef"},
        {"abcdef", 7, 99, ""},
        {"a😀b", 0, 2, "a\uFFFD"},
        {"a😀b", 2, 4,
         "\uFFFD"
         "b"},
        {"a😀b", 1, 3, "😀"},
        {"宋体标", 1, 2, "体"},
        {"a\xFF"
         "bc",
         0, 2, "a\xFF"},
        {"😀", 1, 1, ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(text::utf16Substring(each.given, each.begin, each.end), each.expected) << each.given;
    EXPECT_EQ(text::utf16Length("a😀b宋é\xFF"), 7U);
    EXPECT_EQ(text::utf16Length(""), 0U);
}

TEST(Text, CountsCharactersAndColumns) {
    const struct {
        const char* given;
        std::size_t graphemes, codePoints, columns;
    } cases[] = {
        {"", 0, 0, 0},
        {"abc", 3, 3, 3},
        {"e\u0301", 1, 2, 1},
        {"宋体", 2, 2, 4},
        {"각", 1, 1, 2},
        {"\u1100\u1161\u11A8", 1, 3, 2},
        {"👨‍👩‍👧", 1, 5, 6},
        {"\r\n", 1, 2, 0},
        {"ＦＵ", 2, 2, 4},
        {"\xFF\xFF", 2, 2, 2},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(text::graphemeCount(each.given), each.graphemes) << each.given;
        EXPECT_EQ(text::codePointCount(each.given), each.codePoints) << each.given;
        EXPECT_EQ(text::columnCount(each.given), each.columns) << each.given;
    }
}

TEST(Text, ReplacesIllFormedSequences) {
    const std::pair<std::string, std::string> cases[] = {
        {"\xC0\x80", "\uFFFD\uFFFD"},                     // an over-long NUL
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // an encoded surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond U+10FFFF
        {"x\xE5\xAE", "x\uFFFD"},                         // cut off
        {"好", "好"},
    };
    for (const auto& [given, expected] : cases) {
        EXPECT_EQ(text::wellFormed(given), expected);
        EXPECT_EQ(text::isWellFormed(given), given == expected);
        EXPECT_EQ(text::decomposed(given), expected);
    }
}

} // namespace
