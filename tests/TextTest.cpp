#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/NeedleSet.hpp>
#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/detail/ByteMatches.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace text = PerchAppLibrary::text;
using text::Case;
using text::ComparedText;
using text::Needle;
using text::SearchedText;

namespace {

/// A character in UTF-8 of so many bytes; a surrogate gives ill-formed ones.
template <int Length>
std::string utf8(char32_t codePoint) {
    std::string bytes(1, static_cast<char>((0xF00U >> Length) | codePoint >> (6 * (Length - 1))));
    for (int left = Length - 2; left >= 0; --left)
        bytes += static_cast<char>(0x80U | (codePoint >> (6 * left) & 0x3FU));
    return bytes;
}

bool contains(std::string_view haystack, std::string_view needle) {
    SearchedText text(haystack);
    return Needle(needle).isIn(text);
}

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
        EXPECT_EQ(ComparedText(each.left, Case::sensitive) ==
                      ComparedText(each.right, Case::sensitive),
                  each.equal)
            << each.left << " " << each.right;
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
        EXPECT_EQ(contains(each.haystack, each.needle), each.contained)
            << each.haystack << " " << each.needle;
}

TEST(Text, FindsEveryPlaceWhateverTheLengths) {
    // Against the standard library's search, around the sizes of words and blocks.
    std::mt19937 random(7);
    const auto letters = [&random](std::size_t length) {
        std::string made;
        while (made.size() < length)
            made += std::string_view("abAB\0-\x7F", 7)[random() % 7];
        return made;
    };
    std::size_t found = 0;
    for (int count = 0; count < 60000; ++count) {
        const std::string haystack = letters(random() % (count % 10 == 0 ? 200 : 40));
        std::string needle = letters(1 + random() % 4);
        if (count % 3 == 0 && haystack.size() > 1) {
            const std::size_t begin = random() % (haystack.size() - 1);
            needle = haystack.substr(begin, 1 + random() % (haystack.size() - begin));
        }
        const auto expected = text::uppercased(haystack).find(text::uppercased(needle));
        for (const std::string& before :
             {std::string(), std::string("\u5B8B"), std::string("\u00E9")}) {
            const std::string whole = before + haystack;
            SearchedText searched(whole);
            const auto offset = Needle(needle).find(searched);
            const std::size_t shift = ComparedText(before).bytes().size();
            ASSERT_EQ(offset.value_or(std::string::npos),
                      expected == std::string::npos ? expected : expected + shift)
                << testing::PrintToString(haystack) << testing::PrintToString(needle);
        }
        found += expected != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(found, 20000U);
}

TEST(Text, ComparesAlikeOnEveryRoad) {
    // Of every character, in the company of others: by the roads for plain text, character by
    // character, and whole.
    for (const Case letterCase : {Case::insensitive, Case::sensitive}) {
        ComparedText reused(letterCase);
        for (char32_t codePoint = 1; codePoint < 0x30000; ++codePoint) {
            const std::string character = codePoint < 0x80
                                              ? std::string(1, static_cast<char>(codePoint))
                                          : codePoint < 0x800   ? utf8<2>(codePoint)
                                          : codePoint < 0x10000 ? utf8<3>(codePoint)
                                                                : utf8<4>(codePoint);
            for (const std::string& text :
                 {"a" + character + "\u5B8B", "\u0327" + character + "\u0301"}) {
                reused.assign(text);
                const std::string form =
                    letterCase == Case::insensitive ? text::folded(text) : text::decomposed(text);
                ASSERT_EQ(reused.bytes(), form)
                    << "U+" << std::hex << static_cast<std::uint32_t>(codePoint);
                ASSERT_TRUE(!reused.isPlain() ||
                            text::composed(form) == form); // and may be cut anywhere
            }
        }
    }
}

TEST(Text, FindsOneOfManyNeedlesWhereEachWouldBe) {
    const std::string all[] = {"e",      "\u00E9", "\u00DF", "\uFB03", "\u5B8B",
                               "\uAC00", "\u1100", "\u0301", "x"};
    const std::string haystacks[] = {"e\u0301",       "E",       "strasse", "ffi", "\u4EFF\u5B8B",
                                     "\uAC01",        "\u0301e", "\uAC00x", "",    "EFG\xFF",
                                     "\u00C9t\u00E9", "s s"};
    for (unsigned chosen = 0; chosen < 1U << std::size(all); ++chosen) {
        text::NeedleSet set;
        for (std::size_t index = 0; index < std::size(all); ++index)
            if ((chosen >> index & 1U) != 0)
                set.add(all[index]);
        for (const std::string& haystack : haystacks) {
            SearchedText searched(haystack);
            bool expected = false;
            for (std::size_t index = 0; index < std::size(all); ++index)
                expected =
                    expected || ((chosen >> index & 1U) != 0 && contains(haystack, all[index]));
            ASSERT_EQ(set.anyIn(searched), expected) << haystack << " " << chosen;
        }
    }
}

TEST(Text, TellsWhichPartOfTheOriginalWasFound) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Ünïcödé Straße", "strasse", "Straße"},
        {"Ünïcödé Straße", "s", "S"},
        {"Straße", "asse", "aße"},
        {"xﬁy", "i", "ﬁ"},
        {"cafe\u0301!", "é", "e\u0301"},
        {"仿宋体", "宋", "宋"},
        {"a\xFF\xFFz", "Z", "z"},
    };
    for (const auto& [given, needle, part] : cases) {
        const auto found = Needle(needle).partOf(given);
        ASSERT_TRUE(found) << given;
        EXPECT_EQ(std::string(given).substr(found->begin, found->end - found->begin), part);
    }
    EXPECT_FALSE(Needle("e").partOf("é"));
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
    EXPECT_TRUE(ComparedText(marks, Case::sensitive) == ComparedText(ordered, Case::sensitive));
    EXPECT_FALSE(contains(std::string(400000, 'a'), std::string(200000, 'a') + "b"));
    EXPECT_TRUE(contains(std::string(400000, 'a') + "b", std::string(200000, 'a') + "b"));
    EXPECT_FALSE(contains(std::string(400000, 'a') + "\u0301", std::string(32, 'a') + "b"));
    const std::string marked = "a\u0301"; // a long needle that begins with a mark is at no place
    std::string many = marked;
    while (many.size() < 400000)
        many += marked;
    EXPECT_FALSE(contains(many, many.substr(1, 100000)));
    EXPECT_TRUE(contains(many, many.substr(0, 99999)));
    EXPECT_TRUE(contains("aabaabaac", "AABAAC"));
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
        EXPECT_EQ(text::utf16Substring(each.given, each.begin, each.end), each.expected)
            << each.given;
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

TEST(ByteMatches, AreTheSameInBlocksAndByteByByte) {
    constexpr std::string_view alphabet("aA@z\0\xE1\xFF", 7);
    std::mt19937_64 random(1);
    const auto randomByte = [&] { return alphabet[random() % alphabet.size()]; };
    for (int run = 0; run < 100; ++run)
        for (std::size_t size = 1; size <= text::ByteMatches::most; ++size) {
            std::vector<char> bytes(
                size); // as long as the text, so that a sanitizer sees what reads behind it
            std::ranges::generate(bytes, randomByte);
            const std::string_view given(bytes.data(), size);
            const text::SoughtByte first(randomByte(), run % 2 == 0);
            const text::SoughtByte last(randomByte(), run % 3 == 0);
            const text::ByteMatches expected = text::matchesByByte(given, first, last);
            const text::ByteMatches found = text::matchesOf(given, first, last);
            ASSERT_EQ(std::tie(found.first, found.last), std::tie(expected.first, expected.last))
                << testing::PrintToString(given);
        }
    const auto matches =
        text::matchesByByte("Aba", text::SoughtByte('a', true), text::SoughtByte('B', false));
    EXPECT_EQ(matches.first, 0b101U);
    EXPECT_EQ(matches.last, 0U);
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
