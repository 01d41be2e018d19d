#pragma once

#include <string>
#include <vector>

namespace velmo {

/// A font in a file, as fontconfig describes it. A file can hold several.
struct FontFace {
    std::string family;
    std::string fullName;
    std::string postscriptName;
    std::string format;  ///< as in lists of the service: "TTF", "OTF"
    std::string version; ///< with two or three decimals
    std::string file;    ///< the path

    auto operator<=>(const FontFace&) const = default;
};

/// Returns the fonts that are installed on this machine, in any order. Throws Failure if this
/// program was built without fontconfig.
std::vector<FontFace> installedFaces();

/// Returns the fonts in the file, in any order. Empty if it is damaged or no font. Throws Failure
/// like installedFaces().
std::vector<FontFace> facesIn(const std::string& file);

} // namespace velmo
