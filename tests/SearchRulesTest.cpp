#include "RecordTesting.hpp"
#include "literal/LiteralSearch.hpp"

#include <sstream>

using namespace VelmoCloudEntity;

namespace {

/// The queries that find a font, a letter each: n and N for getFontByName, k and K for getFontByKey
/// (the capitals are fuzzy), w and c for the two lists of getSearchResultFont: by the whole key,
/// and by one of its characters.
template <class Search>
std::string found(const std::shared_ptr<FontItem>& font, const std::string& key) {
    const auto [whole, character] = Search::getSearchResultFont({font}, key);
    const bool finds[] = {!Search::getFontByName({font}, key, false).empty(),
                          !Search::getFontByName({font}, key, true).empty(),
                          !Search::getFontByKey({font}, key, false).empty(),
                          !Search::getFontByKey({font}, key, true).empty(),
                          !whole.empty(),
                          !character.empty()};
    EXPECT_EQ(Search::isFontMatchedByCharacter(font, key), finds[5]);
    std::string letters;
    for (std::size_t query = 0; query < std::size(finds); ++query)
        if (finds[query])
            letters += "nNkKwc"[query];
    return letters;
}

TEST(SearchRules, FindEachKeyInItsNames) {
    const struct {
        std::string key;
        std::string names; // ProductName|ProductSetName|ProductFileName|DisplayName
        const char* found;
    } cases[] = {
        // A name is exact with its case, a key is in any case of three names.
        {"Song", "Song", "nNkKwc"},
        {"Song", "Fangsong", "NKwc"},
        {"abc.ttf", "X|Y|ABC.TTF", "kKwc"},
        {"song", "X|Y|Z|Song", "Kwc"},
        // The whole key is in one name, a character in any.
        {"SongTi", "Song|Ti|x|y", "c"},
        {"一丁丂七丄丅丆万丈三上下丌不与丏丐丑", "丑", "c"}, // more than are compared one by one
        // An empty key is in nothing, and equals an empty name.
        {"", "", "nk"},
        {"", "X|Y|Z", ""},
        // As many UTF-16 units are tried as there are characters. Half of a character is in
        // nothing.
        {"😀", "😀", "nNkKw"},
        {"😀", "\uFFFD", ""},
        {"😀xy", "x", "c"},
        {"👨‍👩‍👧ab", "\u200D", "c"},
        {"\r\nab", "a", "c"},
        {"e\u0301x", "x", ""},
        {"\u1112\u1161\u11ABx", "x", ""},
        // Each ill-formed sequence is one replacement character.
        {"\xFF\xFF", "\uFFFD", "c"},
        {"\xE5\xAE", "\xF0\x9F\x98", "nNkKwc"},
        {"宋", "\xE5\xAE宋\xE5", "NKwc"},
        // Characters are found whole, in any spelling.
        {"e", "é", ""},
        {"e", "ete\u0301", "NKwc"},
        {"é", "e\u0301", "nNkKwc"},
        {"\u0301", "é", ""},
        {"ê", "ê\u0323", ""},
        {"q\u0307\u0323", "q\u0323\u0307", "nNkKw"}, // classes of marks have an order
        {"q\u0301\u0300", "q\u0300\u0301", ""},      // marks of one class keep theirs
        {"k", "\u212A", "NkKwc"},
        {"각", "\u1100\u1161\u11A8", "nNkKwc"},
        {"ক", "কা", "NKwc"},      // this vowel sign does not compose with the letter
        {"\u09C7", "\u09CB", ""}, // this one does
        // Upper-casing is full, and has no locale.
        {"STRASSE", "Straße", "NkKwc"},
        {"οδυσσευς", "ΟΔΥΣΣΕΥΣ", "NkKwc"},
        {"i", "İ", ""},
        {"i\u0307", "İ", "NkKw"},
        {"ǆ", "ǅ", "NkKwc"},
        {"\u1FB3\u0301", "ᾴ", "nNkKw"}, // its first unit becomes two letters
    };
    for (const auto& each : cases) {
        const auto font = FontItem::create();
        font->setPostscriptName(each.key); // no query reads it
        std::istringstream names(each.names);
        for (const auto set : {&FontItem::setProductName, &FontItem::setProductSetName,
                               &FontItem::setProductFileName, &FontItem::setDisplayName})
            if (std::string name; std::getline(names, name, '|'))
                ((*font).*set)(name);
        SCOPED_TRACE(testing::PrintToString(each.key) + " in " +
                     testing::PrintToString(each.names));
        EXPECT_EQ(found<FontList>(font, each.key), each.found);
        EXPECT_EQ(found<LiteralSearch>(font, each.key), each.found);
    }
}

TEST(SearchRules, ReadsMembersThatAreMadeForEachReadingOnce) {
    struct FreshGroup : FontItem {
        const Records<FontItem>& Children() const override {
            ++timesMade;
            return made =
                       FontList::parse(R"([{"ProductName":"Song"},{"ProductName":"Kai"}])").List();
        }
        bool IsGroup() const override { return true; }
        mutable Records<FontItem> made;
        mutable int timesMade = 0;
    };
    const auto group = std::make_shared<FreshGroup>();
    EXPECT_EQ(FontList::getSearchResultFont({group, group}, "song").first.size(), 2U);
    const auto outer = FontItem::create({.groupTag = "outer"});
    outer->setChildren({group});
    group->timesMade = 0;
    EXPECT_EQ(FontList::getFontCount({group, outer, group}), 6);
    EXPECT_EQ(group->timesMade, 3) << "once for each place, however far the walk prefetches";
}

} // namespace
