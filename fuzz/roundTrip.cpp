// Fuzzes reading, queries and export. Any bytes are a document or give a ParseError. The fonts of a
// document are read, searched, filtered, marked and exported; the export, read again, must give an
// equal export. The document is also read as tags, a user-font map and a user.
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/platform/URL.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

using Fonts = Records<FontItem>;

/// Ends the process, which the fuzzer reports, unless the condition is true.
void require(bool condition) {
    if (!condition)
        std::abort();
}

/// Reads computed properties of the fonts and groups, at any depth. Omits those that may end the
/// process.
void readProperties(const Fonts& fonts) {
    for (const auto& font : fonts) {
        require(text::isWellFormed(font->DisplayName() + font->PreviewText()));
        require(text::isWellFormed(font->TreeNodeTitle()));
        require(font->stem().has_value() == (text::utf16Length(font->ProductFileName()) >= 4));
        if (font->stem())
            (void)font->getLocalPreviewFile(true, font->Version(), font->Format(), font->Id());
        (void)font->findRemotePreviewFile();
        (void)font->IsActivated();
        if (font->IsGroup())
            readProperties(font->Children());
    }
}

/// Tests that equivalent spellings of a name give equal results, and that every font is found by
/// its own name and identifier.
void search(const Fonts& fonts, const Fonts& leaves) {
    for (const auto& leaf : leaves) {
        const auto isIn = [&](const Fonts& found) { return std::ranges::count(found, leaf) > 0; };
        const std::string& name = leaf->ProductName();
        const Fonts found = FontList::getSearchResultFont(fonts, name).first;
        require(found == FontList::getSearchResultFont(fonts, text::decomposed(name)).first);
        require(found == FontList::getFontByKey(fonts, text::composed(name), true));
        require(name.empty() || isIn(found));
        require(isIn(FontList::getFontByKey(fonts, name, false)));
        require(isIn(FontList::getFontById(fonts, {leaf->Id()})));
    }
}

/// Tests that filtering by tags adds no identifiers.
void filter(const Records<FontTagItem>& tags) {
    FontTagList::setFontTagItemCheck(tags, true);
    (void)FontTagList::getCheckedFontTagList(tags);
    for (const auto& tag : tags)
        require(FontTagList::getCheckedFontTagFontIdList(tags, tag->FontIdList()).size() <=
                tag->FontIdList().size());
}

/// Tests all of the above on one document.
void checkRoundTrip(const JSON& json) {
    require(json == JSON::parse(toText(toValue(json))));
    filter(FontTagList(json).List());
    const FontList fonts(json);
    readProperties(fonts.List());
    const std::string exported = toText(FontItem::getFontArray(fonts.List()));
    const FontList again(JSON::parse(exported));
    require(toText(FontItem::getFontArray(again.List())) == exported);

    const Fonts leaves = leavesWhere(again.List(), [](const FontItem&) { return true; });
    require(std::ssize(leaves) == FontList::getFontCount(fonts.List()));
    if (leaves.size() <= 20)
        search(again.List(), leaves);
    FontList::setActivatedFont(fonts.List(), leaves); // every font matches its own reading
    require(FontList::getActivatedFont(fonts.List()).size() == leaves.size());
    const auto map = UserFontActivateMapItem::create(json);
    require(map->FontList().size() == json["FontList"].arrayValue().size());
    const std::string user = toText(UserItem::create(json)->Dict()); // with a token of any kind
    require(toText(UserItem::create(JSON::parse(user))->Dict()) == user);
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        checkRoundTrip(JSON::parse(std::string_view(reinterpret_cast<const char*>(data), size)));
    } catch (const JSON::ParseError&) { // NOLINT(bugprone-empty-catch): most bytes are no document
    }
    return 0;
}
