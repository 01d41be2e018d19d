#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Table.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <CLI/App.hpp>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toValue;
using PerchAppLibrary::ValueArray;
using VelmoCloudEntity::FontTagItem;
using VelmoCloudEntity::FontTagList;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

struct TagsOptions {
    std::string file;
    bool isForced = false;
    bool asJSON = false;
};

ValueArray describeTags(const Tags& tags) {
    ValueArray items;
    for (const auto& tag : tags) {
        Dictionary item{{"Id", tag->Id()},
                        {"Name", toValue(tag->Name())},
                        {"IsGroup", tag->IsGroup()},
                        {"FontCount", tag->FontIdList().size()}};
        if (tag->IsGroup())
            item.emplace("Children", describeTags(tag->Children()));
        items.push_back(std::move(item));
    }
    return items;
}

/// Adds the rows of the tags. Returns the number of plain tags.
std::size_t addRows(Table& table, const Tags& tags, std::size_t depth) {
    std::size_t count = 0;
    for (const auto& tag : tags) {
        const bool isGroup = tag->IsGroup();
        table.add({indent(depth) + tag->Name(), std::to_string(tag->Id()),
                   isGroup ? "" : std::to_string(tag->FontIdList().size()),
                   isGroup ? tag->SubTagFilterType() : ""},
                  isGroup);
        count += isGroup ? addRows(table, tag->Children(), depth + 1) : 1;
    }
    return count;
}

ExitStatus showTags(const TagsOptions& options) {
    const auto tags = readAs(options.file, recordType("FontTagList"), options.isForced,
                             [](const JSON& json) { return FontTagList(json); });
    if (options.asJSON) {
        printJSON(describeTags(tags.List()));
        return ExitStatus::success;
    }
    Table table({{"NAME", Table::Align::left, Table::Narrow::cut},
                 {"ID", Table::Align::right},
                 {"FONTS", Table::Align::right},
                 {"COMBINED BY"}});
    const std::size_t count = addRows(table, tags.List(), 0);
    table.print();
    print(std::to_string(count) + (count == 1 ? " tag\n" : " tags\n"));
    return ExitStatus::success;
}

} // namespace

void addTags(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "tags",
                    .description = "Show the tags of a list with the numbers of their fonts",
                    .example = "velmo tags font-tags.json",
                    .statusOne = ""},
                   &showTags);
    addFileName(command, "FILE", options.file, "Font tag list")->required();
    addForce(command, options.isForced);
}

} // namespace velmo
