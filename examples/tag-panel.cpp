// A panel of tags: ticks the tags that are named, and lists the fonts that pass.
//
//     $ tag-panel display handwriting latin-ext khmer
//     Classification, any: [display] [handwriting]
//     Script, all: [latin-ext] [khmer]
//     1 of 361 fonts:
//         Konkhmer Sleokchher
//     $ tag-panel blackletter
//     There is no tag "blackletter".
//     [2]
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <fstream>
#include <iostream>
#include <stdexcept>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

/// Reads a saved reply. Throws std::runtime_error, which names the file, if it cannot be read or is
/// not JSON.
JSON readReply(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    try {
        return JSON::parse(std::move(text));
    } catch (const JSON::ParseError& error) {
        throw std::runtime_error(path + ", " + error.what());
    }
}

/// Ticks the tag with this name. Throws std::runtime_error if there is none.
void tick(const FontTagList& tags, const std::string& name) {
    const auto named =
        leavesWhere(tags.List(), [&name](const FontTagItem& tag) { return tag.Name() == name; });
    if (named.empty())
        throw std::runtime_error("There is no tag \"" + name + "\".");
    for (const auto& tag : named)
        tag->setIsChecked(true);
}

/// Prints the ticked tags of each group, and how the group combines them.
void printTicks(const FontTagList& tags) {
    for (const auto& group : tags) {
        const auto ticked = FontTagList::getCheckedFontTagList({group});
        if (ticked.empty())
            continue;
        std::cout << group->Alias() << (group->SubTagFilterType() == "And" ? ", all:" : ", any:");
        for (const auto& tag : ticked)
            std::cout << " [" << tag->Name() << ']';
        std::cout << '\n';
    }
}

int main(int count, char** arguments) try {
    const FontTagList tags(readReply("samples/font-tags.json"));
    const FontList fonts(readReply("samples/font-list.json"));
    for (int i = 1; i < count; ++i)
        tick(tags, arguments[i]);
    printTicks(tags);

    // A font that the user has uploaded has no tags, and its Id may be that of another font.
    const auto catalogue =
        leavesWhere(fonts.List(), [](const FontItem& font) { return !font.IsPrivate(); });
    std::vector<std::int64_t> ids;
    for (const auto& font : catalogue)
        ids.push_back(font->Id());
    const auto passed = FontTagList::getCheckedFontTagFontIdList(tags.List(), ids);
    const auto left = FontList::getFontById(catalogue, passed);
    std::cout << left.size() << " of " << ids.size() << " fonts:\n";
    for (const auto& font : left)
        std::cout << "    " << font->DisplayName() << '\n';
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
}
