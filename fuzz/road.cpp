// Fuzzes the whole road: any bytes are a document or a ParseError; a document becomes fonts, which are asked
// for everything that cannot end the process, marked by themselves, exported, and read again to the same export.
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>
#include <VelmoCloudEntity/font/LeafWalk.hpp>

#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/platform/Text.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

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

void walk(const JSON& json) {
    const FontList fonts(json);
    ask(fonts.List());
    const std::string exported = PerchAppLibrary::toText(FontItem::getFontArray(fonts.List()));
    const FontList again(JSON::parse(exported));
    require(PerchAppLibrary::toText(FontItem::getFontArray(again.List())) == exported);

    const Records<FontItem> leaves = leavesWhere(again.List(), [](const FontItem&) { return true; });
    require(static_cast<std::int64_t>(leaves.size()) == FontList::getFontCount(fonts.List()));
    FontList::setActivatedFont(fonts.List(), leaves);
    require(FontList::getActivatedFont(fonts.List()).size() ==
            leaves.size()); // every font matches its own reading
    const auto map = UserFontActivateMapItem::create(json);
    require(map->FontList().size() == json["FontList"].arrayValue().size());
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
