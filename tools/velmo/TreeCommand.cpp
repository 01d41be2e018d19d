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

/// Numbers of leaf fonts.
struct Counts {
    std::int64_t fonts = 0;
    std::int64_t activated = 0;
};

/// Returns the numbers in the list. Appends those in each group, in the order of the tree.
Counts countFonts(const Fonts& fonts, std::vector<Counts>& groups) {
    Counts sum;
    for (const auto& font : fonts) {
        Counts counts{1, font->IsActivated() ? 1 : 0};
        if (font->IsGroup()) {
            const std::size_t index = groups.size();
            groups.emplace_back();
            counts = groups[index] = countFonts(font->Children(), groups);
        }
        sum.fonts += counts.fonts;
        sum.activated += counts.activated;
    }
    return sum;
}

/// Adds the rows of the list. `group` is the numbers in its first group, and moves past its groups.
void addRows(Table& table, const Fonts& fonts, const Counts*& group, std::size_t depth) {
    for (const auto& font : fonts) {
        const std::string title = indent(depth) + font->TreeNodeTitle();
        const std::string id = std::to_string(font->Id());
        if (!font->IsGroup()) {
            table.add({title, id, "", marksOf(*font)});
            continue;
        }
        const auto [count, activated] = *group++;
        const std::string marks = activated == 0 ? "" : std::to_string(activated) + " activated";
        table.add({title, id, std::to_string(count), marks}, true);
        addRows(table, font->Children(), group, depth + 1);
    }
}

ExitStatus showTree(const TreeOptions& options) {
    const FontList list = readFontList(options.source);
    if (options.asJSON) {
        printJSON(describeTree(list.List()));
        return ExitStatus::success;
    }
    std::vector<Counts> groups;
    const Counts all = countFonts(list.List(), groups);
    Table table({{"TITLE", Table::Align::left, Table::Narrow::cut},
                 {"ID", Table::Align::right},
                 {"FONTS", Table::Align::right},
                 {"MARKS"}});
    const Counts* group = groups.data();
    addRows(table, list.List(), group, 0);
    table.print();
    print(countOfFonts(all.fonts) + ", " + std::to_string(all.activated) + " activated\n");
    return ExitStatus::success;
}

} // namespace

void addTree(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "tree",
                    .description = "Show the font tree: titles, counts, marks",
                    .example = "velmo tree font-list.json --activate activated-fonts.json",
                    .statusOne = ""},
                   &showTree);
    addFile(command, options.source);
    addMarks(command, options.source);
}

} // namespace velmo
