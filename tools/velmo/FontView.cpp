#include "FontView.hpp"

#include "Commands.hpp"
#include "Document.hpp"
#include "Table.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/account/UserFontMap.hpp>

#include <CLI/App.hpp>

#include <utility>

namespace velmo {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::ValueArray;
using VelmoCloudEntity::FontList;
using VelmoCloudEntity::UserFontMap;

Dictionary describe(const FontItem& font) {
    Dictionary description;
    for (const char* const name : {"Id", "ProductName", "IsGroup", "DisplayName", "TreeNodeTitle",
                                   "IsActivated", "IsFavorited", "IsAuthed"})
        description.emplace(name, font.value(name));
    return description;
}

ValueArray describe(const Fonts& fonts) {
    ValueArray descriptions;
    for (const auto& font : fonts)
        descriptions.push_back(describe(*font));
    return descriptions;
}

std::string marksOf(const FontItem& font) {
    std::string marks;
    for (const auto& [isMarked, mark] :
         {std::pair(font.IsActivated(), "activated"), std::pair(font.IsFavorited(), "favorite"),
          std::pair(font.IsAuthed(), "authorized")})
        if (isMarked)
            marks.append(marks.empty() ? "" : " ").append(mark);
    return marks;
}

std::string countOfFonts(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " font" : " fonts");
}

void addFile(CLI::App& command, FontSource& source) {
    addFileName(command, "FILE", source.file, "Font list")->required();
    addForce(command, source.isForced);
}

void addMarks(CLI::App& command, FontSource& source) {
    addFileName(command, "--activate", source.activateMap,
                "Activate the fonts of this user-font map first");
    addFileName(command, "--favorite", source.favoriteMap,
                "Mark the fonts of this user-font map as favorites first");
}

FontList readFontList(const FontSource& source) {
    const auto readMap = [&source](const std::string& file, const std::string& type) {
        return readAs(file, recordType(type), source.isForced,
                      [](const JSON& json) { return UserFontMap::create(json)->FontList(); });
    };
    FontList fonts = readAs(source.file, recordType("FontList"), source.isForced,
                            [](const JSON& json) { return FontList(json); });
    if (!source.activateMap.empty())
        FontList::setActivatedFont(fonts.List(),
                                   readMap(source.activateMap, "UserFontActivateMapItem"));
    if (!source.favoriteMap.empty())
        FontList::setFavoritedFont(fonts.List(),
                                   readMap(source.favoriteMap, "UserFontFavoriteMapItem"));
    return fonts;
}

void addIdsOfGroups(std::unordered_set<std::int64_t>& ids, const Fonts& fonts) {
    for (const auto& font : fonts)
        if (font->IsGroup()) {
            ids.insert(font->Id());
            addIdsOfGroups(ids, font->Children());
        }
}

void printFonts(const Fonts& fonts, bool asJSON) {
    if (asJSON) {
        printJSON(describe(fonts));
        return;
    }
    Table table({{"ID", Table::Align::right},
                 {"NAME", Table::Align::left, Table::Narrow::cut},
                 {"FORMAT", Table::Align::left, Table::Narrow::drop},
                 {"VERSION", Table::Align::left, Table::Narrow::drop},
                 {"MARKS"}});
    for (const auto& font : fonts)
        table.add({std::to_string(font->Id()), font->DisplayName(), font->Format(), font->Version(),
                   marksOf(*font)});
    if (!fonts.empty())
        table.print();
    print(countOfFonts(static_cast<std::int64_t>(fonts.size())) + "\n");
}

} // namespace velmo
