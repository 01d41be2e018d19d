#include "OurClient.hpp"

#include "Digest.hpp"

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontList;

namespace {

void addAll(Digest& digest, const VelmoCloudEntity::Records<FontItem>& fonts) {
    for (const auto& font : fonts) {
#define FIELD(Name) digest.add(font->Name())
        FIELD(Guid), FIELD(Id), FIELD(IsDisabled), FIELD(ErrorCode), FIELD(Exception),
            FIELD(ExceptionCode), FIELD(ExceptionMessage), FIELD(TimeStamp), FIELD(DateStamp),
            FIELD(Token), FIELD(ApplyHot), FIELD(Ordinal), FIELD(NameOrdinal), FIELD(AppendOrdinal),
            FIELD(UserOrdinal), FIELD(TopClassify), FIELD(ProductSetId), FIELD(ProductSetName),
            FIELD(ProductName), FIELD(PostscriptName), FIELD(displayName), FIELD(Format),
            FIELD(Version), FIELD(Copyright), FIELD(ProductFileName), FIELD(ProductFileUrl),
            FIELD(PreviewFileUrl), FIELD(previewText), FIELD(RegisterKey), FIELD(IsOnline),
            FIELD(IsPreOnly), FIELD(IsAuthed), FIELD(IsFree), FIELD(FreeTag), FIELD(IsFontAuth),
            FIELD(IsMemberFont), FIELD(IsPrivate), FIELD(OemTag), FIELD(isActivated),
            FIELD(IsFavorited), FIELD(IsRecommended), FIELD(IsNewly), FIELD(FontKey),
            FIELD(IsGroup), FIELD(GroupTag), FIELD(GroupCollectionId), FIELD(Tags),
            FIELD(DateStampBegin), FIELD(DateStampEnd), FIELD(TopCount);
#undef FIELD
        addAll(digest, font->Children());
    }
}

} // namespace

FontList loadOurs(std::string text) { return FontList::parse(std::move(text)); }

std::size_t digestOf(const FontList& fonts) {
    Digest digest;
    addAll(digest, fonts.List());
    return digest.value();
}

void activate(const FontList& fonts, const std::vector<std::int64_t>& ids) {
    for (const auto& font : FontList::getFontById(fonts.List(), ids))
        font->setIsActivated(true);
}

std::string textOfFound(const FontList& fonts, const std::string& key) {
    std::string text;
    for (const auto& font : FontList::getFontByName(fonts.List(), key, true))
        text.append(font->IsActivated() ? "* " : "  ").append(font->ProductName()).append("\n");
    return text;
}
