#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URLFwd.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace PerchAppLibrary {
class RecordWriter; // completed by PerchAppLibrary/record/internal/RecordWriter.hpp
}

namespace VelmoCloudEntity {

/// One font of the cloud catalogue, or a group of fonts (a family) with its members.
///
/// A record whose IsGroup is true is a group. Its Children are fonts or groups. Any other record is
/// a leaf, a single font, and its Children are not read. Members are shared: a record may be in
/// several groups and lists, and each of them shows a change of it.
///
/// Requires that no group contains itself, at any depth, and that no member is null. Queries,
/// destruction, setActivated() and getFontArrayText() work at any depth. The last two recurse into
/// a font whose class overrides Dict() or setActivated(), or has no PERCH_RECORD. Dict() and
/// properties() recurse once for each level, and so does copying, writing or destroying a
/// Dictionary: 10,000 levels are tested. A document nests groups at most 512 deep.
class FontItem : public PerchAppLibrary::BaseEntity {
    /// Lies near the flags, since queries read both.
    PerchAppLibrary::text::CachedSignature m_nameSignature;

    PERCH_RECORD(FontItem, PerchAppLibrary::BaseEntity);

    /// Popularity, as a number from the service.
    PERCH_PROPERTY(std::int64_t, ApplyHot);
    /// Order in the catalogue.
    PERCH_PROPERTY(std::int64_t, Ordinal);
    /// Order by name.
    PERCH_PROPERTY(std::int64_t, NameOrdinal);
    /// Order by time of addition.
    PERCH_PROPERTY(std::int64_t, AppendOrdinal);
    /// The user's own order.
    PERCH_PROPERTY(std::int64_t, UserOrdinal);
    /// Top-level classification.
    PERCH_PROPERTY(std::string, TopClassify);
    /// Identifier of the product set (family).
    PERCH_PROPERTY(std::int64_t, ProductSetId);
    /// Name of the product set (family): the title of a group, a folder in a font's addresses.
    PERCH_PROPERTY(std::string, ProductSetName);
    /// Product name of the font.
    PERCH_PROPERTY(std::string, ProductName);
    /// PostScript name of the font.
    PERCH_PROPERTY(std::string, PostscriptName);
    /// The value that setDisplayName() stores; DisplayName() reads it. Not in Dict.
    PERCH_PROPERTY_SET_BY(Rare<std::string>, displayName, setDisplayName);
    /// Format of the font file.
    PERCH_PROPERTY(std::string, Format);
    /// Version of the font.
    PERCH_PROPERTY(std::string, Version);
    /// Rights notice, as sent.
    PERCH_PROPERTY(std::string, Copyright);
    /// Name of the font file; its full path if the font is not on line in the catalogue.
    PERCH_PROPERTY(std::string, ProductFileName);
    /// Address of the font file.
    PERCH_PROPERTY(std::string, ProductFileUrl);
    /// Address of the folder of the font's preview images.
    PERCH_PROPERTY(std::string, PreviewFileUrl);
    /// The value that setPreviewText() stores; PreviewText() reads it. Not in Dict.
    PERCH_PROPERTY_SET_BY(Rare<std::string>, previewText, setPreviewText);
    /// Opaque text of the service.
    PERCH_PROPERTY(std::string, RegisterKey);
    /// The font is on line in the catalogue.
    PERCH_PROPERTY(bool, IsOnline);
    /// The font is a pre-release.
    PERCH_PROPERTY(bool, IsPreOnly);
    /// The user is authorised for the font.
    PERCH_PROPERTY(Near<bool>, IsAuthed);
    /// The font is free.
    PERCH_PROPERTY(bool, IsFree);
    /// Label of the free offer.
    PERCH_PROPERTY(Rare<std::string>, FreeTag);
    /// Authorisation flag of the font, as sent. IsAuthed is the user's.
    PERCH_PROPERTY(bool, IsFontAuth);
    /// The font is available to members.
    PERCH_PROPERTY(bool, IsMemberFont);
    /// The user has uploaded the font. Its addresses have the private prefixes.
    PERCH_PROPERTY(Near<bool>, IsPrivate);
    /// OEM label.
    PERCH_PROPERTY(Rare<std::string>, OemTag);
    /// The value that setIsActivated() stores; IsActivated() reads it. Not in Dict.
    PERCH_PROPERTY_SET_BY(Near<bool>, isActivated, setIsActivated);
    /// The font is a favourite of the user.
    PERCH_PROPERTY(Near<bool>, IsFavorited);
    /// The font is recommended.
    PERCH_PROPERTY(bool, IsRecommended);
    /// The font is new.
    PERCH_PROPERTY(bool, IsNewly);
    /// Key text of the service; no query reads it.
    PERCH_PROPERTY(std::string, FontKey);
    /// The record is a group of the fonts in Children.
    PERCH_PROPERTY(Near<bool>, IsGroup);
    /// Text of the service that labels a group, before its name in TreeNodeTitle(). Not a tag.
    PERCH_PROPERTY(Rare<std::string>, GroupTag);
    /// Collection that the group belongs to.
    PERCH_PROPERTY(std::int64_t, GroupCollectionId);
    /// Identifiers of the font's tags.
    PERCH_PROPERTY(std::vector<std::int64_t>, Tags);
    /// Members of a group.
    PERCH_PROPERTY(Records<FontItem>, Children);
    /// Start of a period of validity, as sent.
    PERCH_PROPERTY(Rare<std::string>, DateStampBegin);
    /// End of a period of validity, as sent.
    PERCH_PROPERTY(Rare<std::string>, DateStampEnd);
    /// Count for top lists.
    PERCH_PROPERTY(std::int64_t, TopCount);

    /// The record for storage or transmission: the stored properties, the base's first, without
    /// displayName, previewText and isActivated; "Children" comes last, as the members' Dicts.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    /// Whether path::fileExists(LocalFile()). It may be a device or a pipe: a reply names it. If
    /// LocalFile() is empty, false without reading the file system.
    PERCH_COMPUTED(bool, IsLocaled);

    /// Path of the font file: ProductFileName() in the client's cache directory if the font is on
    /// line, otherwise ProductFileName() itself.
    PERCH_COMPUTED(std::string, LocalFile);

    /// Path of the large preview image in the client's cache directory: the stem of the file name,
    /// then "_B.png". Ends the process if stem() is nullopt.
    PERCH_COMPUTED(std::string, LocalPreviewFile);

    /// Address of the large preview image: ProductFileUrl() with "_B.png" in place of its last four
    /// characters, percent-encoded as a URL fragment. Ends the process if findRemotePreviewFile()
    /// is nullopt.
    PERCH_COMPUTED(PerchAppLibrary::URL, remotePreviewFile);

    /// The font to draw with, at 32 points: the installed font named ProductName(), if the record
    /// is not on line and the font is installed; otherwise the system font.
    PERCH_COMPUTED(PerchAppLibrary::PlatformFont, Font);

    /// Whether the font is activated: for a leaf, the stored flag isActivated(); for a group,
    /// whether the stored flag of each of its direct members is true. A group without members is
    /// activated.
    PERCH_COMPUTED(bool, IsActivated);

    /// For a leaf, displayName(), or ProductName() if that is empty. For a group, ProductSetName()
    /// and the number of direct members, fonts and groups: "Song (4)".
    PERCH_COMPUTED(std::string, DisplayName);

    /// previewText(), or if that is empty, DisplayName() of a leaf, ProductSetName() of a group.
    PERCH_COMPUTED(std::string, PreviewText);

    /// For a leaf, ProductName(), Format() and Version(): "Kai(TTF, 1.00)". For a group, GroupTag()
    /// directly followed by ProductSetName(): "New: " and "Song" give "New: Song".
    PERCH_COMPUTED(std::string, TreeNodeTitle);

    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetNames, ProductName, ProductSetName, ProductFileName, displayName);

    /// Labels of a font with a name only: create({.productName = "A"}).
    PERCH_LABELS(NameLabels, (productName, ProductName));

    /// Sets IsGroup to true and GroupTag to the tag.
    void setGroup(std::string groupTag);

    /// Labels of an empty group: create({.groupTag = "x"}).
    PERCH_LABELS(GroupLabels, (groupTag, Group));

    /// Labels of a reference to a font: create({.id = 7, .productName = "A", .isPrivate = true}).
    PERCH_LABELS(ReferenceLabels, (id, Id), (productName, ProductName), (isPrivate, IsPrivate));

    /// Makes a font with the default of each property.
    FontItem();
    /// Destroys the members that have no other owner, at any depth.
    ~FontItem() override;

    /// Sets IsActivated of a leaf. For a group, calls setActivated() of every member and leaves the
    /// group's own flag unchanged.
    virtual void setActivated(bool activated);

    /// Returns the Dicts of the fonts, in order.
    static std::vector<PerchAppLibrary::Dictionary> getFontArray(const Records<FontItem>& list);

    /// Returns toText(getFontArray(list)): the text of a JSON array of the Dicts (RFC 8259, without
    /// white space). Faster, since it makes no dictionaries.
    static std::string getFontArrayText(const Records<FontItem>& list);

    /// Returns ProductFileName() without its last four characters: a dot and an extension of three
    /// letters. Returns nullopt if the name has fewer. Characters are UTF-16 code units; half of a
    /// surrogate pair that is cut becomes U+FFFD.
    std::optional<std::string> stem() const;

    /// Returns remotePreviewFile(), or nullopt if ProductFileUrl() has fewer than four UTF-16 code
    /// units or gives no valid URL.
    std::optional<PerchAppLibrary::URL> findRemotePreviewFile() const;

    /// Returns the address of the font file. For a public font: `productFileUrlHeader`,
    /// ProductSetName(), "/", Version(), "/", ProductFileName(). For a private font:
    /// `privateProductFileUrlHeader`, `userGuid`, "/", ProductFileName(). Pass prefixes that end in
    /// "/".
    virtual std::string getRemoteFileUrl(const std::string& productFileUrlHeader,
                                         const std::string& privateProductFileUrlHeader,
                                         const std::string& userGuid) const;

    /// Returns the path of a preview image in the client's cache directory. A fixed preview has a
    /// readable name, the stem, preview tag, colour tag and size in points: "SongTi_p1_c0_48.png".
    /// The name of any other preview is the MD5 of that name. Ends the process if stem() is
    /// nullopt.
    virtual std::string getLocalPreviewFile(bool isFixed, const std::string& previewTag,
                                            const std::string& colorTag,
                                            std::int64_t fontSize) const;

    /// Returns the address of a preview image: PreviewFileUrl(), "/" and the name that
    /// getLocalPreviewFile() uses. Ends the process if stem() is nullopt.
    virtual std::string getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                             const std::string& colorTag,
                                             std::int64_t fontSize) const;

    /// Returns the address of a preview image under the prefixes of the service, which end in "/".
    /// For a public font: `fixPreviewFileUrlHeader` if fixed, otherwise `previewFileUrlHeader`;
    /// then ProductSetName(), "/", Version(), "/" and the name that getLocalPreviewFile() uses. For
    /// a private font: `privatePreviewFileUrlHeader`, `userGuid`, "/" and that name. Ends the
    /// process if stem() is nullopt.
    virtual std::string getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                             const std::string& colorTag, std::int64_t fontSize,
                                             const std::string& fixPreviewFileUrlHeader,
                                             const std::string& previewFileUrlHeader,
                                             const std::string& privatePreviewFileUrlHeader,
                                             const std::string& userGuid) const;

    /// Labels of getRemoteFileUrl(). The functions that take labels call the virtual functions
    /// above. A subclass that overrides one of those hides the one with labels, unless it also
    /// writes `using FontItem::getRemoteFileUrl;`.
    struct RemoteFileLabels {
        [[no_unique_address]] ByNameOnly byNameOnly = ByNameOnly();
        Required<std::string> productFileUrlHeader;
        Required<std::string> privateProductFileUrlHeader;
        Required<std::string> userGuid;
    };
    /// Like getRemoteFileUrl() with plain arguments.
    std::string getRemoteFileUrl(const RemoteFileLabels& labels) const;

    /// Labels of getLocalPreviewFile() and of getRemotePreviewFile() without prefixes.
    struct PreviewLabels {
        [[no_unique_address]] ByNameOnly byNameOnly = ByNameOnly();
        Required<bool> isFixed;
        Required<std::string> previewTag;
        Required<std::string> colorTag;
        Required<std::int64_t> fontSize;
    };
    /// Like getLocalPreviewFile() with plain arguments.
    std::string getLocalPreviewFile(const PreviewLabels& labels) const;
    /// Like getRemotePreviewFile() with plain arguments.
    std::string getRemotePreviewFile(const PreviewLabels& labels) const;

    /// Labels of getRemotePreviewFile() with prefixes.
    struct ServicePreviewLabels {
        [[no_unique_address]] ByNameOnly byNameOnly = ByNameOnly();
        Required<bool> isFixed;
        Required<std::string> previewTag;
        Required<std::string> colorTag;
        Required<std::int64_t> fontSize;
        Required<std::string> fixPreviewFileUrlHeader;
        Required<std::string> previewFileUrlHeader;
        Required<std::string> privatePreviewFileUrlHeader;
        Required<std::string> userGuid;
    };
    /// Like getRemotePreviewFile() with plain arguments.
    std::string getRemotePreviewFile(const ServicePreviewLabels& labels) const;

private:
    friend struct FontAccess; // reads the names for searches

    /// @cond what a walk over a tree uses
    /// Returns the last byte that a walk over a tree reads, for prefetching.
    friend const void* lastWalkedByte(const FontItem& font) noexcept {
        return reinterpret_cast<const char*>(&font.m_nameSignature + 1) - 1;
    }
    /// @endcond

    /// Returns whether a subclass keeps the functions that call themselves for members, so that a
    /// walk over a tree may go on in a loop.
    template <class Record>
    static consteval bool perchKeepsWalks() {
        return requires {
            requires std::same_as<decltype(&Record::Dict), decltype(&FontItem::Dict)>;
            requires std::same_as<decltype(&Record::setActivated),
                                  decltype(&FontItem::setActivated)>;
        };
    }

    void forgetNames() noexcept { m_nameSignature.forget(); }

    /// Returns DisplayName() of a leaf.
    const std::string& leafDisplayName() const;

    /// Returns the writer of Dict. Requires a record of exactly this class.
    const PerchAppLibrary::RecordWriter& writer() const;

    /// Returns Dict() in the storage of a larger dictionary.
    PerchAppLibrary::Dictionary dictIn(const PerchAppLibrary::Storage& storage) const;

    /// Returns the name that getLocalPreviewFile() describes.
    std::string previewName(bool isFixed, const std::string& previewTag,
                            const std::string& colorTag, std::int64_t fontSize) const;
};

} // namespace VelmoCloudEntity
