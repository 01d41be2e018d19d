#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace velmo {

using VelmoCloudEntity::FontItem;
using Fonts = VelmoCloudEntity::Records<FontItem>;

/// What every command says of a font in its JSON.
PerchAppLibrary::Dictionary describe(const FontItem& font);

/// The JSON of several fonts: an array in their order.
PerchAppLibrary::ValueArray describe(const Fonts& fonts);

/// The font's marks for people: "activated favorite authorized".
std::string marksOf(const FontItem& font);

/// "1 font", "5 fonts".
std::string countOfFonts(std::int64_t count);

/// A font list in a file, and the user-font maps in files that mark it first.
struct FontSource {
    std::string file;
    std::string activateMap;
    std::string favoriteMap;
};

/// Adds the argument FILE to the command.
void addFile(CLI::App& command, FontSource& source);

/// Adds the options --activate and --favorite to the command.
void addMarks(CLI::App& command, FontSource& source);

/// The marked font list. Throws Failure as readDocument() does.
VelmoCloudEntity::FontList readFontList(const FontSource& source);

/// Prints the fonts of a result: as an array with `asJSON`, otherwise as a table.
void printFonts(const Fonts& fonts, bool asJSON);

} // namespace velmo
