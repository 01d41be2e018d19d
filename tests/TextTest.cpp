#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <gtest/gtest.h>

#include <string>

namespace text = PerchAppLibrary::text;
using text::Case;
using text::ComparedText;
using text::Needle;
using text::SearchedText;
using text::TextSignature;

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

TEST(Text, HasASignatureThatCoversItsPartsAndFewOthers) {
    const std::string letters = "The quick Fox-jumps_over a LAZY dog"; // several words and a rest
    int covered = 0, others = 0;
    for (std::size_t size = 1; size <= letters.size(); ++size) {
        const std::string whole = letters.substr(0, size);
        const TextSignature folded{ComparedText(whole)};
        TextSignature unfolded;
        unfolded.addASCII(whole);
        for (std::size_t begin = 0; begin < size; ++begin) {
            const std::string part = whole.substr(begin);
            const TextSignature ofPart{ComparedText(part)};
            EXPECT_TRUE(folded.covers(ofPart) && unfolded.covers(ofPart)) << whole << '/' << part;
            const TextSignature other{ComparedText(std::string(part.rbegin(), part.rend()))};
            EXPECT_EQ(folded.covers(other), unfolded.covers(other)) << whole << '/' << part;
            covered += part.size() > 1 && folded.covers(other) ? 1 : 0;
            others += part.size() > 1 ? 1 : 0;
        }
    }
    EXPECT_LT(covered * 20, others);
}

TEST(Text, CountsColumns) {
    const std::pair<const char*, std::size_t> cases[] = {{"abc", 3},
                                                         {"e\u0301", 1},
                                                         {"宋体", 4},
                                                         {"각", 2},
                                                         {"\u1100\u1161\u11A8", 2},
                                                         {"\r\n", 0},
                                                         {"ＦＵ", 4},
                                                         {"👨‍👩‍👧", 6},
                                                         {"\xFF\xFF", 2}};
    for (const auto& [text, columns] : cases)
        EXPECT_EQ(text::columnCount(text), columns) << text;
    EXPECT_TRUE(!text::isControl("") && text::codePoint("") == U'\0');
}

} // namespace
