// Fuzzes the whole road: any bytes are a document or a ParseError; a document becomes fonts, which
// are asked for everything that cannot end the process, searched, marked by themselves, exported,
// and read again to the same export; and a user, likewise.
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

void require(bool holds) {
    if (!holds)
        std::abort();
}

void ask(const Records<FontItem>& fonts) {
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
            ask(font->Children());
    }
}

/// What a search finds depends on characters, not on their spelling; every font is found by its own
/// name and identifier.
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

void filter(const JSON& json) {
    const FontTagList tags(json);
    FontTagList::setFontTagItemCheck(tags.List(), true);
    (void)FontTagList::getCheckedFontTagList(tags.List());
    for (const auto& tag : tags.List()) {
        const std::vector<std::int64_t>& ids = tag->FontIdList();
        const auto left = FontTagList::getCheckedFontTagFontIdList(tags.List(), ids);
        require(left.size() <= ids.size());
    }
}

void walk(const JSON& json) {
    require(json == JSON::parse(PerchAppLibrary::toText(PerchAppLibrary::toValue(json))));
    filter(json);
    const FontList fonts(json);
    ask(fonts.List());
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
            leaves.size()); // every font matches its own reading
    const auto map = UserFontActivateMapItem::create(json);
    require(map->FontList().size() == json["FontList"].arrayValue().size());
    const std::string user =
        PerchAppLibrary::toText(UserItem::create(json)->Dict()); // with a token of any kind
    require(PerchAppLibrary::toText(UserItem::create(JSON::parse(user))->Dict()) == user);
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        walk(JSON::parse(std::string_view(reinterpret_cast<const char*>(data), size)));
    } catch (const JSON::ParseError&) {
        return 0;
    }
    return 0;
}
