#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <PerchAppLibrary/platform/URL.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <functional>
#include <optional>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::toValue;
using PerchAppLibrary::URL;
using PerchAppLibrary::Value;

struct LocateOptions {
    FontSource source;
    std::int64_t id = 0;
    bool isFixed = false;
    std::string previewTag = "S";
    std::string colorTag = "B";
    std::int64_t fontSize = 32;
    std::string productUrl;
    std::string privateProductUrl;
    std::string fixPreviewUrl;
    std::string previewUrl;
    std::string privatePreviewUrl;
    std::string userGuid;
    bool asJSON = false;
};

/// Every location of the font, under the operation's name; null where there is none.
Dictionary locationsOf(const FontItem& font, const LocateOptions& with) {
    // Without a stem, the library would end the process.
    const bool hasStem = font.stem().has_value();
    const auto ofStem = [hasStem](const std::function<std::string()>& location) {
        return hasStem ? toValue(location()) : Value(nullptr);
    };
    const std::optional<URL> remotePreview = font.findRemotePreviewFile();
    Dictionary locations;
    locations["LocalFile"] = toValue(font.LocalFile());
    locations["LocalPreviewFile"] = ofStem([&] { return font.LocalPreviewFile(); });
    locations["remotePreviewFile"] = remotePreview ? toValue(*remotePreview) : Value(nullptr);
    locations["getRemoteFileUrl"] =
        toValue(font.getRemoteFileUrl(with.productUrl, with.privateProductUrl, with.userGuid));
    locations["getLocalPreviewFile"] = ofStem([&] {
        return font.getLocalPreviewFile(with.isFixed, with.previewTag, with.colorTag,
                                        with.fontSize);
    });
    locations["getRemotePreviewFileShort"] = ofStem([&] {
        return font.getRemotePreviewFile(with.isFixed, with.previewTag, with.colorTag,
                                         with.fontSize);
    });
    locations["getRemotePreviewFile"] = ofStem([&] {
        return font.getRemotePreviewFile(with.isFixed, with.previewTag, with.colorTag,
                                         with.fontSize, with.fixPreviewUrl, with.previewUrl,
                                         with.privatePreviewUrl, with.userGuid);
    });
    return locations;
}

/// Says which locations the font lacks, and why.
void warnOfMissing(const FontItem& font, const Dictionary& locations,
                   const LocateOptions& options) {
    const std::string who = fmt::format("{}: font {} \"{}\"", nameOf(options.source.file),
                                        font.Id(), font.ProductName());
    if (locations.at("LocalPreviewFile").is_null())
        warn(fmt::format("{}: its file name \"{}\" is too short to lose a four-character "
                         "extension, so it has no previews",
                         who, font.ProductFileName()));
    if (locations.at("remotePreviewFile").is_null())
        warn(fmt::format("{}: its ProductFileUrl \"{}\" gives no URL of a preview", who,
                         font.ProductFileUrl()));
}

void printForPeople(const FontItem& font, const Dictionary& locations) {
    std::string text = bold(printable(font.TreeNodeTitle())) + "\n";
    text += fmt::format("  {:<27}{}\n", "DisplayName", printable(font.DisplayName()));
    text += fmt::format("  {:<27}{}\n", "PreviewText", printable(font.PreviewText()));
    text += fmt::format("  {:<27}{}\n", "IsLocaled", font.IsLocaled());
    text += fmt::format("  {:<27}{}\n", "Font", printable(font.Font().name()));
    for (const auto& [name, location] : locations)
        text += fmt::format("  {:<27}{}\n", std::string_view(name),
                            location.is_string() ? printable(location.get_string()) : "(none)");
    print(text);
}

ExitStatus locate(const LocateOptions& options) {
    const VelmoCloudEntity::FontList list = readFontList(options.source);
    const Fonts found = leavesWhere(
        list.List(), [&options](const FontItem& leaf) { return leaf.Id() == options.id; });
    if (found.empty()) {
        warn(fmt::format("{}: no font has the Id {}", nameOf(options.source.file), options.id));
        return ExitStatus::nothingFound;
    }
    if (found.size() > 1)
        warn(fmt::format("{}: {} have the Id {}; the first is shown", nameOf(options.source.file),
                         countOfFonts(static_cast<std::int64_t>(found.size())), options.id));
    const FontItem& font = *found.front();
    const Dictionary locations = locationsOf(font, options);
    if (options.asJSON)
        printJSON(locations);
    else
        printForPeople(font, locations);
    warnOfMissing(font, locations, options);
    return font.stem() ? ExitStatus::done : ExitStatus::nothingFound;
}

} // namespace

void addLocate(CLI::App& application, Work& work) {
    auto [command, options] =
        addCommand(application, work, "locate",
                   "Show where a font's file and previews are, here and at the service", &locate);
    addFile(command, options.source);
    addInteger(command, "ID", options.id, "Identifier of a leaf font")->required();
    command.add_flag("--fixed", options.isFixed, "Fixed previews: named in clear, not by MD5");
    const auto add = [&into = command](const char* name, auto& value, const char* description) {
        into.add_option(name, value, description)->capture_default_str();
    };
    add("--preview-tag", options.previewTag, "Preview style");
    add("--color-tag", options.colorTag, "Preview colour");
    addInteger(command, "--font-size", options.fontSize, "Preview size in points")
        ->default_str("32");
    add("--product-url", options.productUrl, "Prefix of public font files");
    add("--private-product-url", options.privateProductUrl, "Prefix of private font files");
    add("--fix-preview-url", options.fixPreviewUrl, "Prefix of fixed previews");
    add("--preview-url", options.previewUrl, "Prefix of other previews");
    add("--private-preview-url", options.privatePreviewUrl, "Prefix of a private font's previews");
    add("--user-guid", options.userGuid, "User of private fonts");
}

} // namespace velmo
