// A search box: first the fonts with the whole key in a name, then those with only one of its
// characters. The found part is marked.
//
//     $ search-box 宋体
//     [宋体] 标准
//     1 font with the whole key
//     黑[体] Medium
//     楷[体]
//     仿[宋]
//     3 more with one of its characters
//     $ search-box STRASSE | head -n 2
//     Ünïcödé [Straße]
//     1 font with the whole key
#include <VelmoCloudEntity/font/FontList.hpp>
#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/text/Needle.hpp>

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <unordered_set>

using namespace VelmoCloudEntity;
using PerchAppLibrary::text::Needle;

/// Returns the first name of the font that contains a needle, with the found part in brackets. It
/// follows the name on screen if it is another one, such as the name of the file.
std::string markedName(const FontItem& font, const std::vector<Needle>& needles) {
    std::string shown = font.DisplayName();
    for (const Needle& needle : needles)
        for (std::string name : {shown, font.ProductSetName(), font.ProductFileName()})
            if (const auto part = needle.partOf(name)) {
                const bool isShown = name == shown;
                name.insert(part->end, "]").insert(part->begin, "[");
                return isShown ? name : shown + " (" + name + ')';
            }
    return shown;
}

/// Finds a key and prints the results. A search box does this at every key press.
void search(const FontList& fonts, const std::string& key) {
    const auto [whole, character] = FontList::getSearchResultFont(fonts.List(), key);
    std::vector<Needle> needles;
    needles.emplace_back(key);
    for (const auto& font : whole)
        std::cout << markedName(*font, needles) << '\n';
    std::cout << whole.size() << (whole.size() == 1 ? " font" : " fonts")
              << " with the whole key\n";

    needles.clear();
    for (const std::string_view letter : searchedCharacters(key))
        needles.emplace_back(letter);
    const std::unordered_set shown(whole.begin(), whole.end()); // most are in both lists
    std::size_t more = 0;
    for (const auto& font : character)
        if (!shown.contains(font)) {
            std::cout << markedName(*font, needles) << '\n';
            ++more;
        }
    std::cout << more << " more with one of its characters\n";
}

int main(int count, char** arguments) try {
    const std::string key = count > 1 ? arguments[1] : "";
    std::ifstream file("samples/font-list.json", std::ios::binary);
    if (!file)
        throw std::runtime_error("samples/font-list.json: cannot be read");
    search(FontList::parse(std::string(std::istreambuf_iterator<char>(file), {})), key);
} catch (const std::exception& error) { // JSON::ParseError, too
    std::cerr << error.what() << '\n';
    return 1;
}
