#include <VelmoCloudEntity/font/FontList.hpp>

#include "literal/LiteralSearch.hpp"

#include <gtest/gtest.h>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace VelmoCloudEntity;
using icu::UnicodeString;

namespace {

using Fonts = Records<FontItem>;

constexpr std::array operations{"getFontByName",
                                "getFontByName fuzzy",
                                "getFontByKey",
                                "getFontByKey fuzzy",
                                "getSearchResultFont, first",
                                "getSearchResultFont, second",
                                "isFontMatchedByCharacter",
                                "setActivatedFont",
                                "setFavoritedFont"};
constexpr std::array setters{&FontItem::setProductName, &FontItem::setProductSetName,
                             &FontItem::setProductFileName, &FontItem::setDisplayName};
/// Names that no query reads.
constexpr std::array unread{&FontItem::setFontKey, &FontItem::setPostscriptName,
                            &FontItem::setPreviewText};

/// The fonts that each operation finds or marks.
using Answers = std::array<Fonts, operations.size()>;

/// A tree, all that stands in it or below one of its leaves, and what to look for.
struct Question {
    Fonts list, all, references;
    std::string key;
};

template <class Search>
Answers answers(const Question& q) {
    Answers result{
        Search::getFontByName(q.list, q.key, false), Search::getFontByName(q.list, q.key, true),
        Search::getFontByKey(q.list, q.key, false), Search::getFontByKey(q.list, q.key, true)};
    std::tie(result[4], result[5]) = Search::getSearchResultFont(q.list, q.key);
    Search::setActivatedFont(q.list, q.references);
    Search::setFavoritedFont(q.list, q.references);
    for (const auto& font : q.all) {
        const bool found[] = {Search::isFontMatchedByCharacter(font, q.key), font->isActivated(),
                              font->IsFavorited()};
        for (std::size_t index = 0; index < 3; ++index)
            if (found[index])
                result[6 + index].push_back(font);
        font->setIsActivated(false);
        font->setIsFavorited(false);
    }
    return result;
}

/// A leaf one of whose names is not the stored one.
struct ClientFont : FontItem {
    enum Name { product, set, file, display, stored } overridden = product;
    std::string name;
    const std::string& answer(Name which, const std::string& base) const {
        return which == overridden ? name : base;
    }
    const std::string& ProductName() const override {
        return answer(product, FontItem::ProductName());
    }
    const std::string& ProductSetName() const override {
        return answer(set, FontItem::ProductSetName());
    }
    const std::string& ProductFileName() const override {
        return answer(file, FontItem::ProductFileName());
    }
    const std::string& displayName() const override {
        return answer(stored, FontItem::displayName());
    }
    std::string DisplayName() const override { return answer(display, FontItem::DisplayName()); }
};

/// ASCII as it is, and other code points in hexadecimal.
std::string escaped(const std::string& text) {
    std::ostringstream result;
    const auto units = UnicodeString::fromUTF8(text);
    for (int at = 0; at < units.length(); at = units.moveIndex32(at, 1)) {
        const UChar32 point = units.char32At(at);
        if (point > ' ' && point < 0x7F)
            result << static_cast<char>(point);
        else
            result << '{' << std::hex << point << '}';
    }
    return result.str();
}

std::string described(const Fonts& list) {
    std::ostringstream text;
    for (const auto& font : list)
        text << "  " << font.get() << (font->IsGroup() ? " group '" : " '")
             << escaped(font->ProductName()) << "' '" << escaped(font->ProductSetName()) << "' '"
             << escaped(font->ProductFileName()) << "' '" << escaped(font->DisplayName()) << "' Id "
             << font->Id() << "\n";
    return text.str();
}

/// Characters that meet in one name, parted by blanks: spellings of the same text, and what nearly
/// is the same.
const std::array pools{
    "a b A B aab á",                        // occurrences that overlap
    "a e s t T i 1 2 - _ . , \r\n \t \x7F", // ASCII
    "a A e E é É e\u0301 E\u0301 \u0301 \u0323 ẹ ẹ\u0301 e\u0323\u0301 e\u0301\u0323 ệ ê ê\u0323 o "
    "ö o\u0308 "
    "\u0308 ǖ ü\u0304 u",
    "a å Å A\u030A \u212B \u030A K k \u212A c ç c\u0327 n ñ Ñ n\u0303 q q\u0307\u0323 "
    "q\u0323\u0307 \u0344",
    "s S ss SS ß ẞ ſ ſt ﬅ ﬆ st t s\u0307 ṡ ẛ ẛ\u0323 ṩ",
    "i I ı İ i\u0307 I\u0307 \u0307 j ǰ j\u030C J\u030C ŉ n N ʼn ĳ Ĳ",
    "f i l ff fi ﬁ ﬀ ﬃ ﬄ ﬂ FFI F \u0301 ﬁ\u0301",
    "ǅ Ǆ ǆ ǈ ǉ dž DŽ d z ž z\u030C",
    "σ ς Σ ο Ο ό ο\u0301 ὀ Ω ω \u2126 ΟΣ ος",
    "α Α ᾳ α\u0345 ᾼ ΑΙ αι ᾴ α\u0301\u0345 α\u0345\u0301 ᾳ\u0301 ά \u1F71 \u0345 \u0301 ι Ι ΐ "
    "\u1FD3 "
    "ι\u0308\u0301 ϊ \u1FBE ᾷ",
    "ა ბ Ა Ბ Ꭰ ꭰ Ᏸ ᏸ а А й й и и\u0306 \u0306 Ы", // Georgian, Cherokee, Cyrillic
    "Ａ ａ Ｂ ｂ １ ！ A a",
    "か が か\u3099 \u3099 は ば ぱ は\u309A ハ パ ハ\u309A ｶ ﾊ ﾞ ﾟ ｶﾞ ヷ ワ\u3099",
    "가 가 각 각 갂 낙 \u1100 \u1161 \u11A8 \u11A9 \u1100\u1161 \u1100\u1161\u11A8 가\u11A8",
    "ক কা \u09BE \u09C7 \u09CB \u09D7 ো க \u0BC6 \u0BBE \u0BCA க\u0BCA क \u093C \u0958 न न\u093C "
    "\u0929",
    "\U00011099 \U0001109A \U000110BA \U00011131 \U00011127 \U0001112E \U0001D157 \U0001D165 "
    "\U0001D15E "
    "\u0F71 \u0F72 \u0F73 \u0F40 \u0F69",
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

UnicodeString upperCased(UnicodeString text) { return text.toUpper(icu::Locale::getRoot()); }

UnicodeString normalized(const UnicodeString& text, bool decomposed = true) {
    UErrorCode status = U_ZERO_ERROR;
    return (decomposed ? icu::Normalizer2::getNFDInstance
                       : icu::Normalizer2::getNFCInstance)(status)
        ->normalize(text, status);
}

bool isDecomposable(const std::string& text) { return normalized(unicode(text)) != unicode(text); }

/// Trees, names and keys at random. Keys come from the names, mostly, so that many are found.
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
    }

    Question question() {
        Question q{list(0), {}, {}, key()};
        for (std::size_t count = below(4); count > 0; --count)
            q.references.push_back(oneIn(2) ? made[below(made.size())] : leaf());
        q.all = made;
        return q;
    }

    std::string key() {
        std::string text = oneIn(8) ? fresh() : names[below(names.size())];
        if (!oneIn(3))
            text = part(text);
        if (oneIn(12))
            text += part(fresh());
        return oneIn(24) ? "" : respelled(text);
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

    /// The same text in another spelling or case, or with a byte missing.
    std::string respelled(std::string text) {
        if (oneIn(16))
            return text.erase(below(text.size() + 1), 1);
        if (oneIn(3))
            return utf8(normalized(unicode(text), oneIn(2)));
        if (oneIn(4))
            return utf8(unicode(text).toLower(icu::Locale::getRoot()));
        return oneIn(3) ? utf8(upperCased(unicode(text))) : text;
    }

    /// From one code point to another, be it in the middle of a decomposed character.
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
            client->overridden = static_cast<ClientFont::Name>(below(5));
            client->name = name();
            font = client;
        }
        font->setId(static_cast<std::int64_t>(below(4)) - 1);
        font->setIsPrivate(oneIn(3));
        for (const auto set : setters)
            if (!oneIn(set == &FontItem::setProductName ? 16 : 3))
                ((*font).*set)(name());
        for (const auto set : unread)
            ((*font).*set)(name());
        return font;
    }

    Fonts list(int depth) {
        Fonts result;
        for (std::size_t count = depth == 0 ? 1 + below(5) : below(5); count > 0; --count) {
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
    Fonts made; // each with all that is below it, so that no group comes to stand in itself
};

TEST(SearchDifferential, AgreesWithALiteralReading) {
    std::array<int, operations.size()> matches{}; // how often each matches something
    int cases = 0, decomposable = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Generator generator(seed);
        Question question = generator.question();
        for (int keys = 0; keys < 3; ++keys, question.key = generator.key()) {
            const Answers given = answers<FontList>(question),
                          expected = answers<LiteralSearch>(question);
            for (std::size_t operation = 0; operation < given.size(); ++operation) {
                ASSERT_TRUE(given[operation] == expected[operation])
                    << operations[operation] << ", seed " << seed << ", key '"
                    << escaped(question.key) << "'\ngiven:\n"
                    << described(given[operation]) << "expected:\n"
                    << described(expected[operation]) << "of:\n"
                    << described(question.all) << "references:\n"
                    << described(question.references);
                matches[operation] += !given[operation].empty();
            }
            ++cases;
            decomposable += isDecomposable(question.key) ||
                            std::ranges::any_of(question.all, [](const auto& font) {
                                return isDecomposable(font->ProductName());
                            });
        }
    }
    // The cases were of many kinds.
    for (std::size_t operation = 0; operation < matches.size(); ++operation) {
        EXPECT_GT(matches[operation], cases / 10) << operations[operation];
        EXPECT_LT(matches[operation], cases * 9 / 10) << operations[operation];
    }
    EXPECT_GT(decomposable, cases / 3);
}

// --- Answers that are known beforehand

/// A letter for each operation that finds the font: n and N by name, k and K by key (large: fuzzy),
/// w and c for the two lists of a search.
template <class Search>
std::string found(const std::shared_ptr<FontItem>& font, const std::string& key) {
    const Answers given = answers<Search>({{font}, {font}, {}, key});
    EXPECT_EQ(given[5].size(), given[6].size());
    std::string letters;
    for (std::size_t operation = 0; operation < 6; ++operation)
        if (!given[operation].empty())
            letters += "nNkKwc"[operation];
    return letters;
}

TEST(SearchDifferential, FindsWhatTheRulesSay) {
    // Key, equals sign, the product, set, file and display name, colon, the letters of what finds
    // the font.
    const std::pair<std::string, const char*> rules[] = {
        {"An exact name heeds case, an exact key passes DisplayName by.",
         "Song=Song:nNkKwc Song=song:NkKwc Song=SONG-TI:NKwc Song=Fangsong:NKwc "
         "abc.ttf=X|Y|ABC.TTF:kKwc "
         "Song=X|Song|Y:kKwc Song=Song|X|Y|Z:nNkKwc Song=X|Y|Z|Song:Kwc song=X|Y|Z|Song:Kwc"},
        {"The whole key is in one name, a character in any.",
         "SongTi=Song|Ti|x|y:c Hei=Heiti:NKwc Hei=Kai:c Hei=X|Y|Z|Kai:c Hei=Song:"},
        {"An empty key is in nothing, and equal to what is empty.", "=:nk =X:k =X|Y:k =X|Y|Z:"},
        {"As many UTF-16 code units are tried as there are characters; half a character is in "
         "nothing.",
         "😀=😀:nNkKw 😀x=x: 😀xy=x:c x😀=x:c 😀=\uFFFD: 😀=😁: 𐐨=𐐀:NkKw "
         "👨‍👩‍👧ab=ab: "
         "👨‍👩‍👧ab=\u200D:c \r\na=a: \r\nab=a:c \r\nab=b: e\u0301x=x: e\u0301x=e:c "
         "éx=x:c "
         "\u1112\u1161\u11ABx=x: \u1112\u1161\u11AB=한:nNkKw"},
        {"Each ill-formed sequence is one U+FFFD.",
         "\xFF=\uFFFD:nNkKwc \xFF=a\xFE:NKwc \xE5\xAE=宋: \xC0\x80=\xFF:c "
         "\xE5\xAE=\xF0\x9F\x98:nNkKwc "
         "宋=\xE5\xAE宋\xE5:NKwc"},
        {"Characters are found whole, however they are spelled.",
         "e=é: E=e\u0301: e=ete\u0301:NKwc é=e\u0301:nNkKwc \u0301=é: \u0301=\u0301e:NKwc "
         "ée=éée:NKwc "
         "q\u0307\u0323=q\u0323\u0307:nNkKw \u00C5=\u212B:nNkKwc k=\u212A:NkKwc "
         "\uF900=\u8C48:nNkKwc "
         "가=각: 각=가: 가=각가:NKwc 가=\u1100\u1161\u11A8:"},
        {"A vowel sign belongs to the letter that it composes with, and to no other.",
         "ক=কা:NKwc \u09C7=\u09CB:"},
        {"Upper-casing is full and has no locale; of the iota's key, the first unit becomes two "
         "letters.",
         "STRASSE=Straße:NkKwc s=ß:NKwc ẞ=ß: I=ﬁ:NKwc οδυσσευς=ΟΔΥΣΣΕΥΣ:NkKwc \u1FB3\u0301=ᾴ:nNkKw "
         "i=İ: "
         "i\u0307=İ:NkKw i=ı:NkKwc ǆ=ǅ:NkKwc n=ŉ:NKwc j=ǰ: Ａ=ａ:NkKwc A=ａ:"},
    };
    for (const auto& [rule, cases] : rules) {
        std::istringstream text(cases);
        for (std::string key, names, expected;
             std::getline(std::getline(text, key, '='), names, ':');) {
            std::getline(text, expected, ' ');
            SCOPED_TRACE(rule + " Key '" + escaped(key) + "', names '" + escaped(names) + "'");
            const auto font = FontItem::create();
            for (const auto set : unread)
                ((*font).*set)(key);
            std::istringstream parts(names);
            for (const auto set : setters)
                if (std::string name; std::getline(parts, name, '|'))
                    ((*font).*set)(name);
            EXPECT_EQ(found<FontList>(font, key), expected);
            EXPECT_EQ(found<LiteralSearch>(font, key), expected) << "the literal search";
        }
    }
}

TEST(SearchDifferential, GroupsGiveTheirMembersPlaceInBothLists) {
    const auto font = [](const char* name, bool isGroup, Fonts children) {
        auto made = FontItem::create({.productName = name});
        made->setProductSetName(name);
        made->setIsGroup(isGroup);
        made->setChildren(std::move(children));
        return made;
    };
    const auto heiti = font("Heiti", false, {}), kai = font("Kai", false, {}),
               song = font("Song", false, {});
    const auto host = font("hei", false, {heiti}); // no group: what hangs below it is not looked at
    const auto inner = font("Hei", true, {kai, host, song});
    const auto group = font("Hei", true, {heiti, inner, font("Hei", true, {}), kai});
    const Question question{{kai, group, heiti, song, heiti}, {group, heiti, song}, {}, "Hei"};
    const Fonts wholes{heiti, host, heiti, heiti};
    const Answers expected{Fonts{},        wholes, {host},
                           wholes,         wholes, {kai, heiti, kai, host, kai, heiti, heiti},
                           {group, heiti}, {},     {}};
    EXPECT_TRUE(answers<FontList>(question) == expected);
    EXPECT_TRUE(answers<LiteralSearch>(question) == expected);
}

TEST(SearchDifferential, HonoursOverriddenNames) {
    const std::array<std::string, 5> expected{"nNkKwc", "kKwc", "kKwc", "Kwc", "Kwc"};
    for (std::size_t which = 0; which < expected.size(); ++which) {
        const auto font = FontItem::create<ClientFont>();
        font->overridden = static_cast<ClientFont::Name>(which);
        font->name = "Kai";
        for (const auto set : setters)
            ((*font).*set)("-");
        ((*font).*setters[std::min(which, setters.size() - 1)])("Song");
        EXPECT_EQ(found<FontList>(font, "Kai"), expected[which]) << which;
        EXPECT_EQ(found<FontList>(font, "Song"), "") << which;
    }
}

/// Members that are made when they are asked for, and kept until the next time.
struct FreshGroup : FontItem {
    const Fonts& Children() const override {
        Fonts members;
        for (const char* const name : {"Song", "Kai", "Song Ti"})
            members.push_back(FontItem::create({.productName = name}));
        made = std::move(members);
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
    EXPECT_EQ(FontList::getFontByName({group, group, group}, "Kai", false).size(), 3U);
    EXPECT_EQ(FontList::getSearchResultFont({group, group}, "song").second.size(), 4U);

    // Once for each place, however far the walk looks ahead: here two of one depth and one of the
    // next.
    const auto outer = FontItem::create({.groupTag = "outer"});
    outer->setChildren({group});
    group->timesMade = 0;
    EXPECT_EQ(FontList::getFontCount({group, outer, group}), 9);
    EXPECT_EQ(group->timesMade, 3);
}

/// A query leaves notes on the names that it has read; a change by any road must be seen by the
/// next.
TEST(SearchDifferential, SeesANameThatHasChanged) {
    using Change = void (*)(FontItem&, const std::string& name);
    static const auto parsed = [](const char* key, const std::string& name) {
        return PerchAppLibrary::JSON::parse(std::string("{\"") + key + "\":\"" + name + "\"}");
    };
    const std::vector<Change> changes{
        [](FontItem& font, const std::string& name) { font.setProductName(name); },
        [](FontItem& font, const std::string& name) { font.setProductSetName(name); },
        [](FontItem& font, const std::string& name) { font.setProductFileName(name); },
        [](FontItem& font, const std::string& name) { font.setDisplayName(name); },
        [](FontItem& font, const std::string& name) { font.setValue(parsed("ProductName", name)); },
        [](FontItem& font, const std::string& name) {
            font.setValue(parsed("ProductSetName", name), {});
        },
        [](FontItem& font, const std::string& name) {
            font.BaseEntity::setValue(parsed("displayName", name), {});
        },
    };
    for (std::size_t which = 0; which < changes.size(); ++which)
        for (const char* before : {"Song", "", "é"})
            for (const char* after : {"Kai", "宋体", "É", "ß"}) {
                const auto font = FontItem::create();
                changes[which](*font, before);
                found<FontList>(font, "Kai");
                changes[which](*font, after);
                for (const char* key : {before, after})
                    EXPECT_EQ(found<FontList>(font, key), found<LiteralSearch>(font, key))
                        << which << ' ' << before << ' ' << after << ' ' << key;
            }
}

} // namespace
