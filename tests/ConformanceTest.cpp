#include <PerchAppLibrary/json/JSON.hpp>
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
    });
}

TEST_F(Unicode, GraphemeBreaks) {
    for (const auto& row : rowsOf("auxiliary/GraphemeBreakTest.txt"))
        EXPECT_EQ(text::graphemeCount(characters(row[0])), split(row[0], '\xB7').size() - 2)
            << row[0]; // "÷" ends with the byte B7
}

bool isDocument(const std::string& text) {
    const std::vector<char> exact(text.begin(), text.end()); // a sanitizer sees reads behind it
    const auto parses = [](auto&& given) {
        try {
            JSON::parse(std::forward<decltype(given)>(given));
            return true;
        } catch (const JSON::ParseError&) {
            return false;
        }
    };
    const bool isTaken = parses(std::string_view(exact.data(), exact.size()));
    EXPECT_EQ(parses(std::string(text)), isTaken) << PrintToString(text);
    return isTaken;
}

TEST(RFC8259, TakesDocumentsAndNoneCutOff) {
    std::vector<std::string> texts = split(R"(0|-0|-0.0|10|1.5|1E1|1e+1|1e-1|0e0|0E+0|0e-0|1e00|0e01
        |-12.0340E+056|123e65|0.4e00669999999999999999999|-0e99999999999999999999
        |0.00000000000000000000000000000000000000000000000000000000000000000000000000000001
        |123456789012345678901234567890.123456789012345678901234567890|true|false|null|""|" "|"\""
        |"\\"|"\/"|"\b\f\n\r\t"|"\u0000"|"\u0022\u005C\u005c\u002F"|"\uaBcD\uEF09"|"\uD834\udd1e"
        |"\uDBFF\uDFFF"|"\uFFFE\uFFFF\uFDD0\uFEFF"|"\\u12"|"\\\\"|"\\\""|"a/*b*/c//d#"|"'"|"[{,:]}"
        |"é好𝄞"|"\uD888\u1234"|"\uDd1ea"|"\uD800\uD800\uDC00"|"\uDC00\uD800"|"\uD800\\uDC00"
        |[ ]|{ }|[[]]|[{}]|{"a":[]}|[[],[[]],[[[]]]]|[1,"a",null,true,false,{},[]]|[ 1 , 2 ]
        |{ "a" : 1 , "b" : 2 }|{"":0}|{" ":{"":{"":{}}}}|{"\u0000\"\\":""}|{"好":"好"}|{"a":1,"a":1}
        |[0e1,-0,0.0]|["]"]|{"}":"{"}|[true,null]|[""]|[[[[[[[[[[[[[[[[[[[[["a"]]]]]]]]]]]]]]]]]]]]])",
                                           '|');
    for (const char* const content : {"\x7F", "\u009B", "\u2028\u2029", "\uFEFF", "\uFFFF",
                                      "\uE000", "\U0010FFFF", "\uD7FF", "\u0800\U00010000"})
        texts.push_back("\"" + std::string(content) + "\"");
    for (std::string text : texts) {
        EXPECT_TRUE(isDocument(text) && isDocument("\t\n\r " + text + " \t\n\r")) << text;
        EXPECT_TRUE(isDocument("[" + text + "]") && isDocument("{\"a\":" + text + "}")) << text;
        text.resize(text.find_last_not_of(" \n") + 1);
        const bool isNumber = std::string("-0123456789").find(text.front()) != std::string::npos;
        for (std::size_t size = 0; size < text.size() && !isNumber; ++size)
            EXPECT_FALSE(isDocument(text.substr(0, size))) << text << " cut to " << size;
    }
}

TEST(RFC8259, RefusesOtherTextsAndSuchMembers) {
    using namespace std::string_literals;
    std::vector<std::string> texts = split(R"(-|+|+1|--1|-+1|00|-00|-01|012|0x1|0b1|1.|-1.|.1|-.1|.
        |1.e1|1..2|1.2.3|1e|1E|1e+|1e-|1.5e|1ee2|1e1e1|1e1.5|1e+-1|e1|1a|-a|1 000|1_000|1,000|1f|1L
        |1/2|1-2|- 1|1 .5|1. 5|1e 5|Infinity|-Infinity|NaN|-NaN|inf|１|True|TRUE|t|truee|true1|true""
        |nulll|NULL|undefined|tr ue|truе|"|a"|'a'|abc|"\"|"\\\"|"\x41"|"\u"|"\u12"|"\u123"|"\u-123"
        |"\u+123"|"\u 123"|"\u{41}"|"\uD800\u"|"\uD800\u1"|"\uD800\uDC0"|"\uD800\"|"\uD834\x"
        |"\é"|"\u00é0"|"\uD800\uDC0é"|"a""b"|"a"b|“a”|\u0022a\u0022|\n|\|,|:|]|}|[|{|[,]|[,1]|[1,]
        |[1,,2]|["a" "b"]|["a":1]|[1:2]|[1}|{"a":1]|[}|{]|[[]|[]]|[[1]|[1]]|{,}|{"a"}|{"a":}|{"a",1}
        |{"a":1,}|{,"a":1}|{"a":1,,"b":2}|{"a":1 "b":2}|{:1}|{1:1}|{a:1}|{'a':1}|{null:1}|{[]:1}
        |{{}:1}|{"a"::1}|{"a":1:2}|{"a":b}|{"a":1}}|{{"a":1}|[{]|{[]}|{"a":1,"b"}|{"a":1,2}|[]x|[] []
        |{} {}|1 2|"a" "b"|{},|[],|,[]|[]:|[]#|// c
        |/**/1|1/**/|1// c|[1/**/]|{"a"/**/:1}|# c|;|<a/>|*|$|(1)|[1;2]|{"a"=1}|{"a"=>1}|[...])",
                                           '|');
    for (const std::string& bytes : split(
             "\x80 \xBF \xC0\xAF \xC1\xBF \xE0\x80\xAF \xE0\x9F\xBF \xED\xA0\x80 \xED\xBF\xBF \xFE "
             "\xED\xA0\x81\xED\xB0\x80 \xF0\x8F\xBF\xBF \xF4\x90\x80\x80 \xF5\x80\x80\x80 \xA9\xC3 "
             "\xF8\x88\x80\x80\x80 \xF0\x9D\x84 \xE5\xA5 \xE5\xA5\x41 \xE9 \xC3\xC3\xA9",
             ' '))
        for (const char* const end : {"", "a", "012345678901234567890123456789012345678901234567"})
            texts.insert(texts.end(), {"\""s + end + bytes + end + "\"", "{\""s + bytes + "\":1}"});
    std::string open(100'000, '['), openObjects;
    for (int level = 0; level < 50'000; ++level)
        openObjects += "[{\"\":";
    texts.insert(texts.end(), {open, openObjects, "\xFF\xFE[\0]\0"s, "\xFE\xFF\0[\0]"s, "[\0]\0"s,
                               "\0[\0]"s, "\xFE\xFF"s, "1\0"s, "\0"s, "\f1", "1\v", "\u00A01",
                               "\u2060[]", "[\u2028]", "\u30001"});
    for (const std::string& text : texts) {
        EXPECT_FALSE(isDocument(text)) << PrintToString(text.substr(0, 99));
        EXPECT_FALSE(isDocument("{\"a\":" + text + "}")) << PrintToString(text.substr(0, 99));
    }
}

TEST(RFC8259, TakesAnyByteWhereBoostJSONDoes) {
    const std::string text = R"( [1.5e+7,{"a\u00fF\n":"\\"},-0,true] )";
    for (std::size_t place = 0; place <= text.size(); ++place)
        for (int byte = 0; byte < 256; ++byte)
            for (const std::size_t replaced : {0, 1}) {
                std::string other = text;
                other.replace(place, replaced, 1, static_cast<char>(byte));
                boost::json::error_code refused;
                (void)boost::json::parse(other, refused);
                EXPECT_EQ(isDocument(other), !refused) << PrintToString(other);
            }
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

TEST(RFC3986, TakesReferencesUnchanged) {
    std::istringstream texts(
        R"(ftp://ftp.is.co.za/rfc/rfc1808.txt http://www.ietf.org/rfc/rfc2396.txt
        ldap://[2001:db8::7]/c=GB?objectClass?one mailto:John.Doe@example.com
        news:comp.infosystems.www.servers.unix tel:+1-816-555-1212 telnet://192.0.2.16:80/
        urn:oasis:names:specification:docbook:dtd:xml:4.1.2 http://a/b/c/d;p?q g:h g ./g g/ /g //g ?y
        g?y #s g#s g?y#s ;x g;x g;x?y#s . ./ .. ../ ../g ../.. ../../ ../../g ../../../g
        ../../../../g /./g /../g g. .g g.. ..g ./../g ./g/. g/./h g/../h g;x=1/./y g;x=1/../y g?y/./x
        g?y/../x g#s/./x g#s/../x http:g)");
    for (std::string text; texts >> text;) {
        const auto url = url::parse(text);
        EXPECT_TRUE(url && url->buffer() == text) << text;
    }
}

TEST(RFC3986, RefusesOtherTexts) {
    for (const std::string& text : split(
             R"(%|%G0|a%2|//%zz|a:b:%|+a:b|.a:b|a_b:c|a[b]|?[|#a#b|//[|//[::1|//::1]|//[::1]a
|//[::g]|//[1:2:3:4:5:6:7]|//[1::2::3]|//[::256.0.0.1]|//[vg.a]|//h:8a|//a@b@c| a|a b|"a"|a\b|{a}|宋)",
             '|'))
        EXPECT_FALSE(url::parse(text)) << text;
}

TEST(RFC3986, EncodesWhatAFragmentDoesNotTake) {
    const std::string others = "-._~!$&'()*+,;=:@/?";
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        const bool isTaken =
            byte < 128 && (std::isalnum(byte) || others.find(text) != std::string::npos);
        std::array<char, 4> hexadecimal{};
        std::snprintf(hexadecimal.data(), hexadecimal.size(), "%%%02X", byte);
        const std::string encoded = url::percentEncodedForFragment(text);
        EXPECT_EQ(encoded, isTaken ? text : byte < 128 ? hexadecimal.data() : "%EF%BF%BD") << byte;
        EXPECT_TRUE(url::parse("#" + encoded)) << byte;
        EXPECT_EQ(url::parse("#" + text).has_value(), isTaken) << byte;
    }
}

} // namespace
