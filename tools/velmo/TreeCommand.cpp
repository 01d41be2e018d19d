#include "Commands.hpp"
#include "FontView.hpp"
#include "Table.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::ValueArray;
using VelmoCloudEntity::FontList;

struct TreeOptions {
    FontSource source;
    bool asJSON = false;
};

ValueArray describeTree(const Fonts& fonts) {
    ValueArray items;
    for (const auto& font : fonts) {
        Dictionary item = describe(*font);
        if (font->IsGroup())
            item.emplace("Children", describeTree(font->Children()));
        items.push_back(std::move(item));
    }
    return items;
}

void addRows(Table& table, const Fonts& fonts, std::size_t depth) {
    for (const auto& font : fonts) {
        const std::string title = indent(depth) + font->TreeNodeTitle();
        const std::string id = std::to_string(font->Id());
        if (!font->IsGroup()) {
            table.add({title, id, "", marksOf(*font)});
            continue;
        }
        const std::int64_t activated = FontList::getActivatedFontCount(font->Children());
        const std::string marks = activated == 0 ? "" : std::to_string(activated) + " activated";
        table.add({title, id, std::to_string(FontList::getFontCount(font->Children())), marks},
                  true);
        addRows(table, font->Children(), depth + 1);
    }
}

ExitStatus showTree(const TreeOptions& options) {
    const FontList list = readFontList(options.source);
    if (options.asJSON) {
        printJSON(describeTree(list.List()));
        return ExitStatus::success;
    }
    Table table(
        {{"TITLE"}, {"ID", Table::Align::right}, {"FONTS", Table::Align::right}, {"MARKS"}});
    addRows(table, list.List(), 0);
    table.print();
    print(countOfFonts(FontList::getFontCount(list.List())) + ", " +
          std::to_string(FontList::getActivatedFontCount(list.List())) + " activated\n");
    return ExitStatus::success;
}

} // namespace

void addTree(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "tree",
                    .description = "Show the font tree: titles, counts, marks",
                    .example = "velmo tree font-list.json --activate activated-fonts.json"},
                   &showTree);
    addFile(command, options.source);
    addMarks(command, options.source);
}

} // namespace velmo
