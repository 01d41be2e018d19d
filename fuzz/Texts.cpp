#include "Texts.hpp"

#include <tests/literal/LiteralText.hpp>

#include <unicode/locid.h>

#include <array>
#include <sstream>

using namespace literal;

namespace {

/// Characters with blanks between them.
const std::array pools{
    "a b A B aab á",                        // occurrences that overlap
    "a e s t T i 1 2 - _ . , \r\n \t \x7F", // ASCII
    "a A e E é É e\u0301 E\u0301 \u0301 \u0323 ẹ ẹ\u0301 e\u0323\u0301 e\u0301\u0323 ệ ê ê\u0323",
    "o ö o\u0308 \u0308 ǖ ü\u0304 u \u0344 \u0301 c ç c\u0327 n ñ Ñ n\u0303",
    "a å Å A\u030A \u212B \u030A K k \u212A q q\u0307\u0323 q\u0323\u0307 \u0344",
    "s S ss SS ß ẞ ſ ſt ﬅ ﬆ st t s\u0307 ṡ ẛ ẛ\u0323 ṩ",
    "i I ı İ i\u0307 I\u0307 \u0307 j ǰ j\u030C J\u030C ŉ n N ʼn ĳ Ĳ",
    "f i l ff fi ﬁ ﬀ ﬃ ﬄ ﬂ FFI F \u0301 ﬁ\u0301",
    "ǅ Ǆ ǆ ǈ ǉ dž DŽ d z ž z\u030C",
    "σ ς Σ ο Ο ό ο\u0301 ὀ Ω ω \u2126 ΟΣ ος",
    "α Α ᾳ α\u0345 ᾼ ΑΙ αι ᾴ α\u0301\u0345 α\u0345\u0301 ᾳ\u0301 ά \u1F71 \u0345 \u0301 ᾷ",
    "\u1FBE ι Ι ΐ \u1FD3 ι\u0308\u0301 ϊ \u0345 \u0301 α",
    "ა ბ Ა Ბ Ꭰ ꭰ Ᏸ ᏸ а А й й и и\u0306 \u0306 Ы", // Georgian, Cherokee, Cyrillic
    "Ａ ａ Ｂ ｂ １ ！ A a",
    "か が か\u3099 \u3099 は ば ぱ は\u309A ハ パ ハ\u309A ｶ ﾊ ﾞ ﾟ ｶﾞ ヷ ワ\u3099",
    "가 가 각 각 갂 낙 \u1100 \u1161 \u11A8 \u11A9 \u1100\u1161 \u1100\u1161\u11A8 가\u11A8",
    "ক কা \u09BE \u09C7 \u09CB \u09D7 ো க \u0BC6 \u0BBE \u0BCA க\u0BCA क \u093C \u0958 न न\u093C",
    "\U00011099 \U0001109A \U000110BA \U00011131 \U00011127 \U0001112E \u0929 न",
    "\U0001D157 \U0001D165 \U0001D15E \u0F71 \u0F72 \u0F73 \u0F40 \u0F69",
    "宋 体 标 准 黑 \u8C48 \uF900 \u4E3D \U0002F800 \U00020000 \U00020001 \u6CE2",
    "😀 😁 👨‍👩‍👧 👨 👧 👍🏽 🇨🇳 🇨 ❤ ❤\uFE0F \u200D a",
    "\U00010400 \U00010428 \U00010401 \U00010429 a A",
    "宋 体 \xE5\xAE \xE5 \x8B \xFF \x80 \xC0\x80 \xED\xA0\x80 \xF0\x9F\x98 😀 \uFFFD a e\u0301",
};

} // namespace

Texts::Texts(Input& choices) : input(choices) {
    for (std::size_t count = input.oneIn(3) ? 2 : 1; count > 0; --count) {
        std::istringstream pool(input.pick(pools));
        for (std::string atom; std::getline(pool, atom, ' ');)
            if (!input.oneIn(4))
                alphabet.push_back(atom);
    }
    alphabet.emplace_back(1, " a"[input.below(3)]); // the third is a NUL
}

std::string Texts::fresh() {
    std::string text;
    for (std::size_t count = input.oneIn(20) ? 20 + input.below(80) : input.below(7); count > 0;
         --count)
        text += input.pick(alphabet);
    return text;
}

std::string Texts::respelled(std::string text) {
    if (input.oneIn(16))
        return text.erase(input.below(text.size() + 1), 1);
    const std::size_t form = input.below(5);
    if (form == 0)
        return text;
    icu::UnicodeString units = unicode(text);
    if (form < 3)
        return utf8(form == 1 ? decomposed(units) : composed(units));
    const icu::Locale& root = icu::Locale::getRoot();
    return utf8(form == 3 ? units.toLower(root) : units.toUpper(root));
}

std::string Texts::part(const std::string& text) {
    const auto units = input.oneIn(2) ? decomposed(unicode(text)) : unicode(text);
    const auto place = [&] {
        const auto count = static_cast<std::size_t>(units.length());
        return units.getChar32Start(static_cast<int>(input.below(count + 1)));
    };
    const int one = place(), other = place();
    return utf8(units.tempSubStringBetween(std::min(one, other), std::max(one, other)));
}
