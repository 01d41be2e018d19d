// Fonts that fontconfig describes.
#include "FontFace.hpp"

#include <fontconfig/fontconfig.h>

#include <fmt/format.h>

#include <memory>
#include <new>
#include <string_view>

namespace velmo {
namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using ObjectSet = std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)>;

/// Returns the text of a property at an index, or null behind the last one.
const char* textAt(const FcPattern* pattern, const char* property, int index) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, property, index, &text) != FcResultMatch)
        return nullptr;
    return reinterpret_cast<const char*>(text);
}

std::string firstText(const FcPattern* pattern, const char* property) {
    const char* const text = textAt(pattern, property, 0);
    return text == nullptr ? "" : text;
}

/// Returns the English text of a property that has several languages, or else the first. The order
/// of the languages depends on those of the user.
std::string englishText(const FcPattern* pattern, const char* property, const char* languages) {
    for (int index = 0; const char* const language = textAt(pattern, languages, index); ++index)
        if (std::string_view(language).starts_with("en"))
            if (const char* const text = textAt(pattern, property, index))
                return text;
    return firstText(pattern, property);
}

std::string formatOf(const FcPattern* pattern) {
    const std::string format = firstText(pattern, FC_FONTFORMAT);
    if (format == "TrueType")
        return "TTF";
    return format == "CFF" ? "OTF" : format;
}

/// Returns the version, which fontconfig has in units of 1/65536, such as "2.37" or "1.001".
std::string versionOf(const FcPattern* pattern) {
    int version = 0;
    if (FcPatternGetInteger(pattern, FC_FONTVERSION, 0, &version) != FcResultMatch)
        return "";
    std::string text = fmt::format("{:.3f}", version / 65536.0);
    if (text.ends_with('0'))
        text.pop_back();
    return text;
}

/// Returns whether the pattern stands for all instances of a variable font, which have patterns of
/// their own.
bool isVariable(const FcPattern* pattern) {
    FcBool variable = FcFalse;
    return FcPatternGetBool(pattern, FC_VARIABLE, 0, &variable) == FcResultMatch &&
           variable != FcFalse;
}

std::vector<FontFace> facesOf(const FcFontSet& fonts) {
    std::vector<FontFace> faces;
    for (int index = 0; index < fonts.nfont; ++index) {
        const FcPattern* const pattern = fonts.fonts[index];
        if (isVariable(pattern))
            continue;
        FontFace face{englishText(pattern, FC_FAMILY, FC_FAMILYLANG),
                      englishText(pattern, FC_FULLNAME, FC_FULLNAMELANG),
                      firstText(pattern, FC_POSTSCRIPT_NAME),
                      formatOf(pattern),
                      versionOf(pattern),
                      firstText(pattern, FC_FILE)};
        if (face.fullName.empty())
            face.fullName = face.family;
        faces.push_back(std::move(face));
    }
    return faces;
}

} // namespace

std::vector<FontFace> installedFaces() {
    const Pattern any(FcPatternCreate(), &FcPatternDestroy);
    const ObjectSet wanted(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_FULLNAME, FC_FULLNAMELANG,
                                            FC_POSTSCRIPT_NAME, FC_FONTFORMAT, FC_FONTVERSION,
                                            FC_FILE, FC_INDEX, FC_VARIABLE, nullptr),
                           &FcObjectSetDestroy);
    if (!any || !wanted)
        throw std::bad_alloc();
    const FontSet fonts(FcFontList(nullptr, any.get(), wanted.get()), &FcFontSetDestroy);
    return fonts ? facesOf(*fonts) : std::vector<FontFace>();
}

std::vector<FontFace> facesIn(const std::string& file) {
    const FontSet fonts(FcFontSetCreate(), &FcFontSetDestroy);
    if (!fonts)
        throw std::bad_alloc();
    constexpr unsigned int all = static_cast<unsigned int>(-1); // fonts in the file
    FcFreeTypeQueryAll(reinterpret_cast<const FcChar8*>(file.c_str()), all, nullptr, nullptr,
                       fonts.get());
    return facesOf(*fonts);
}

} // namespace velmo
