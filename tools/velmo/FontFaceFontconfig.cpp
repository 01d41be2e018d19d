// Fonts that fontconfig describes.
#include "FontFace.hpp"

#include <fontconfig/fontconfig.h>

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace velmo {
namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using ObjectSet = std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)>;

/// Throws std::bad_alloc if a function of fontconfig that only allocates has failed.
template <class Result>
Result* allocated(Result* result) {
    if (result == nullptr)
        throw std::bad_alloc();
    return result;
}

/// Returns the text of a property at an index. Empty if the pattern has none there.
std::string_view textAt(const FcPattern* pattern, const char* property, int index) {
    FcChar8* text = nullptr;
    const FcResult result = FcPatternGetString(pattern, property, index, &text);
    return result == FcResultMatch ? reinterpret_cast<const char*>(text) : std::string_view();
}

std::string firstText(const FcPattern* pattern, const char* property) {
    return std::string(textAt(pattern, property, 0));
}

/// Returns the English text of a property that has several languages, or else the first. Fontconfig
/// orders them by the languages of the user.
std::string englishText(const FcPattern* pattern, const char* property, const char* languages) {
    int index = 0;
    while (!textAt(pattern, languages, index).empty() &&
           !textAt(pattern, languages, index).starts_with("en"))
        ++index;
    const std::string_view text = textAt(pattern, property, index);
    return text.empty() ? firstText(pattern, property) : std::string(text);
}

std::string formatOf(const FcPattern* pattern) {
    std::string format = firstText(pattern, FC_FONTFORMAT);
    for (const auto& [name, extension] : {std::pair("TrueType", "TTF"), std::pair("CFF", "OTF")})
        if (format == name)
            format = extension;
    return format;
}

/// Returns the version, which fontconfig has in units of 1/65536, such as "2.37" or "1.001".
std::string versionOf(const FcPattern* pattern) {
    int version = 0;
    FcPatternGetInteger(pattern, FC_FONTVERSION, 0, &version);
    std::string text = fmt::format("{:.3f}", version / 65536.0);
    if (text.ends_with('0'))
        text.pop_back();
    return text;
}

/// Returns whether the pattern stands for all instances of a variable font, which have patterns of
/// their own.
bool isVariable(const FcPattern* pattern) {
    FcBool variable = FcFalse;
    FcPatternGetBool(pattern, FC_VARIABLE, 0, &variable);
    return variable != FcFalse;
}

/// Returns the full name. The instances of a variable font have only that of their family, which
/// gets the name of their style.
std::string fullNameOf(const FcPattern* pattern, const std::string& family) {
    const std::string name = englishText(pattern, FC_FULLNAME, FC_FULLNAMELANG);
    const std::string style = englishText(pattern, FC_STYLE, FC_STYLELANG);
    constexpr std::string_view plain[] = {"", "Regular", "Book", "Normal", "Roman"};
    const bool isPlain = std::ranges::find(plain, style) != std::end(plain);
    const bool isOfFamily = name.empty() || name == family;
    return isOfFamily ? family + (isPlain ? "" : " " + style) : name;
}

FontFace faceOf(const FcPattern* pattern) {
    const std::string family = englishText(pattern, FC_FAMILY, FC_FAMILYLANG);
    return {family,
            fullNameOf(pattern, family),
            firstText(pattern, FC_POSTSCRIPT_NAME),
            formatOf(pattern),
            versionOf(pattern),
            firstText(pattern, FC_FILE)};
}

std::vector<FontFace> facesOf(const FcFontSet& fonts) {
    std::vector<FontFace> faces;
    for (int index = 0; index < fonts.nfont; ++index)
        if (!isVariable(fonts.fonts[index]))
            faces.push_back(faceOf(fonts.fonts[index]));
    return faces;
}

} // namespace

std::vector<FontFace> installedFaces() {
    const Pattern any(allocated(FcPatternCreate()), &FcPatternDestroy);
    const ObjectSet wanted(
        allocated(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_FULLNAME, FC_FULLNAMELANG, FC_STYLE,
                                   FC_STYLELANG, FC_POSTSCRIPT_NAME, FC_FONTFORMAT, FC_FONTVERSION,
                                   FC_FILE, FC_INDEX, FC_VARIABLE, nullptr)),
        &FcObjectSetDestroy);
    const FontSet fonts(allocated(FcFontList(nullptr, any.get(), wanted.get())), &FcFontSetDestroy);
    return facesOf(*fonts);
}

std::vector<FontFace> facesIn(const std::string& file) {
    const FontSet fonts(allocated(FcFontSetCreate()), &FcFontSetDestroy);
    constexpr auto all = static_cast<unsigned int>(-1); // fonts in the file
    FcFreeTypeQueryAll(reinterpret_cast<const FcChar8*>(file.c_str()), all, nullptr, nullptr,
                       fonts.get());
    return facesOf(*fonts);
}

} // namespace velmo
