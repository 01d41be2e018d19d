// Fuzzes reading, queries and export. Any bytes are a document or give a ParseError. The fonts of a
// document are read, searched, filtered, marked and exported; the export, read again, must give an
// equal export. The document is also read as a user, whose export must be stable too.
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

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

/// Ends the process, which the fuzzer reports, unless the condition is true.
void require(bool condition) {
    if (!condition)
        std::abort();
}

/// Reads computed properties of the fonts and groups, at any depth. Omits those that may end the
/// process.
void readProperties(const Records<FontItem>& fonts) {
    for (const auto& font : fonts) {
        require(PerchAppLibrary::text::isWellFormed(font->DisplayName() + font->PreviewText() +
                                                    font->TreeNodeTitle()));
        require(font->stem().has_value() ==
                (PerchAppLibrary::text::utf16Length(font->ProductFileName()) >= 4));
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
void search(const Records<FontItem>& fonts, const Records<FontItem>& leaves) {
    using namespace PerchAppLibrary;
    for (const auto& leaf : leaves) {
        const std::string& name = leaf->ProductName();
        const auto found = FontList::getSearchResultFont(fonts, name);
        require(found.first == FontList::getSearchResultFont(fonts, text::decomposed(name)).first);
        require(found.first == FontList::getFontByKey(fonts, text::composed(name), true));
        require(name.empty() || std::ranges::find(found.first, leaf) != found.first.end());
        const Records<FontItem> same = FontList::getFontByKey(fonts, name, false);
        require(std::ranges::find(same, leaf) != same.end());
        const Records<FontItem> listed = FontList::getFontById(fonts, {leaf->Id()});
        require(std::ranges::find(listed, leaf) != listed.end());
    }
}

/// Tests that filtering by tags adds no identifiers.
void filter(const JSON& json) {
    const FontTagList tags(json);
    FontTagList::setFontTagItemCheck(tags.List(), true);
    (void)FontTagList::getCheckedFontTagList(tags.List());
    for (const auto& tag : tags.List()) {
        const std::vector<std::int64_t>& ids = tag->FontIdList();
        const auto passing = FontTagList::getCheckedFontTagFontIdList(tags.List(), ids);
        require(passing.size() <= ids.size());
    }
}

/// Tests all of the above on one document.
void checkRoundTrip(const JSON& json) {
    require(json == JSON::parse(PerchAppLibrary::toText(PerchAppLibrary::toValue(json))));
    filter(json);
    const FontList fonts(json);
    readProperties(fonts.List());
    const std::string exported = PerchAppLibrary::toText(FontItem::getFontArray(fonts.List()));
    const FontList again(JSON::parse(exported));
    require(PerchAppLibrary::toText(FontItem::getFontArray(again.List())) == exported);

    const Records<FontItem> leaves =
        leavesWhere(again.List(), [](const FontItem&) { return true; });
    require(static_cast<std::int64_t>(leaves.size()) == FontList::getFontCount(fonts.List()));
    if (leaves.size() <= 20)
        search(again.List(), leaves);
    FontList::setActivatedFont(fonts.List(), leaves);
    require(FontList::getActivatedFont(fonts.List()).size() ==
            leaves.size()); // every font matches its own export
    const auto map = UserFontActivateMapItem::create(json);
    require(map->FontList().size() == json["FontList"].arrayValue().size());
    const std::string user =
        PerchAppLibrary::toText(UserItem::create(json)->Dict()); // sms_token may be of any kind
    require(PerchAppLibrary::toText(UserItem::create(JSON::parse(user))->Dict()) == user);
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer requires this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        checkRoundTrip(JSON::parse(std::string_view(reinterpret_cast<const char*>(data), size)));
    } catch (const JSON::ParseError&) {
        return 0;
    }
    return 0;
}
