#include "Commands.hpp"
#include "FontView.hpp"

#include <CLI/App.hpp>

#include <optional>

namespace velmo {
namespace {

using VelmoCloudEntity::FontList;

struct FindOptions {
    FontSource source;
    std::optional<std::string> name; // if there is none, the search is by key
    std::string key;
    bool isFuzzy = false;
    bool asJSON = false;
};

ExitStatus find(const FindOptions& options) {
    const FontList fonts = readFontList(options.source);
    const Fonts found = options.name
                            ? FontList::getFontByName(fonts.List(), *options.name, options.isFuzzy)
                            : FontList::getFontByKey(fonts.List(), options.key, options.isFuzzy);
    printFonts(found, options.asJSON);
    return found.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addFind(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "find",
                    .description = "Find fonts by --name or --key",
                    .example = "velmo find font-list.json --key étude --fuzzy"},
                   &find);
    addFile(command, options.source);
    CLI::Option_group& text = *command.add_option_group("text", "Search text");
    text.set_help_flag(); // the command has one
    text.add_option("--name", options.name, "Product name, case-sensitive without --fuzzy")
        ->type_name("TEXT");
    text.add_option("--key", options.key,
                    "Product name, product set name or file name; with --fuzzy also display name")
        ->type_name("TEXT");
    text.require_option(1);
    command.add_flag("--fuzzy", options.isFuzzy, "Find names that contain the text, ignoring case");
}

} // namespace velmo
