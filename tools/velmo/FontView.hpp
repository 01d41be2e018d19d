#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <cstdint>
#include <string>
#include <unordered_set>

namespace CLI {
class App;
} // namespace CLI

namespace velmo {

using VelmoCloudEntity::FontItem;
using Fonts = VelmoCloudEntity::Records<FontItem>;

/// Returns the description of a font in the JSON output of the commands.
PerchAppLibrary::Dictionary describe(const FontItem& font);

/// Returns the descriptions of the fonts, in order.
PerchAppLibrary::ValueArray describe(const Fonts& fonts);

/// Returns the marks of the font for text output, those that apply of "activated favorite
/// authorized".
std::string marksOf(const FontItem& font);

/// Returns the count as text: "1 font", "5 fonts".
std::string countOfFonts(std::int64_t count);

/// The file of a font list, and the files of the user-font maps that mark its fonts. The name of a
/// map that is not given is empty.
struct FontSource {
    std::string file;
    std::string activateMap;
    std::string favoriteMap;
    bool isForced = false; ///< documents of other types are read, too
};

/// Adds the argument FILE and the option --force to the command.
void addFile(CLI::App& command, FontSource& source);

/// Adds the options --activate and --favorite to the command.
void addMarks(CLI::App& command, FontSource& source);

/// Returns the marked font list. Throws Failure if a file cannot be read, or a document is
/// malformed or of another type.
VelmoCloudEntity::FontList readFontList(const FontSource& source);

/// Adds the identifiers of all groups of the tree.
void addIdsOfGroups(std::unordered_set<std::int64_t>& ids, const Fonts& fonts);

/// Prints the fonts: as a JSON array with `asJSON`, otherwise as a table and their number.
void printFonts(const Fonts& fonts, bool asJSON);

} // namespace velmo
