#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/ApplicationManager.hpp>
#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/fatalError.hpp>
#include <PerchAppLibrary/json/internal/DictionaryArena.hpp>
#include <PerchAppLibrary/md5.hpp>
#include <PerchAppLibrary/platform/Path.hpp>
#include <PerchAppLibrary/platform/URL.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/internal/RecordWriter.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>
#include <map>
#include <span>
#include <string_view>
#include <utility>

namespace VelmoCloudEntity {

using PerchAppLibrary::ApplicationManager;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::fatalError;
using PerchAppLibrary::PlatformFont;
using PerchAppLibrary::RecordWriter;
using PerchAppLibrary::URL;
namespace path = PerchAppLibrary::path;
namespace text = PerchAppLibrary::text;
namespace url = PerchAppLibrary::url;

PERCH_RECORD_SCHEMA(FontItem);

namespace {

constexpr std::string_view largePreviewSuffix = "_B.png";

/// Returns the name without its last four UTF-16 code units, or nullopt if it is shorter.
std::optional<std::string> withoutExtension(const std::string& fileName) {
    constexpr std::size_t extensionLength = 4; // a dot and three letters
    const std::size_t length = text::utf16Length(fileName);
    if (length < extensionLength)
        return std::nullopt;
    return text::utf16Substring(fileName, 0, length - extensionLength);
}

/// Returns the stored properties that Dict omits, and Children, which it converts itself.
const Excluded& excludedFromDict() {
    static const PerchAppLibrary::NoDestructor<Excluded> excluded(
        Excluded{"displayName", "previewText", "isActivated", "Children"});
    return *excluded;
}

/// Returns the stem. Ends the process if there is none.
std::string stemOrFail(const FontItem& font) {
    std::optional<std::string> stem = font.stem();
    if (!stem)
        fatalError("The ProductFileName \"" + font.ProductFileName() + "\" of font " +
                   std::to_string(font.Id()) + " is too short for a four-character extension");
    return *std::move(stem);
}

/// Returns whether Dict() and setActivated() of the font are those of FontItem, so that a walk may
/// go on in a loop. A class without a schema of its own may override them.
bool keepsWalks(const FontItem& font) {
    if (isExactly(font))
        return true;
    const PerchAppLibrary::RecordSchema& schema = font.schema();
    return isExactly(font, schema.type()) && !schema.overrides().walks;
}

} // namespace

FontItem::FontItem() = default;

FontItem::~FontItem() {
    detail::releaseTree(m_Children, [](FontItem& group) { return std::move(group.m_Children); });
}

void FontItem::setGroup(std::string groupTag) {
    setIsGroup(true);
    setGroupTag(std::move(groupTag));
}

const RecordWriter& FontItem::writer() const {
    static const PerchAppLibrary::NoDestructor<RecordWriter> writer(schema(), excludedFromDict());
    return *writer;
}

Dictionary FontItem::Dict() const {
    // In storage of its own, the Dict of each member of another class would be copied, so that a
    // deep tree would take quadratic time.
    return dictIn(keepsWalks(*this) ? arenaForDict(Children().size()).get()
                                    : PerchAppLibrary::Storage());
}

Dictionary FontItem::dictIn(const PerchAppLibrary::Storage& storage) const {
    Dictionary dictionary = isExactly(*this) ? writer().dictionary(*this, storage)
                                             : reflect(excludedFromDict(), storage);
    PerchAppLibrary::ValueArray& members = dictionary["Children"].emplace_array();
    members.reserve(Children().size());
    for (const std::shared_ptr<FontItem>& member : Children())
        members.emplace_back(keepsWalks(*member) ? member->dictIn(storage) : member->Dict());
    return dictionary;
}

std::vector<Dictionary> FontItem::getFontArray(const Records<FontItem>& list) {
    std::vector<Dictionary> dictionaries;
    dictionaries.reserve(list.size());
    for (const std::shared_ptr<FontItem>& font : list)
        dictionaries.push_back(font->Dict());
    return dictionaries;
}

std::string FontItem::getFontArrayText(const Records<FontItem>& list) {
    struct Level {
        const Records<FontItem>* fonts;
        std::size_t next;
    };
    std::map<const PerchAppLibrary::RecordSchema*, RecordWriter> writers; // of other classes
    std::string text = "[";
    std::vector<Level> levels{{&list, 0}};
    while (true) {
        Level& level = levels.back();
        if (level.fonts == &list && level.next > 0)
            PerchAppLibrary::reserveForList(text, level.next, list.size());
        if (level.next == level.fonts->size()) {
            text += ']';
            levels.pop_back();
            if (levels.empty())
                return text;
            text += '}';
            continue;
        }
        if (level.next > 0)
            text += ',';
        const FontItem& font = *(*level.fonts)[level.next++];
        if (!keepsWalks(font)) {
            text += PerchAppLibrary::toText(font.Dict());
            continue;
        }
        text += '{';
        if (isExactly(font))
            font.writer().write(font, text);
        else
            writers.try_emplace(&font.schema(), font.schema(), excludedFromDict())
                .first->second.write(font, text);
        text += ",\"Children\":[";
        levels.push_back({&font.Children(), 0});
    }
}

bool FontItem::IsActivated() const {
    if (!IsGroup())
        return isActivated();
    return std::ranges::all_of(Children(),
                               [](const auto& member) { return member->isActivated(); });
}

void FontItem::setActivated(bool activated) {
    if (!IsGroup()) {
        setIsActivated(activated);
        return;
    }
    std::vector<std::span<const std::shared_ptr<FontItem>>> levels{Children()};
    while (!levels.empty()) {
        if (levels.back().empty()) {
            levels.pop_back();
            continue;
        }
        FontItem& member = *levels.back().front();
        levels.back() = levels.back().subspan(1);
        if (keepsWalks(member) && member.IsGroup())
            levels.emplace_back(member.Children());
        else
            member.setActivated(activated);
    }
}

std::string FontItem::DisplayName() const {
    if (IsGroup())
        return ProductSetName() + " (" + std::to_string(Children().size()) + ")";
    return leafDisplayName();
}

const std::string& FontItem::leafDisplayName() const {
    return displayName().empty() ? ProductName() : displayName();
}

std::string FontItem::PreviewText() const {
    if (!previewText().empty())
        return previewText();
    return IsGroup() ? ProductSetName() : DisplayName();
}

std::string FontItem::TreeNodeTitle() const {
    if (IsGroup())
        return GroupTag() + ProductSetName();
    return ProductName() + "(" + Format() + ", " + Version() + ")";
}

bool FontItem::IsLocaled() const {
    const std::string file = LocalFile();
    return !file.empty() && path::fileExists(file);
}

PlatformFont FontItem::Font() const {
    constexpr double points = 32;
    if (!IsOnline())
        if (std::optional<PlatformFont> installed = PlatformFont::named(ProductName(), points))
            return *std::move(installed);
    return PlatformFont::system(points);
}

std::optional<std::string> FontItem::stem() const { return withoutExtension(ProductFileName()); }

std::string FontItem::LocalFile() const {
    return IsOnline() ? path::append(ApplicationManager::tmpCachesDir(), ProductFileName())
                      : ProductFileName();
}

std::string FontItem::LocalPreviewFile() const {
    return path::append(ApplicationManager::tmpCachesDir(),
                        stemOrFail(*this).append(largePreviewSuffix));
}

std::optional<URL> FontItem::findRemotePreviewFile() const {
    std::optional<std::string> address = withoutExtension(ProductFileUrl());
    if (!address)
        return std::nullopt;
    return url::parse(url::percentEncodedForFragment(address->append(largePreviewSuffix)));
}

URL FontItem::remotePreviewFile() const {
    std::optional<URL> preview = findRemotePreviewFile();
    if (!preview)
        fatalError("The ProductFileUrl \"" + ProductFileUrl() + "\" of font " +
                   std::to_string(Id()) + " gives no preview URL");
    return *std::move(preview);
}

std::string FontItem::getRemoteFileUrl(const std::string& productFileUrlHeader,
                                       const std::string& privateProductFileUrlHeader,
                                       const std::string& userGuid) const {
    if (IsPrivate())
        return privateProductFileUrlHeader + userGuid + "/" + ProductFileName();
    return productFileUrlHeader + ProductSetName() + "/" + Version() + "/" + ProductFileName();
}

std::string FontItem::previewName(bool isFixed, const std::string& previewTag,
                                  const std::string& colorTag, std::int64_t fontSize) const {
    const std::string name = stemOrFail(*this) + "_" + previewTag + "_" + colorTag + "_" +
                             std::to_string(fontSize) + ".png";
    return isFixed ? name : PerchAppLibrary::md5(name);
}

std::string FontItem::getLocalPreviewFile(bool isFixed, const std::string& previewTag,
                                          const std::string& colorTag,
                                          std::int64_t fontSize) const {
    return path::append(ApplicationManager::tmpCachesDir(),
                        previewName(isFixed, previewTag, colorTag, fontSize));
}

std::string FontItem::getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                           const std::string& colorTag,
                                           std::int64_t fontSize) const {
    return path::append(PreviewFileUrl(), previewName(isFixed, previewTag, colorTag, fontSize));
}

std::string FontItem::getRemotePreviewFile(bool isFixed, const std::string& previewTag,
                                           const std::string& colorTag, std::int64_t fontSize,
                                           const std::string& fixPreviewFileUrlHeader,
                                           const std::string& previewFileUrlHeader,
                                           const std::string& privatePreviewFileUrlHeader,
                                           const std::string& userGuid) const {
    const std::string name = previewName(isFixed, previewTag, colorTag, fontSize);
    if (IsPrivate())
        return privatePreviewFileUrlHeader + userGuid + "/" + name;
    const std::string& header = isFixed ? fixPreviewFileUrlHeader : previewFileUrlHeader;
    return header + ProductSetName() + "/" + Version() + "/" + name;
}

std::string FontItem::getRemoteFileUrl(const RemoteFileLabels& labels) const {
    return getRemoteFileUrl(labels.productFileUrlHeader.value,
                            labels.privateProductFileUrlHeader.value, labels.userGuid.value);
}

std::string FontItem::getLocalPreviewFile(const PreviewLabels& labels) const {
    return getLocalPreviewFile(labels.isFixed.value, labels.previewTag.value, labels.colorTag.value,
                               labels.fontSize.value);
}

std::string FontItem::getRemotePreviewFile(const PreviewLabels& labels) const {
    return getRemotePreviewFile(labels.isFixed.value, labels.previewTag.value,
                                labels.colorTag.value, labels.fontSize.value);
}

std::string FontItem::getRemotePreviewFile(const ServicePreviewLabels& labels) const {
    return getRemotePreviewFile(
        labels.isFixed.value, labels.previewTag.value, labels.colorTag.value, labels.fontSize.value,
        labels.fixPreviewFileUrlHeader.value, labels.previewFileUrlHeader.value,
        labels.privatePreviewFileUrlHeader.value, labels.userGuid.value);
}

} // namespace VelmoCloudEntity
