#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <PerchAppLibrary/text/Text.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <unordered_map>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
namespace text = PerchAppLibrary::text;
using VelmoCloudEntity::FontList;
using VelmoCloudEntity::FontTagItem;
using VelmoCloudEntity::FontTagList;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

struct FilterOptions {
    FontSource source;
    std::string tagsFile;
    std::vector<std::string> checked;
    bool asJSON = false;
};

/// The tags to tick, by Id or name, and whether a tag has it.
class Wanted {
public:
    explicit Wanted(const std::vector<std::string>& tags) {
        for (const std::string& tag : tags) {
            if (const auto id = integerIn(tag))
                m_ids.emplace(*id, false);
            else
                m_names.emplace(text::folded(tag), false);
        }
    }

    /// Ticks each of these tags, at any depth.
    void tick(const Tags& tags) {
        for (const auto& tag : tags) {
            const auto id = m_ids.find(tag->Id());
            const auto name = m_names.find(text::folded(tag->Name()));
            if (id != m_ids.end())
                id->second = true;
            if (name != m_names.end())
                name->second = true;
            if (id != m_ids.end() || name != m_names.end())
                tag->setIsChecked(true);
            tick(tag->Children());
        }
    }

    /// Returns whether tick() met a tag with this Id or name.
    bool isKnown(const std::string& tag) const {
        const auto id = integerIn(tag);
        return id ? m_ids.at(*id) : m_names.at(text::folded(tag));
    }

private:
    std::unordered_map<std::int64_t, bool> m_ids;
    std::unordered_map<std::string, bool> m_names;
};

std::vector<std::int64_t> idsOfLeaves(const Fonts& fonts) {
    std::vector<std::int64_t> ids;
    forEachLeaf(fonts,
                [&ids](const std::shared_ptr<FontItem>& leaf) { ids.push_back(leaf->Id()); });
    return ids;
}

ExitStatus filter(const FilterOptions& options) {
    const FontList fonts = readFontList(options.source);
    const auto tags = readAs(options.tagsFile, recordType("FontTagList"), options.source.isForced,
                             [](const JSON& json) { return FontTagList(json); });
    Wanted wanted(options.checked);
    wanted.tick(tags.List());
    for (const std::string& tag : options.checked)
        if (!wanted.isKnown(tag))
            warn(fmt::format("{}: no tag has the {} {}", nameOf(options.tagsFile),
                             integerIn(tag) ? "Id" : "name", tag));

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
    auto [command, options] = addCommand(
        application, selected,
        {.name = "filter",
         .description = "Show the fonts that pass the ticked tags",
         .example = "velmo filter font-list.json --tags font-tags.json --check display,5,12"},
        &filter);
    addFile(command, options.source);
    addFileName(command, "--tags", options.tagsFile, "Font tag list, required")->required();
    command
        .add_option("--check", options.checked,
                    "Tags to tick, by Id or name, separated by commas; required")
        ->required()
        ->type_name("TAG")
        ->delimiter(',')
        ->allow_extra_args(false); // otherwise the option takes FILE, too
}

} // namespace velmo
