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
#include <unordered_set>
#include <utility>

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

/// Returns every location of the font, under the name of its operation, or null for a location that
/// the font lacks.
Dictionary locationsOf(const FontItem& font, const LocateOptions& options) {
    // Without a stem, the operations of previews end the process.
    const bool hasStem = font.stem().has_value();
    const auto ifStem = [hasStem](const std::function<std::string()>& location) {
        return hasStem ? toValue(location()) : Value(nullptr);
    };
    const std::optional<URL> remotePreview = font.findRemotePreviewFile();
    Dictionary locations;
    locations["LocalFile"] = toValue(font.LocalFile());
    locations["LocalPreviewFile"] = ifStem([&] { return font.LocalPreviewFile(); });
    locations["remotePreviewFile"] =
        remotePreview ? toValue(std::string_view(remotePreview->buffer())) : Value(nullptr);
    locations["getRemoteFileUrl"] = toValue(
        font.getRemoteFileUrl(options.productUrl, options.privateProductUrl, options.userGuid));
    locations["getLocalPreviewFile"] = ifStem([&] {
        return font.getLocalPreviewFile(options.isFixed, options.previewTag, options.colorTag,
                                        options.fontSize);
    });
    locations["getRemotePreviewFileShort"] = ifStem([&] {
        return font.getRemotePreviewFile(options.isFixed, options.previewTag, options.colorTag,
                                         options.fontSize);
    });
    locations["getRemotePreviewFile"] = ifStem([&] {
        return font.getRemotePreviewFile(
            options.isFixed, options.previewTag, options.colorTag, options.fontSize,
            options.fixPreviewUrl, options.previewUrl, options.privatePreviewUrl, options.userGuid);
    });
    return locations;
}

/// Warns of the locations that the font lacks, with the reason.
void warnAboutMissing(const FontItem& font, const Dictionary& locations,
                      const LocateOptions& options) {
    const std::string subject = fmt::format("{}: font {} \"{}\"", nameOf(options.source.file),
                                            font.Id(), font.ProductName());
    if (locations.at("LocalPreviewFile").is_null())
        warn(fmt::format("{}: its file name \"{}\" is too short for a four-character "
                         "extension, so it has no previews",
                         subject, font.ProductFileName()));
    if (locations.at("remotePreviewFile").is_null())
        warn(fmt::format("{}: its ProductFileUrl \"{}\" gives no URL for a preview", subject,
                         font.ProductFileUrl()));
}

void printText(const FontItem& font, const Dictionary& locations) {
    std::string text = bold(printable(font.TreeNodeTitle())) + "\n";
    const auto addRow = [&text](const char* label, std::string_view value) {
        text += fmt::format("  {:<25}{}\n", label, printable(value));
    };
    addRow("Display name", font.DisplayName());
    addRow("Preview text", font.PreviewText());
    addRow("Font file exists", font.IsLocaled() ? "yes" : "no");
    addRow("Drawn with the font", font.Font().name());
    for (const auto& [name, label] :
         {std::pair("LocalFile", "Font file"), std::pair("LocalPreviewFile", "Large preview"),
          std::pair("remotePreviewFile", "URL of large preview"),
          std::pair("getRemoteFileUrl", "URL of font file"),
          std::pair("getLocalPreviewFile", "Preview"),
          std::pair("getRemotePreviewFileShort", "URL of preview"),
          std::pair("getRemotePreviewFile", "URL of preview by prefix")}) {
        const Value& location = locations.at(name);
        addRow(label, location.is_string() ? std::string_view(location.get_string()) : "(none)");
    }
    print(text);
}

/// Returns why no leaf font has the Id.
std::string reasonForNone(const Fonts& fonts, std::int64_t id) {
    std::unordered_set<std::int64_t> groups;
    addIdsOfGroups(groups, fonts);
    return groups.contains(id)
               ? fmt::format("{} is the Id of a group, which has no file; name one of its fonts",
                             id)
               : fmt::format("no font has the Id {}", id);
}

ExitStatus locate(const LocateOptions& options) {
    const VelmoCloudEntity::FontList list = readFontList(options.source);
    const Fonts found = leavesWhere(
        list.List(), [&options](const FontItem& leaf) { return leaf.Id() == options.id; });
    if (found.empty()) {
        warn(nameOf(options.source.file) + ": " + reasonForNone(list.List(), options.id));
        if (options.asJSON)
            printJSON(nullptr);
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
        printText(font, locations);
    warnAboutMissing(font, locations, options);
    return font.stem() ? ExitStatus::success : ExitStatus::nothingFound;
}

} // namespace

void addLocate(CLI::App& application, Action& selected) {
    auto [command, options] = addCommand(
        application, selected,
        {.name = "locate",
         .description = "Show the local and remote locations of a font's file and previews",
         .example = "velmo locate font-list.json 339 --fixed --font-size 48",
         .statusOne = "no font has the Id, or it has no previews"},
        &locate);
    addFile(command, options.source);
    addInteger(command, "ID", options.id, "Identifier of a leaf font")->required();
    command.add_flag("--fixed", options.isFixed,
                     "Use fixed previews, with readable names instead of MD5");
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
