#include <VelmoCloudEntity/font/FontList.hpp>

#include "literal/LiteralSearch.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <gtest/gtest.h>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace VelmoCloudEntity;
using icu::UnicodeString;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using PerchAppLibrary::text::wellFormed;

namespace {

using Fonts = Records<FontItem>;

constexpr std::array setters{&FontItem::setProductName, &FontItem::setProductSetName,
                             &FontItem::setProductFileName, &FontItem::setDisplayName};
constexpr std::array keys{"ProductName", "ProductSetName", "ProductFileName", "displayName"};

constexpr std::array queries{"name",       "fuzzy name",        "key", "fuzzy key", "whole key",
                             "characters", "font by characters"};

/// The fonts that each query finds.
using Answers = std::array<Fonts, queries.size()>;

template <class Search>
Answers answers(const Fonts& list, const Fonts& all, const std::string& key) {
    Answers result{Search::getFontByName(list, key, false), Search::getFontByName(list, key, true),
                   Search::getFontByKey(list, key, false), Search::getFontByKey(list, key, true)};
    std::tie(result[4], result[5]) = Search::getSearchResultFont(list, key);
    std::ranges::copy_if(all, std::back_inserter(result[6]), [&](const auto& font) {
        return Search::isFontMatchedByCharacter(font, key);
    });
    return result;
}

/// A leaf one of whose names is not the stored one: ProductName, ProductSetName, ProductFileName,
/// DisplayName or displayName.
struct ClientFont : FontItem {
    using Base = FontItem;
    std::size_t overridden = 0;
    std::string name;
    const std::string& pick(std::size_t index, const std::string& base) const {
        return index == overridden ? name : base;
    }
    const std::string& ProductName() const override { return pick(0, Base::ProductName()); }
    const std::string& ProductSetName() const override { return pick(1, Base::ProductSetName()); }
    const std::string& ProductFileName() const override { return pick(2, Base::ProductFileName()); }
    std::string DisplayName() const override { return pick(3, Base::DisplayName()); }
    const std::string& displayName() const override { return pick(4, Base::displayName()); }
};

std::string described(const Fonts& list) {
    std::string text;
    for (const auto& font : list) {
        text += font->IsGroup() ? "  group" : "  font";
        for (const std::string& name : {font->ProductName(), font->ProductSetName(),
                                        font->ProductFileName(), font->DisplayName()})
            text += " " + testing::PrintToString(name);
        text += "\n";
    }
    return text;
}

/// Characters that meet in one name, with blanks between them: spellings of one text, and of nearly
/// the same text.
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

UnicodeString unicode(const std::string& text) { return UnicodeString::fromUTF8(text); }

std::string utf8(const UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

UnicodeString normalized(const UnicodeString& text, bool decomposed = true) {
    UErrorCode status = U_ZERO_ERROR;
    return (decomposed ? icu::Normalizer2::getNFDInstance
                       : icu::Normalizer2::getNFCInstance)(status)
        ->normalize(text, status);
}

/// Makes trees, names and keys at random. Most keys come from the names, so many are found.
class Generator {
public:
    explicit Generator(unsigned seed) : random(seed) {
        for (std::size_t count = oneIn(3) ? 2 : 1, which = seed; count > 0;
             --count, which = below(99)) {
            std::istringstream pool(pools[which % pools.size()]);
            for (std::string atom; std::getline(pool, atom, ' ');)
                if (!oneIn(4))
                    alphabet.push_back(atom);
        }
        alphabet.emplace_back(1, " a"[below(3)]); // the third is a NUL
        top = list(0);
    }

    const Fonts& tree() const { return top; }
    const Fonts& all() const { return made; } // in the tree, or below one of its leaves

    std::string key() {
        std::string text = oneIn(8) ? fresh() : names[below(names.size())];
        if (!oneIn(3))
            text = part(text);
        if (oneIn(12))
            text += part(fresh());
        return oneIn(24) ? "" : respelled(text);
    }

    /// Renames a font of the tree, through a setter or from JSON.
    void rename() {
        FontItem& font = *made[below(made.size())];
        const std::size_t which = below(setters.size());
        if (oneIn(2)) {
            (font.*setters[which])(name());
            return;
        }
        const auto json = JSON::parse(toText(Dictionary{{keys[which], wellFormed(name())}}));
        oneIn(2) ? font.setValue(json) : font.setValue(json, {});
    }

private:
    std::size_t below(std::size_t bound) { return random() % bound; }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    std::string fresh() {
        std::string text;
        for (std::size_t count = oneIn(20) ? 20 + below(80) : below(7); count > 0; --count)
            text += alphabet[below(alphabet.size())];
        return text;
    }

    std::string name() {
        names.push_back(oneIn(4) && !names.empty() ? respelled(names[below(names.size())])
                                                   : fresh());
        return names.back();
    }

    /// Returns the text in another spelling or case, or without one of its bytes.
    std::string respelled(std::string text) {
        if (oneIn(16))
            return text.erase(below(text.size() + 1), 1);
        if (oneIn(3))
            return utf8(normalized(unicode(text), oneIn(2)));
        if (oneIn(4))
            return utf8(unicode(text).toLower(icu::Locale::getRoot()));
        return oneIn(3) ? utf8(unicode(text).toUpper(icu::Locale::getRoot())) : text;
    }

    /// Returns a part of the text, which may begin or end inside a decomposed character.
    std::string part(const std::string& text) {
        const auto units = oneIn(2) ? normalized(unicode(text)) : unicode(text);
        const auto place = [&] {
            const auto count = static_cast<std::size_t>(units.length());
            return units.getChar32Start(static_cast<int>(below(count + 1)));
        };
        const auto [begin, end] = std::minmax({place(), place()});
        return utf8(units.tempSubStringBetween(begin, end));
    }

    std::shared_ptr<FontItem> leaf() {
        auto font = FontItem::create();
        if (oneIn(8)) {
            auto client = FontItem::create<ClientFont>();
            client->overridden = below(5);
            client->name = name();
            font = client;
        }
        for (std::size_t which = 0; which < setters.size(); ++which)
            if (!oneIn(which == 0 ? 16 : 3))
                ((*font).*setters[which])(name());
        font->setPostscriptName(name()); // no query reads it
        return font;
    }

    Fonts list(int depth) {
        Fonts result;
        const std::size_t most = oneIn(32) ? 80 : 5; // more than are read from memory at once
        for (std::size_t count = below(most) + (depth == 0 ? 1 : 0); count > 0; --count) {
            if (oneIn(8) && !made.empty()) {
                result.push_back(made[below(made.size())]);
                continue;
            }
            const auto font = leaf();
            font->setIsGroup(depth < 3 && oneIn(4));
            if (font->IsGroup() || oneIn(16))
                font->setChildren(list(depth + 1));
            made.push_back(font);
            result.push_back(font);
        }
        return result;
    }

    std::mt19937 random;
    std::vector<std::string> alphabet, names;
    Fonts top, made; // each after what is below it, so no group contains itself
};

TEST(SearchDifferential, AgreesWithALiteralReading) {
    std::array<int, queries.size()> matches{}; // how often each query finds something
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Generator generator(seed);
        for (int round = 0; round < 3; ++round) {
            const std::string key = generator.key();
            const Answers given = answers<FontList>(generator.tree(), generator.all(), key),
                          expected = answers<LiteralSearch>(generator.tree(), generator.all(), key);
            for (std::size_t query = 0; query < given.size(); ++query) {
                ASSERT_TRUE(given[query] == expected[query])
                    << queries[query] << ", seed " << seed << ", key "
                    << testing::PrintToString(key) << "\ngiven:\n"
                    << described(given[query]) << "expected:\n"
                    << described(expected[query]) << "of:\n"
                    << described(generator.all());
                matches[query] += !given[query].empty();
            }
            generator.rename(); // a query keeps a signature of the names that it has read
        }
    }
    for (std::size_t query = 0; query < matches.size(); ++query)
        EXPECT_NEAR(matches[query], 4500, 3600) << queries[query] << ", of 9000 keys";
}

/// Members that are made when they are asked for, and kept until the next time.
struct FreshGroup : FontItem {
    const Fonts& Children() const override {
        const char* const json =
            R"([{"ProductName":"Song"},{"ProductName":"Kai"},{"ProductName":"Song Ti"}])";
        made = FontList::parse(json).List();
        ++timesMade;
        return made;
    }
    bool IsGroup() const override { return true; }
    mutable Fonts made;
    mutable int timesMade = 0;
};

TEST(SearchDifferential, KeepsMembersThatAreMadeForEachReading) {
    const auto group = std::make_shared<FreshGroup>();
    EXPECT_EQ(FontList::getFontByKey({group, group}, "song", true).size(), 4U);
    EXPECT_EQ(FontList::getSearchResultFont({group, group}, "song").second.size(), 4U);

    const auto outer = FontItem::create({.groupTag = "outer"});
    outer->setChildren({group});
    group->timesMade = 0;
    EXPECT_EQ(FontList::getFontCount({group, outer, group}), 9);
    EXPECT_EQ(group->timesMade, 3) << "once for each place, however far the walk prefetches";
}

} // namespace
