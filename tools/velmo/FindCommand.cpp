#include "Commands.hpp"
#include "FontView.hpp"

#include <CLI/App.hpp>

#include <optional>

namespace velmo {
namespace {

using VelmoCloudEntity::FontList;

struct FindOptions {
    FontSource source;
    std::optional<std::string> name; // or else the key
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
    return found.empty() ? ExitStatus::nothingFound : ExitStatus::done;
}

} // namespace

void addFind(CLI::App& application, Work& work) {
    auto [command, options] =
        addCommand(application, work, "find", "Find fonts by name or key", &find);
    addFile(command, options.source);
    CLI::Option_group& text = *command.add_option_group("text", "What is looked for");
    text.add_option("--name", options.name, "Product name; heeds case")->type_name("TEXT");
    text.add_option(
            "--key", options.key,
            "Product name, product set name or file name; with --fuzzy the display name too")
        ->type_name("TEXT");
    text.require_option(1);
    command.add_flag("--fuzzy", options.isFuzzy,
                     "A part of the name will do, in capital or small letters");
}

} // namespace velmo
