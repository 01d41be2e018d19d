#include "Commands.hpp"
#include "FontView.hpp"
#include "Table.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/text/Needle.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <unordered_set>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::text::Needle;
using VelmoCloudEntity::FontList;

struct SearchOptions {
    FontSource source;
    std::string key;
    bool asJSON = false;
};

std::vector<Needle> keyNeedle(std::string_view key) {
    std::vector<Needle> whole;
    whole.emplace_back(key);
    return whole;
}

std::vector<Needle> characterNeedles(std::string_view key) {
    std::vector<Needle> characters;
    for (const std::string_view character : VelmoCloudEntity::searchedCharacters(key))
        characters.emplace_back(character);
    return characters;
}

/// Adds a row with the first name of the font that contains the first matching needle, and
/// highlights the match. TEXT is empty if that name is the one under NAME.
void addRow(Table& table, const FontItem& font, const std::vector<Needle>& needles) {
    const std::pair<const char*, std::string> names[] = {
        {"ProductName", font.ProductName()},
        {"ProductSetName", font.ProductSetName()},
        {"ProductFileName", font.ProductFileName()},
        {"DisplayName", font.DisplayName()}};
    for (const Needle& needle : needles)
        for (const auto& [property, name] : names)
            if (const auto part = needle.partOf(name)) {
                const Table::Cell found(name, part->begin, part->end);
                const std::string shown = font.DisplayName();
                const bool isShown = name == shown;
                table.add({std::to_string(font.Id()), isShown ? found : shown, property,
                           isShown ? "" : found});
                return;
            }
}

void printTable(const Fonts& fonts, const std::vector<Needle>& needles) {
    Table table({{"ID", Table::Align::right},
                 {"NAME", Table::Align::left, Table::Narrow::cut},
                 {"FOUND IN"},
                 {"TEXT", Table::Align::left, Table::Narrow::cut}});
    for (const auto& font : fonts)
        addRow(table, *font, needles);
    table.print();
}

/// Returns the fonts, in order, that are not among the others.
Fonts without(const Fonts& fonts, const Fonts& others) {
    const std::unordered_set<std::shared_ptr<FontItem>> known(others.begin(), others.end());
    Fonts rest;
    for (const auto& font : fonts)
        if (!known.contains(font))
            rest.push_back(font);
    return rest;
}

void printText(const Fonts& whole, const Fonts& character, const std::string& key) {
    if (!whole.empty())
        printTable(whole, keyNeedle(key));
    print(fmt::format("{} with \"{}\"\n", countOfFonts(std::ssize(whole)), printable(key)));
    const Fonts rest = without(character, whole);
    if (!rest.empty()) {
        print("\n");
        printTable(rest, characterNeedles(key));
    }
    print(fmt::format("{} with one of its characters; {} in all\n", countOfFonts(std::ssize(rest)),
                      whole.size() + rest.size()));
}

ExitStatus search(const SearchOptions& options) {
    const FontList fonts = readFontList(options.source);
    const auto [whole, character] = FontList::getSearchResultFont(fonts.List(), options.key);
    if (options.asJSON) {
        Dictionary result;
        result.emplace("whole", describe(whole));
        result.emplace("character", describe(character));
        printJSON(PerchAppLibrary::toValue(std::move(result)));
    } else {
        printText(whole, character, options.key);
    }
    return whole.empty() && character.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addSearch(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "search",
                    .description = "Search like the client's search box: fonts with the "
                                   "whole key, then fonts with one of its characters",
                    .example = "velmo search font-list.json anuphan"},
                   &search);
    addFile(command, options.source);
    command.add_option("KEY", options.key, "Search key")->required();
}

} // namespace velmo
