#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URLFwd.hpp>
#include <PerchAppLibrary/platform/prefetch.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace PerchAppLibrary {
class RecordWriter; // completed by PerchAppLibrary/record/RecordWriter.hpp
}

namespace VelmoCloudEntity {

using PerchAppLibrary::ByNameOnly;
using PerchAppLibrary::Near;
using PerchAppLibrary::Rare;
using PerchAppLibrary::Required;

/// One font of the cloud catalogue, or a group of fonts (a family) with its members.
///
/// A record whose IsGroup is true is a group and stands for its Children, whose members may be
/// groups again; any other record is a leaf, a font proper, whose Children are never looked at.
/// Members are shared: the same object may stand in several groups and lists, and whoever changes
/// it changes it for all.
///
/// Requires: no group is a member of itself, at any depth, and no member is null. Documents nest
/// groups up to 511 deep. A tree that is built by hand may be deeper: queries and destruction
/// manage any depth, whereas Dict(), its text, properties(), setActivated() and the copy or
/// destruction of a Dictionary go down one call for each level, as they must to honour overrides,
/// and need stack for that (10,000 levels are tested).
class FontItem : public PerchAppLibrary::BaseEntity {
    PerchAppLibrary::text::CachedSignature
        m_nameSignature; // near the flags, which queries read too

    PERCH_RECORD(FontItem, PerchAppLibrary::BaseEntity);

    /// Popularity.
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
    /// Name of the product set.
    PERCH_PROPERTY(std::string, ProductSetName);
    /// Product name of the font.
    PERCH_PROPERTY(std::string, ProductName);
    /// PostScript name of the font.
    PERCH_PROPERTY(std::string, PostscriptName);
    /// What was stored by setDisplayName(); read by DisplayName().
    PERCH_PROPERTY_SET_BY(Rare<std::string>, displayName, setDisplayName);
    /// Format of the font file.
    PERCH_PROPERTY(std::string, Format);
    /// Version of the font.
    PERCH_PROPERTY(std::string, Version);
    /// Rights notice, as sent.
    PERCH_PROPERTY(std::string, Copyright);
    /// Name of the font file; the full path of one that does not come from the catalogue.
    PERCH_PROPERTY(std::string, ProductFileName);
    /// Address of the font file.
    PERCH_PROPERTY(std::string, ProductFileUrl);
    /// Address of the folder of the font's preview images.
    PERCH_PROPERTY(std::string, PreviewFileUrl);
    /// What was stored by setPreviewText(); read by PreviewText().
    PERCH_PROPERTY_SET_BY(Rare<std::string>, previewText, setPreviewText);
    /// Opaque text of the service.
    PERCH_PROPERTY(std::string, RegisterKey);
    /// The font is on line in the catalogue.
    PERCH_PROPERTY(bool, IsOnline);
    /// Pre-release.
    PERCH_PROPERTY(bool, IsPreOnly);
    /// The user is authorised for the font.
    PERCH_PROPERTY(Near<bool>, IsAuthed);
    /// Free font.
    PERCH_PROPERTY(bool, IsFree);
    /// Label of the free offer.
    PERCH_PROPERTY(Rare<std::string>, FreeTag);
    /// Authorisation flag of the font itself.
    PERCH_PROPERTY(bool, IsFontAuth);
    /// Available to members.
    PERCH_PROPERTY(bool, IsMemberFont);
    /// The user's own upload.
    PERCH_PROPERTY(Near<bool>, IsPrivate);
    /// OEM label.
    PERCH_PROPERTY(Rare<std::string>, OemTag);
    /// What was stored by setIsActivated(); read by IsActivated().
    PERCH_PROPERTY_SET_BY(Near<bool>, isActivated, setIsActivated);
    /// The user's favourite.
    PERCH_PROPERTY(Near<bool>, IsFavorited);
    /// Recommended font.
    PERCH_PROPERTY(bool, IsRecommended);
    /// New font.
    PERCH_PROPERTY(bool, IsNewly);
    /// Key text of the service; no query reads it.
    PERCH_PROPERTY(std::string, FontKey);
    /// The record is a group of the fonts in Children.
    PERCH_PROPERTY(Near<bool>, IsGroup);
    /// Tag that names the group.
    PERCH_PROPERTY(Rare<std::string>, GroupTag);
    /// Collection that the group belongs to.
    PERCH_PROPERTY(std::int64_t, GroupCollectionId);
    /// Identifiers of the font's tags.
    PERCH_PROPERTY(std::vector<std::int64_t>, Tags);
    /// Members of a group.
    PERCH_PROPERTY(Records<FontItem>, Children);
    /// Begin of a period of validity, as sent.
    PERCH_PROPERTY(Rare<std::string>, DateStampBegin);
    /// End of a period of validity, as sent.
    PERCH_PROPERTY(Rare<std::string>, DateStampEnd);
    /// Count used by top lists.
    PERCH_PROPERTY(std::int64_t, TopCount);

    /// The record for storage or transmission: its stored properties, the base's first, without
    /// displayName, previewText and isActivated; last "Children", the members' own Dicts.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    /// Whether the font's file is there: a file exists at LocalFile(). False, without a look, when
    /// that is empty.
    PERCH_COMPUTED(bool, IsLocaled);

    /// Path of the font file: in the client's cache directory for a font that is on line, otherwise
    /// ProductFileName() as it is.
    PERCH_COMPUTED(std::string, LocalFile);

    /// Path of the large preview image in the client's cache directory: the stem of the file name
    /// and
    /// "_B.png". Ends the process when ProductFileName() has no stem; see stem().
    PERCH_COMPUTED(std::string, LocalPreviewFile);

    /// Address of the large preview image: ProductFileUrl() with "_B.png" for its last four
    /// characters, percent-encoded as a URL fragment. Ends the process when there is none; see
    /// findRemotePreviewFile().
    PERCH_COMPUTED(PerchAppLibrary::URL, remotePreviewFile);

    /// The font to draw with, at 32 points: the installed font named ProductName() for a font that
    /// is not on line, if there is one; otherwise the system's.
    PERCH_COMPUTED(PerchAppLibrary::PlatformFont, Font);

    /// A leaf's own flag. A group is activated when the stored flag of each of its members is true:
    /// a group without members is, and a member that is a group is judged by its own flag alone.
    PERCH_COMPUTED(bool, IsActivated);

    /// The name set by setDisplayName(), or else ProductName(); of a group, ProductSetName() and
    /// the number of members: "Song (4)".
    PERCH_COMPUTED(std::string, DisplayName);

    /// The text set by setPreviewText(), or else DisplayName(); of a group, ProductSetName().
    PERCH_COMPUTED(std::string, PreviewText);

    /// "Kai(TTF, 1.00)" (ProductName, Format, Version); of a group, GroupTag() and
    /// ProductSetName().
    PERCH_COMPUTED(std::string, TreeNodeTitle);

    PERCH_RECORD_END;
    PERCH_ON_CHANGE(forgetNames, ProductName, ProductSetName, ProductFileName, displayName);

    /// Labels of a font that is known by its name: create({.productName = "A"}).
    PERCH_LABELS(NameLabels, (productName, ProductName));

    /// Makes the font a group with this tag.
    void setGroup(std::string groupTag);

    /// Labels of an empty group: create({.groupTag = "x"}).
    PERCH_LABELS(GroupLabels, (groupTag, Group));

    /// Labels of a reference to a font: create({.id = 7, .productName = "A", .isPrivate = true}).
    PERCH_LABELS(ReferenceLabels, (id, Id), (productName, ProductName), (isPrivate, IsPrivate));

    FontItem();
    ~FontItem() override;

    /// Sets IsActivated of a leaf; hands the value on to every member of a group, whose own flag
    /// stays as it is.
    virtual void setActivated(bool activated);

    /// The Dicts of the fonts, in order.
    static std::vector<PerchAppLibrary::Dictionary> getFontArray(const Records<FontItem>& list);

    /// The text of a JSON array of these (RFC 8259, without white space): what
    /// toText(getFontArray(list)) gives, without the dictionaries, so about six times as fast.
    static std::string getFontArrayText(const Records<FontItem>& list);

    /// The text that DisplayName() gives, without a copy: null where it is worked out, of a group
    /// or, as far as can be known, by a subclass.
    const std::string* storedDisplayName() const;

    /// ProductFileName() without its last four characters, a dot and an extension of three letters.
    /// Characters are UTF-16 code units; half of a character that is cut apart becomes U+FFFD. None
    /// when the name has fewer than four.
    std::optional<std::string> stem() const;

    /// remotePreviewFile(), or none where ProductFileUrl() has fewer than four UTF-16 code units or
    /// gives no URL.
    std::optional<PerchAppLibrary::URL> findRemotePreviewFile() const;

    /// Address of the font file: for a public font the prefix, ProductSetName(), "/", Version(),
    /// "/", ProductFileName(); for a private one the private prefix, the user's identifier, "/",
    /// ProductFileName(). Prefixes are used as they are, so they end in "/".
    virtual std::string getRemoteFileUrl(const std::string& productFileUrlHeader,
                                         const std::string& privateProductFileUrlHeader,
                                         const std::string& userGuid) const;

    /// Path of a preview image in the client's cache directory. A fixed preview is named in clear,
    /// as in "SongTi_p1_c0_48.png" (stem, preview tag, colour tag, size in points), any other by
    /// the MD5 of that name. This and the two following end the process when ProductFileName() has
    /// no stem; see stem().
    virtual std::string getLocalPreviewFile(bool isFixed, const std::string& previewTag,
                                            const std::string& colorTag,
                                            std::int64_t fontSize) const;

    /// Address of a preview image: PreviewFileUrl() and the name that getLocalPreviewFile() uses.
    virtual std::string getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                             const std::string& colorTag,
                                             std::int64_t fontSize) const;

    /// Address of a preview image below the service's prefixes, which are used as they are: for a
    /// public font the prefix of fixed or of other previews, ProductSetName(), "/", Version(), "/"
    /// and the name; for a private one the private prefix, the user's identifier, "/" and the name.
    virtual std::string getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                             const std::string& colorTag, std::int64_t fontSize,
                                             const std::string& fixPreviewFileUrlHeader,
                                             const std::string& previewFileUrlHeader,
                                             const std::string& privatePreviewFileUrlHeader,
                                             const std::string& userGuid) const;

    /// The signature of the names by which the font is searched, as they are stored: ProductName,
    /// ProductSetName, ProductFileName, displayName.
    const PerchAppLibrary::text::CachedSignature& nameSignature() const noexcept {
        return m_nameSignature;
    }

    /// The last byte of the signature, for prefetching.
    const void* signatureEnd() const noexcept {
        return reinterpret_cast<const char*>(&m_nameSignature + 1) - 1;
    }

    /// Prefetch the names, and then the texts that they keep elsewhere.
    void prefetchNames() const noexcept {
        for (const std::string* const name :
             {&m_ProductSetName, &m_ProductName, &m_ProductFileName}) {
            PerchAppLibrary::prefetch(name);
            PerchAppLibrary::prefetch(reinterpret_cast<const char*>(name + 1) - 1);
        }
    }
    void prefetchTexts() const noexcept {
        for (const std::string* const name :
             {&m_ProductName, &m_ProductSetName, &m_ProductFileName})
            PerchAppLibrary::prefetch(name->data());
    }

    /// The locations with labels for arguments. They call the functions above. A subclass that
    /// overrides one of these also writes `using FontItem::getLocalPreviewFile;`, or the like.
    struct RemoteFileLabels {
        [[no_unique_address]] ByNameOnly byNameOnly = ByNameOnly();
        Required<std::string> productFileUrlHeader;
        Required<std::string> privateProductFileUrlHeader;
        Required<std::string> userGuid;
    };
    std::string getRemoteFileUrl(const RemoteFileLabels& labels) const;

    struct PreviewLabels {
        [[no_unique_address]] ByNameOnly byNameOnly = ByNameOnly();
        Required<bool> isFixed;
        Required<std::string> previewTag;
        Required<std::string> colorTag;
        Required<std::int64_t> fontSize;
    };
    std::string getLocalPreviewFile(const PreviewLabels& labels) const;
    std::string getRemotePreviewFile(const PreviewLabels& labels) const;

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
    std::string getRemotePreviewFile(const ServicePreviewLabels& labels) const;

private:
    void forgetNames() noexcept { m_nameSignature.forget(); }
    const std::string& nameToDisplay() const;            // of a leaf
    const PerchAppLibrary::RecordWriter& writer() const; // of exactly this class
    PerchAppLibrary::Dictionary dictIn(const PerchAppLibrary::Storage& storage) const;
    void appendText(std::string& text) const; // of Dict()
    static void appendText(std::string& text, const Records<FontItem>& list);
    std::string previewName(bool isFixed, const std::string& previewTag,
                            const std::string& colorTag, std::int64_t fontSize) const;
};

} // namespace VelmoCloudEntity
