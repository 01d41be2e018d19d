#include "BothRoads.hpp"

#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/md5.hpp>
#include <PerchAppLibrary/platform/URL.hpp>
#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <gtest/gtest.h>

#include <boost/json/parse.hpp>

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

using namespace PerchAppLibrary;
using testing::PrintToString;
using text::Case;
using text::ComparedText;

namespace {

std::vector<std::string> split(const std::string& text, char separator) {
    std::istringstream stream(text);
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

/// Tests with the files of Debian's package unicode-data. Another version of Unicode may add cases,
/// decompositions and breaks, so such files say nothing about ICU.
class Unicode : public testing::Test {
protected:
    void SetUp() override {
        std::ostringstream readMe;
        readMe << std::ifstream("/usr/share/unicode/ReadMe.txt").rdbuf();
        if (readMe.str().find("Version " U_UNICODE_VERSION ".") == std::string::npos)
            GTEST_SKIP() << "/usr/share/unicode is missing or not of Unicode " U_UNICODE_VERSION;
    }

    /// Returns the fields of each line, without comments. The file may be compressed.
    static std::vector<std::vector<std::string>> rowsOf(const std::string& name) {
        const std::string command = "bzip2 -dcf /usr/share/unicode/" + name + "*";
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
        std::string text;
        std::array<char, 4096> block{};
        while (const std::size_t size = std::fread(block.data(), 1, block.size(), pipe.get()))
            text.append(block.data(), size);
        std::vector<std::vector<std::string>> rows;
        for (const std::string& line : split(text, '\n'))
            if (const auto fields = split(line.substr(0, line.find('#')), ';'); !fields.empty())
                rows.push_back(fields);
        EXPECT_FALSE(rows.empty()) << command << " printed nothing";
        return rows;
    }

    static std::string utf8(const icu::UnicodeString& text) {
        std::string converted;
        return text.toUTF8String(converted);
    }

    /// Returns the characters whose hexadecimal numbers the field holds.
    static std::string characters(const std::string& field) {
        icu::UnicodeString text;
        for (const std::string& number : split(field, ' '))
            if (!number.empty() && std::isxdigit(static_cast<unsigned char>(number.front())))
                text.append(static_cast<UChar32>(std::stoul(number, nullptr, 16)));
        return utf8(text);
    }

    static void forEachCharacter(const auto& test) {
        for (UChar32 codePoint = 0; codePoint <= UCHAR_MAX_VALUE; ++codePoint)
            if (!U_IS_SURROGATE(codePoint))
                test(utf8(codePoint));
    }
};

TEST_F(Unicode, Normalization) {
    std::set<std::string> listed;
    std::string part;
    ComparedText compared(Case::sensitive);
    const auto hasForms = [&](const std::string& text, const std::string& nfc,
                              const std::string& nfd) {
        compared.assign(text);
        return text::composed(text) == nfc && text::decomposed(text) == nfd &&
               compared.bytes() == nfd;
    };
    for (const auto& row : rowsOf("NormalizationTest.txt")) {
        if (row.size() < 5) {
            part = row.front();
            continue;
        }
        std::array<std::string, 5> c;
        std::transform(row.begin(), row.begin() + 5, c.begin(), characters);
        if (part == "@Part1 ")
            listed.insert(c[0]);
        EXPECT_TRUE(hasForms(c[0], c[1], c[2]) && hasForms(c[1], c[1], c[2]) &&
                    hasForms(c[2], c[1], c[2]) && hasForms(c[3], c[3], c[4]) &&
                    hasForms(c[4], c[3], c[4]))
            << row[0];
    }
    EXPECT_GT(listed.size(), 10'000U);
    forEachCharacter([&](const std::string& character) {
        EXPECT_TRUE(hasForms(character, character, character) || listed.contains(character))
            << PrintToString(character);
    });
}

TEST_F(Unicode, UpperCase) {
    std::unordered_map<std::string, std::string> upperCases;
    for (const auto& row : rowsOf("UnicodeData.txt"))
        if (!row.at(12).empty())
            upperCases[characters(row[0])] = characters(row[12]);
    for (const auto& row : rowsOf("SpecialCasing.txt"))
        if (row.size() == 5) // a sixth field is a condition
            upperCases[characters(row[0])] = characters(row[3]);
    ComparedText compared;
    forEachCharacter([&](const std::string& character) {
        const auto found = upperCases.find(character);
        const std::string& upperCase = found == upperCases.end() ? character : found->second;
        const std::string form = text::decomposed(upperCase); // of all with this upper case
        compared.assign(character);
        EXPECT_TRUE(text::uppercased(character) == upperCase && text::folded(character) == form &&
                    compared.bytes() == form)
            << PrintToString(character);
        EXPECT_TRUE(!compared.isPlain() || text::composed(form) == form) << "may not be cut off";
    });
}

TEST_F(Unicode, GraphemeBreaks) {
    for (const auto& row : rowsOf("auxiliary/GraphemeBreakTest.txt"))
        EXPECT_EQ(text::graphemeCount(characters(row[0])), split(row[0], '\xB7').size() - 2)
            << row[0]; // "÷" ends with the byte B7
}

/// Tests whether the text alone, and as a value in a list, is a document.
void expectDocument(const std::string& text, bool isDocument) {
    for (const std::string& tested :
         {"\t\n\r " + text + " \t\n\r", "[{\"x\":" + text + "},{\"ProductName\":" + text + "}]"}) {
        const std::string outcome = BothRoads<VelmoCloudEntity::FontList>::byDocument(tested);
        EXPECT_EQ(outcome.find("line ") == std::string::npos, isDocument) << tested;
        EXPECT_EQ(BothRoads<VelmoCloudEntity::FontList>::directly(tested), outcome) << tested;
    }
}

TEST(RFC8259, TakesDocumentsAlone) {
    for (const std::string& text : split(R"(0|-0.0|1E+1|1e-1|0e00|-12.0340E+056|null|""|"\"\\\/\b"
        |"\u0000\uD834\udd1e"|"\uFFFE\uDBFF\uDFFF"|"\\u12"|"a/*b*/c//d#"|"\uD888\u1234"|"\uDC00"|[ ]
        |[[],{"":[[]]}]|{ "a" : 1 , "a" : {} }|"{好:好}"|123456789012345678901234567890.12345)",
                                         '|'))
        expectDocument(text, true);
    for (const std::string& text : split(R"(|-|+1|00|1.|.1|1e|1e+-1|0x1|NaN|True|nulll|'a'|"\x41"
        |"\u12"|"\u{41}"|"a""b"|[1,]|[,1]|[1,,2]|[1}|{"a"}|{"a":1,}|{1:1}|{a:1}|[]x|{} {}|// c|[1/**/])",
                                         '|'))
        expectDocument(text, false);
}

TEST(RFC1321, DigestsTheTestSuite) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
         "d174ab98d277d9f5a5611c2c9f419d9f"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"}};
    for (const auto& [text, digest] : rows)
        EXPECT_EQ(md5(text), digest) << text;
}

TEST(RFC3986, TakesTheReferencesOfTheExamplesUnchanged) {
    std::istringstream texts(R"(ftp://ftp.is.co.za/rfc/rfc1808.txt ldap://[2001:db8::7]/c=GB?a?one
        mailto:John.Doe@example.com tel:+1-816-555-1212 telnet://192.0.2.16:80/ urn:oasis:names:4.1.2
        http://a/b/c/d;p?q g:h g ./g g/ /g //g ?y g?y #s g#s g?y#s ;x g;x g;x?y#s . ./ .. ../ ../g ../..
        ../../ ../../g ../../../g /./g /../g g. .g g.. ..g ./../g ./g/. g/./h g/../h g;x=1/./y
        g;x=1/../y g?y/./x g?y/../x g#s/./x g#s/../x http:g)");
    for (std::string text; texts >> text;) {
        const auto url = url::parse(text);
        EXPECT_TRUE(url && url->buffer() == text) << text;
    }
    for (const std::string& other :
         split("%G0|a:b:%|+a:b|a[b]|//::1]|//[1::2::3]|//h:8a|//a@b@c|a b|宋", '|'))
        EXPECT_FALSE(url::parse(other)) << other;
}

} // namespace
