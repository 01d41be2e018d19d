#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <gtest/gtest.h>

#include <unicode/unistr.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace text = PerchAppLibrary::text;
using text::Case;
using text::ComparedText;
using text::Needle;
using text::SearchedText;

namespace {

bool contains(std::string_view haystack, std::string_view needle) {
    SearchedText text(haystack);
    return Needle(needle).isIn(text);
}

TEST(Text, FindsNoLongNeedleInWhatAnEarlierTextLeft) {
    std::string longer;
    while (longer.size() < 48) // whole words, behind which the buffer keeps what it had
        longer += "宋";
    longer += 'A';
    const Needle needle(longer);
    SearchedText text(std::string_view{longer});
    EXPECT_TRUE(needle.isIn(text));
    text.assign(std::string_view(longer).substr(0, longer.size() - 1));
    EXPECT_FALSE(needle.isIn(text));
}

TEST(Text, ComparedFormsAgreeByCharacterAndAsAWhole) {
    // The first text that is not plain is folded as a whole, the others by character, with a cache.
    for (const Case letterCase : {Case::insensitive, Case::sensitive}) {
        ComparedText reused(letterCase);
        for (UChar32 codePoint = 1; codePoint < 0x30000; ++codePoint) {
            std::string character;
            icu::UnicodeString(codePoint).toUTF8String(character);
            for (const std::string& text :
                 {"a" + character + "\u5B8B", "\u0327" + character + "\u0301"}) {
                reused.assign(text);
                const std::string form =
                    letterCase == Case::insensitive ? text::folded(text) : text::decomposed(text);
                ASSERT_EQ(reused.bytes(), form) << "U+" << std::hex << codePoint;
                ASSERT_TRUE(!reused.isPlain() || text::composed(form) == form)
                    << "U+" << std::hex << codePoint << " may not be cut off";
            }
        }
    }
}

TEST(Text, GivesThePartOfTheOriginalThatWasFound) {
    const struct {
        const char *text, *needle, *part;
    } cases[] = {
        {"Ünïcödé Straße", "strasse", "Straße"},
        {"Ünïcödé Straße", "s", "S"},
        {"Straße", "asse", "aße"},
        {"xﬁy", "i", "ﬁ"},
        {"cafe\u0301!", "é", "e\u0301"},
        {"仿宋体", "宋", "宋"},
        {"a\xFF\xFFz", "Z", "z"},
    };
    for (const auto& each : cases) {
        const auto found = Needle(each.needle).partOf(each.text).value();
        EXPECT_EQ(std::string(each.text).substr(found.begin, found.end - found.begin), each.part)
            << each.text;
    }
    EXPECT_FALSE(Needle("e").partOf("é"));
}

std::string repeated(std::size_t count, const char* part) {
    std::string text;
    for (; count > 0; --count)
        text += part;
    return text;
}

TEST(Text, FindsAndDecomposesLongTextsInLinearTime) {
    constexpr std::size_t many = 200'000;
    // U+0344 decomposes into two marks, which come behind U+0323.
    const std::string marks = "a" + repeated(many, "\u0344") + repeated(many, "\u0323");
    const std::string ordered = "a" + repeated(many, "\u0323") + repeated(many, "\u0308\u0301");
    EXPECT_TRUE(text::decomposed(marks) == ordered);
    EXPECT_TRUE(ComparedText(marks, Case::sensitive) == ComparedText(ordered, Case::sensitive));

    const std::string letters(20 * many, 'a'), half(10 * many, 'a');
    EXPECT_FALSE(contains(letters, half + "b"));
    EXPECT_TRUE(contains(letters + "b", half + "b"));
    EXPECT_FALSE(contains(letters + "\u0301", std::string(32, 'a') + "b"));
    const std::string accents = repeated(many, "a\u0301");
    EXPECT_FALSE(contains(accents, accents.substr(1, many))) << "it begins with a mark";
    EXPECT_TRUE(contains(accents, accents.substr(0, many / 2 * 3)));
    EXPECT_TRUE(Needle("b").partOf(accents + "b"));
}

TEST(Text, CountsUnitsCharactersAndColumns) {
    const struct {
        const char* text;
        std::size_t utf16Length, codePoints, graphemes, columns;
    } cases[] = {
        {"", 0, 0, 0, 0},
        {"abc", 3, 3, 3, 3},
        {"e\u0301", 2, 2, 1, 1},
        {"宋体", 2, 2, 2, 4},
        {"각", 1, 1, 1, 2},
        {"\u1100\u1161\u11A8", 3, 3, 1, 2},
        {"👨‍👩‍👧", 8, 5, 1, 6},
        {"\r\n", 2, 2, 1, 0},
        {"ＦＵ", 2, 2, 2, 4},
        {"\xFF\xFF", 2, 2, 2, 2},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(text::utf16Length(each.text), each.utf16Length) << each.text;
        EXPECT_EQ(text::codePointCount(each.text), each.codePoints) << each.text;
        EXPECT_EQ(text::graphemeCount(each.text), each.graphemes) << each.text;
        EXPECT_EQ(text::columnCount(each.text), each.columns) << each.text;
    }
    EXPECT_TRUE(!text::isControl("") && text::codePoint("") == U'\0');
}

} // namespace
