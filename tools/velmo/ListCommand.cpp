#include "Commands.hpp"
#include "FontView.hpp"

#include <CLI/App.hpp>

#include <map>

namespace velmo {
namespace {

using VelmoCloudEntity::FontList;

struct ListOptions {
    std::string state;
    FontSource source;
    bool asJSON = false;
};

using Filter = Fonts (*)(const Fonts&);

const std::map<std::string, Filter>& filters() {
    static const std::map<std::string, Filter> byState{
        {"activated", &FontList::getActivatedFont},
        {"favorited", &FontList::getFavoritedFont},
        {"authorized", &FontList::getAuthorizedFont}};
    return byState;
}

ExitStatus list(const ListOptions& options) {
    const FontList fonts = readFontList(options.source);
    const Fonts found = filters().at(options.state)(fonts.List());
    printFonts(found, options.asJSON);
    return found.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addList(CLI::App& application, Action& selected) {
    auto [command, options] = addCommand(
        application, selected,
        {.name = "list",
         .description = "List the activated, favorited or authorized fonts",
         .example = "velmo list favorited font-list.json --favorite favorite-fonts.json"},
        &list);
    std::vector<std::string> states;
    for (const auto& [state, filter] : filters())
        states.push_back(state);
    addChoice(command, "STATE", options.state, states, "activated, favorited or authorized")
        ->required();
    addFile(command, options.source);
    addMarks(command, options.source);
}

} // namespace velmo
