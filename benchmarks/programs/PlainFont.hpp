#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The struct that a developer would write without the library: the fields of a FontItem in the
/// order of its export, without accessors, and shared members.
struct PlainFont {
    std::string Guid;
    std::int64_t Id = 0;
    bool IsDisabled = false;
    std::int64_t ErrorCode = 0;
    bool Exception = false;
    std::string ExceptionCode;
    std::string ExceptionMessage;
    std::string TimeStamp;
    std::string DateStamp;
    std::string Token;
    std::int64_t ApplyHot = 0;
    std::int64_t Ordinal = 0;
    std::int64_t NameOrdinal = 0;
    std::int64_t AppendOrdinal = 0;
    std::int64_t UserOrdinal = 0;
    std::string TopClassify;
    std::int64_t ProductSetId = 0;
    std::string ProductSetName;
    std::string ProductName;
    std::string PostscriptName;
    std::string displayName;
    std::string Format;
    std::string Version;
    std::string Copyright;
    std::string ProductFileName;
    std::string ProductFileUrl;
    std::string PreviewFileUrl;
    std::string previewText;
    std::string RegisterKey;
    bool IsOnline = false;
    bool IsPreOnly = false;
    bool IsAuthed = false;
    bool IsFree = false;
    std::string FreeTag;
    bool IsFontAuth = false;
    bool IsMemberFont = false;
    bool IsPrivate = false;
    std::string OemTag;
    bool isActivated = false;
    bool IsFavorited = false;
    bool IsRecommended = false;
    bool IsNewly = false;
    std::string FontKey;
    bool IsGroup = false;
    std::string GroupTag;
    std::int64_t GroupCollectionId = 0;
    std::vector<std::int64_t> Tags;
    std::string DateStampBegin;
    std::string DateStampEnd;
    std::int64_t TopCount = 0;
    std::vector<std::shared_ptr<PlainFont>> Children;
};

using PlainFonts = std::vector<std::shared_ptr<PlainFont>>;

/// Calls `visit(key, field)` for each field of the font but Children.
template <class Visitor>
void forEachField(PlainFont& font, Visitor&& visit) {
    visit("Guid", font.Guid);
    visit("Id", font.Id);
    visit("IsDisabled", font.IsDisabled);
    visit("ErrorCode", font.ErrorCode);
    visit("Exception", font.Exception);
    visit("ExceptionCode", font.ExceptionCode);
    visit("ExceptionMessage", font.ExceptionMessage);
    visit("TimeStamp", font.TimeStamp);
    visit("DateStamp", font.DateStamp);
    visit("Token", font.Token);
    visit("ApplyHot", font.ApplyHot);
    visit("Ordinal", font.Ordinal);
    visit("NameOrdinal", font.NameOrdinal);
    visit("AppendOrdinal", font.AppendOrdinal);
    visit("UserOrdinal", font.UserOrdinal);
    visit("TopClassify", font.TopClassify);
    visit("ProductSetId", font.ProductSetId);
    visit("ProductSetName", font.ProductSetName);
    visit("ProductName", font.ProductName);
    visit("PostscriptName", font.PostscriptName);
    visit("displayName", font.displayName);
    visit("Format", font.Format);
    visit("Version", font.Version);
    visit("Copyright", font.Copyright);
    visit("ProductFileName", font.ProductFileName);
    visit("ProductFileUrl", font.ProductFileUrl);
    visit("PreviewFileUrl", font.PreviewFileUrl);
    visit("previewText", font.previewText);
    visit("RegisterKey", font.RegisterKey);
    visit("IsOnline", font.IsOnline);
    visit("IsPreOnly", font.IsPreOnly);
    visit("IsAuthed", font.IsAuthed);
    visit("IsFree", font.IsFree);
    visit("FreeTag", font.FreeTag);
    visit("IsFontAuth", font.IsFontAuth);
    visit("IsMemberFont", font.IsMemberFont);
    visit("IsPrivate", font.IsPrivate);
    visit("OemTag", font.OemTag);
    visit("isActivated", font.isActivated);
    visit("IsFavorited", font.IsFavorited);
    visit("IsRecommended", font.IsRecommended);
    visit("IsNewly", font.IsNewly);
    visit("FontKey", font.FontKey);
    visit("IsGroup", font.IsGroup);
    visit("GroupTag", font.GroupTag);
    visit("GroupCollectionId", font.GroupCollectionId);
    visit("Tags", font.Tags);
    visit("DateStampBegin", font.DateStampBegin);
    visit("DateStampEnd", font.DateStampEnd);
    visit("TopCount", font.TopCount);
}

/// Calls `visit(key, field)` for each field that an export contains, but Children.
template <class Visitor>
void forEachExported(PlainFont& font, Visitor&& visit) {
    forEachField(font, [&](std::string_view key, auto& field) {
        if (key != "displayName" && key != "previewText" && key != "isActivated")
            visit(key, field);
    });
}

/// Calls `read(field)` for the field with this key, if there is one. Loaders that iterate over the
/// members of an object call it. Tests the length of the key first, since few keys have equal
/// lengths.
template <class Read>
void readMember(PlainFont& font, std::string_view key, Read&& read) {
#define FIELD(Name)   \
    if (key == #Name) \
    return read(font.Name)
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
        FIELD(Children);
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
