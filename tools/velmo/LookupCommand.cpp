#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <unordered_set>

namespace velmo {
namespace {

using PerchAppLibrary::Value;
using VelmoCloudEntity::FontList;

struct LookupOptions {
    FontSource source;
    std::vector<std::int64_t> ids;
    bool isFlat = false;
    bool asJSON = false;
};

/// Warns of each identifier that no font has.
void warnAboutUnknown(const LookupOptions& options, const Fonts& fonts, const Fonts& found) {
    std::unordered_set<std::int64_t> known;
    for (const auto& font : found)
        known.insert(font->Id());
    std::unordered_set<std::int64_t> groups;
    if (!options.isFlat && known.size() < options.ids.size())
        addIdsOfGroups(groups, fonts);
    for (const std::int64_t id : options.ids) {
        if (known.contains(id))
            continue;
        warn(nameOf(options.source.file) +
             (groups.contains(id)
                  ? fmt::format(": {} is the Id of a group; --flat finds groups at the top level",
                                id)
                  : fmt::format(": no {} has the Id {}",
                                options.isFlat ? "item at the top level" : "font", id)));
    }
}

ExitStatus lookup(const LookupOptions& options) {
    if (options.isFlat && options.ids.size() > 1)
        throw Failure("lookup: --flat takes one ID");
    const FontList fonts = readFontList(options.source);
    Fonts found;
    if (!options.isFlat)
        found = FontList::getFontById(fonts.List(), options.ids);
    else if (const auto item = FontList::getFontItemById(fonts.List(), options.ids.front()))
        found = {item};
    if (options.isFlat && options.asJSON)
        printJSON(found.empty() ? Value(nullptr)
                                : PerchAppLibrary::toValue(describe(*found.front())));
    else
        printFonts(found, options.asJSON);
    warnAboutUnknown(options, fonts.List(), found);
    return found.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addLookup(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "lookup",
                    .description = "Find fonts by identifier, in the order of the tree",
                    .example = "velmo lookup font-list.json 337,339"},
                   &lookup);
    addFile(command, options.source);
    addIntegers(command, "ID", options.ids, "Identifiers of leaf fonts")->required();
    command.add_flag("--flat", options.isFlat,
                     "Find only the first item with the ID, font or group, at the top level");
}

} // namespace velmo
