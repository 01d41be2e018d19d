#include "literal/LiteralText.hpp"

#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <gtest/gtest.h>

#include <unicode/uchar.h>

#include <string>
#include <tuple>

namespace text = PerchAppLibrary::text;
using text::ComparedText;
using text::Needle;

namespace {

bool contains(std::string_view haystack, std::string_view needle) {
    return Needle(needle).isIn(ComparedText(haystack));
}

TEST(Text, ComparesEachCharacterInTheFormThatICUGives) {
    ComparedText compared; // of one character after the other, so from its cache
    for (UChar32 codePoint = 0; codePoint <= UCHAR_MAX_VALUE; ++codePoint) {
        const icu::UnicodeString form = literal::folded(icu::UnicodeString(codePoint));
        compared.assign(literal::utf8(icu::UnicodeString(codePoint)));
        EXPECT_EQ(compared.bytes(), literal::utf8(form)) << codePoint;
        EXPECT_TRUE(!compared.isPlain() || literal::composed(form) == form) << "may not be cut off";
    }
}

TEST(Text, GivesThePartOfTheOriginalThatWasFound) {
    for (const auto& [text, needle, part] : {std::tuple("Ünïcödé Straße!", "strasse", "Straße"),
                                             {"xﬁy", "i", "ﬁ"},
                                             {"cafe\u0301!", "é", "e\u0301"},
                                             {"a\xFF\xFFz", "Z", "z"}}) {
        const auto found = Needle(needle).partOf(text).value();
        EXPECT_EQ(std::string(text).substr(found.begin, found.end - found.begin), part) << text;
    }
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

    const std::string letters(20 * many, 'a'), half(10 * many, 'a');
    EXPECT_FALSE(contains(letters, half + "b"));
    EXPECT_FALSE(contains(letters + "\u0301", std::string(32, 'a') + "b"));
    const std::string accents = repeated(many, "a\u0301");
    EXPECT_FALSE(contains(accents, accents.substr(1, many))) << "it begins with a mark";
    EXPECT_TRUE(contains(accents, accents.substr(0, many / 2 * 3)));
    EXPECT_TRUE(Needle("b").partOf(accents + "b"));
}

TEST(Text, CountsColumns) {
    std::string columns;
    for (const char* const each : {"abc", "e\u0301", "宋体", "각", "\u1100\u1161\u11A8", "\r\n",
                                   "ＦＵ", "👨‍👩‍👧", "\xFF\xFF"})
        columns += std::to_string(text::columnCount(each));
    EXPECT_EQ(columns, "314220462");
    EXPECT_TRUE(!text::isControl("") && text::codePoint("") == U'\0');
}

} // namespace
