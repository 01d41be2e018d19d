// From saved replies to the font tree on screen, with the fonts marked that the user has activated
// or likes. A program that talks to the service passes the body of the reply to JSON::parse().
//
//     $ reply-to-screen | head -n 9
//     ABeeZee (2)
//         ABeeZee Italic(TTF, 22.00)
//         ABeeZee(TTF, 22.00)
//     Amethysta(TTF, 16.00)
//     Anuphan (7)
//         Anuphan Thin(TTF, 3.00)
//         Anuphan ExtraLight(TTF, 3.00)
//         Anuphan Light(TTF, 3.00) [activated]
//         Anuphan(TTF, 3.00) [favourite]
//     $ reply-to-screen samples/missing.json
//     samples/missing.json: cannot be read
//     [1]
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
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

/// Prints a line for each group and font, and below a group its members.
void print(const Records<FontItem>& fonts, const std::string& indent = "") {
    for (const auto& font : fonts) {
        std::cout << indent << (font->IsGroup() ? font->DisplayName() : font->TreeNodeTitle())
                  << (font->IsActivated() ? " [activated]" : "")
                  << (font->IsFavorited() ? " [favourite]" : "") << '\n';
        if (font->IsGroup())
            print(font->Children(), indent + "    ");
    }
}

int main(int count, char** arguments) try {
    const FontList fonts(readReply(count > 1 ? arguments[1] : "samples/font-list.json"));
    const auto activated =
        UserFontActivateMapItem::create(readReply("samples/activated-fonts.json"));
    const auto favourites =
        UserFontFavoriteMapItem::create(readReply("samples/favorite-fonts.json"));
    FontList::setActivatedFont(fonts.List(), activated->FontList());
    FontList::setFavoritedFont(fonts.List(), favourites->FontList());

    print(fonts.List());
    std::cout << FontList::getFontCount(fonts.List()) << " fonts, "
              << FontList::getActivatedFontCount(fonts.List()) << " activated\n";
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
