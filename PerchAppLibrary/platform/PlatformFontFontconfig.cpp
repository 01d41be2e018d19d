// Fonts as fontconfig knows them.
#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <PerchAppLibrary/platform/Text.hpp>

#include <fontconfig/fontconfig.h>

#include <memory>

namespace PerchAppLibrary {
namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using ObjectSet = std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)>;

const FcChar8* fcText(const std::string& text) { return reinterpret_cast<const FcChar8*>(text.c_str()); }

/// The value of a property of the pattern at an index; null behind the last one.
const char* valueAt(const FcPattern* pattern, const char* property, int index) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, property, index, &value) != FcResultMatch)
        return nullptr;
    return reinterpret_cast<const char*>(value);
}

std::string firstValue(const FcPattern* pattern, const char* property) {
    const char* const value = valueAt(pattern, property, 0);
    return value == nullptr ? std::string() : std::string(value);
}

/// Fonts carry a name in several languages; any of them counts.
bool hasName(const FcPattern* pattern, const char* property, std::string_view name) {
    for (int index = 0; const char* value = valueAt(pattern, property, index); ++index)
        if (text::equal(value, name))
            return true;
    return false;
}

FontSet fontsWith(const char* property, const std::string& name) {
    const Pattern pattern(FcPatternCreate(), &FcPatternDestroy);
    FcPatternAddString(pattern.get(), property, fcText(name));
    const ObjectSet wanted(FcObjectSetBuild(FC_FAMILY, FC_FULLNAME, FC_POSTSCRIPT_NAME, FC_FILE, nullptr),
                           &FcObjectSetDestroy);
    return {FcFontList(nullptr, pattern.get(), wanted.get()), &FcFontSetDestroy};
}

} // namespace

std::optional<PlatformFont> PlatformFont::named(std::string_view name, double points) {
    const std::string sought = text::wellFormed(name);
    if (sought.empty() || sought.find('\0') != std::string::npos)
        return std::nullopt;
    for (const char* const property : {FC_FULLNAME, FC_POSTSCRIPT_NAME, FC_FAMILY}) {
        const FontSet fonts = fontsWith(property, sought);
        for (int index = 0; fonts && index < fonts->nfont; ++index) {
            const FcPattern* const font = fonts->fonts[index];
            // The list takes names that differ in case or blanks as well.
            if (!hasName(font, property, sought))
                continue;
            const std::string fullName = firstValue(font, FC_FULLNAME);
            return PlatformFont(fullName.empty() ? sought : fullName, firstValue(font, FC_FILE),
                                points, false);
        }
    }
    return std::nullopt;
}

PlatformFont PlatformFont::system(double points) {
    const Pattern pattern(FcPatternCreate(), &FcPatternDestroy);
    for (const char* const family : {"system-ui", "sans-serif"})
        FcPatternAddString(pattern.get(), FC_FAMILY, fcText(family));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, pattern.get(), &result), &FcPatternDestroy);
    std::string family = match ? firstValue(match.get(), FC_FAMILY) : std::string();
    std::string file = match ? firstValue(match.get(), FC_FILE) : std::string();
    return {family.empty() ? "system-ui" : std::move(family), std::move(file), points, true};
}

} // namespace PerchAppLibrary
