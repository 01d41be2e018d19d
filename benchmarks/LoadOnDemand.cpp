#include "Loaders.hpp"

#include <simdjson.h>

#include <stdexcept>

namespace {

namespace ondemand = simdjson::ondemand;

void read(ondemand::value value, std::int64_t& field) { field = value.get_int64(); }
void read(ondemand::value value, bool& field) { field = value.get_bool(); }
void read(ondemand::value value, std::string& field) { field = std::string_view(value.get_string()); }
void read(ondemand::value value, std::vector<std::int64_t>& field) {
    for (auto element : value.get_array())
        field.push_back(element.get_int64());
}

PlainFonts fontsFrom(ondemand::array array);

/// Keys of one length are few, so that most are told apart by their length.
void readMember(PlainFont& font, std::string_view key, ondemand::value value) {
#define FIELD(Name)   \
    if (key == #Name) \
    return read(value, font.Name)
    switch (key.size()) {
    case 2:
        FIELD(Id);
        break;
    case 4:
        FIELD(Tags);
        FIELD(Guid);
        break;
    case 5:
        FIELD(Token);
        break;
    case 6:
        FIELD(Format);
        FIELD(IsFree);
        FIELD(OemTag);
        break;
    case 7:
        FIELD(Ordinal);
        FIELD(Version);
        FIELD(IsNewly);
        FIELD(FontKey);
        FIELD(IsGroup);
        FIELD(FreeTag);
        break;
    case 8:
        FIELD(ApplyHot);
        FIELD(IsOnline);
        FIELD(IsAuthed);
        FIELD(TopCount);
        if (key == "Children") {
            font.Children = fontsFrom(value.get_array());
            return;
        }
        FIELD(GroupTag);
        break;
    case 9:
        FIELD(Copyright);
        FIELD(IsPrivate);
        FIELD(IsPreOnly);
        FIELD(ErrorCode);
        FIELD(Exception);
        FIELD(TimeStamp);
        FIELD(DateStamp);
        break;
    case 10:
        FIELD(IsDisabled);
        FIELD(IsFontAuth);
        break;
    case 11:
        FIELD(NameOrdinal);
        FIELD(TopClassify);
        FIELD(ProductName);
        FIELD(RegisterKey);
        FIELD(IsFavorited);
        FIELD(UserOrdinal);
        FIELD(displayName);
        FIELD(previewText);
        FIELD(isActivated);
        break;
    case 12:
        FIELD(ProductSetId);
        FIELD(IsMemberFont);
        FIELD(DateStampEnd);
        break;
    case 13:
        FIELD(AppendOrdinal);
        FIELD(IsRecommended);
        FIELD(ExceptionCode);
        break;
    case 14:
        FIELD(ProductSetName);
        FIELD(PostscriptName);
        FIELD(ProductFileUrl);
        FIELD(PreviewFileUrl);
        FIELD(DateStampBegin);
        break;
    case 15:
        FIELD(ProductFileName);
        break;
    case 16:
        FIELD(ExceptionMessage);
        break;
    case 17:
        FIELD(GroupCollectionId);
        break;
    default:
        break;
    }
#undef FIELD
}

PlainFonts fontsFrom(ondemand::array array) {
    PlainFonts fonts;
    for (auto element : array) {
        auto font = std::make_shared<PlainFont>();
        for (auto member : element.get_object())
            readMember(*font, std::string_view(member.unescaped_key()), member.value());
        fonts.push_back(std::move(font));
    }
    return fonts;
}

} // namespace

PlainFonts loadOnDemand(std::string text) {
    ondemand::parser parser;
    ondemand::document document = parser.iterate(text.data(), text.size(), text.capacity());
    return fontsFrom(document.get_array());
}
