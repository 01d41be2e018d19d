#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using VelmoCloudEntity::FontList;
using VelmoCloudEntity::FontTagItem;
using VelmoCloudEntity::FontTagList;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

struct FilterOptions {
    FontSource source;
    std::string tagsFile;
    std::vector<std::int64_t> checked;
    bool asJSON = false;
};

/// Ticks every tag with this Id, at any depth. Returns their number.
std::size_t tick(const Tags& tags, std::int64_t id) {
    std::size_t ticked = 0;
    for (const auto& tag : tags) {
        if (tag->Id() == id) {
            tag->setIsChecked(true);
            ++ticked;
        }
        ticked += tick(tag->Children(), id);
    }
    return ticked;
}

std::vector<std::int64_t> idsOfLeaves(const Fonts& fonts) {
    std::vector<std::int64_t> ids;
    forEachLeaf(fonts,
                [&ids](const std::shared_ptr<FontItem>& leaf) { ids.push_back(leaf->Id()); });
    return ids;
}

ExitStatus filter(const FilterOptions& options) {
    const FontList fonts = readFontList(options.source);
    const auto tags = readAs(options.tagsFile, recordType("FontTagList"),
                             [](const JSON& json) { return FontTagList(json); });
    for (const std::int64_t id : options.checked)
        if (tick(tags.List(), id) == 0)
            warn(fmt::format("{}: no tag has the Id {}", nameOf(options.tagsFile), id));

    const std::vector<std::int64_t> all = idsOfLeaves(fonts.List());
    const std::vector<std::int64_t> passing =
        FontTagList::getCheckedFontTagFontIdList(tags.List(), all);
    const Fonts shown = FontList::getFontById(fonts.List(), passing);
    if (options.asJSON) {
        Dictionary result;
        result.emplace("FontIdList", PerchAppLibrary::toValue(passing));
        result.emplace("fonts", describe(shown));
        printJSON(PerchAppLibrary::toValue(std::move(result)));
        return shown.empty() ? ExitStatus::nothingFound : ExitStatus::success;
    }
    for (const auto& tag : FontTagList::getCheckedFontTagList(tags.List()))
        print(fmt::format("{} ({})\n", printable(tag->Name()),
                          countOfFonts(std::ssize(tag->FontIdList()))));
    printFonts(shown, false);
    return shown.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addFilter(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "filter",
                    .description = "Show the fonts that pass the ticked tags",
                    .example = "velmo filter font-list.json --tags font-tags.json --check 4,5,12"},
                   &filter);
    addFile(command, options.source);
    addFileName(command, "--tags", options.tagsFile, "Font tag list, required")->required();
    addIntegers(command, "--check", options.checked,
                "Identifiers of the tags to tick, separated by commas; required")
        ->required()
        ->allow_extra_args(false); // otherwise the option takes FILE, too
}

} // namespace velmo
