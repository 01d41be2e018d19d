// Fonts that fontconfig lists.
#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <fontconfig/fontconfig.h>

#include <initializer_list>
#include <memory>
#include <new>

namespace PerchAppLibrary {
namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using ObjectSet = std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)>;

/// Throws std::bad_alloc if a function of fontconfig that only allocates has failed.
template <class Result>
Result allocated(Result result) {
    if (!result)
        throw std::bad_alloc();
    return result;
}

Pattern makePattern() { return {allocated(FcPatternCreate()), &FcPatternDestroy}; }

const FcChar8* fcText(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

/// Returns the value of a property of the pattern at an index, or null behind the last value.
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

/// Returns whether one of the font's names, which it has in several languages, is this one.
bool hasName(const FcPattern* pattern, const char* property, std::string_view name) {
    const text::ComparedText sought(name, text::Case::sensitive);
    for (int index = 0; const char* value = valueAt(pattern, property, index); ++index)
        if (text::ComparedText(value, text::Case::sensitive) == sought)
            return true;
    return false;
}

FontSet fontsWith(const char* property, const std::string& name) {
    const Pattern pattern = makePattern();
    allocated(FcPatternAddString(pattern.get(), property, fcText(name)));
    const ObjectSet wanted(
        allocated(FcObjectSetBuild(FC_FAMILY, FC_FULLNAME, FC_POSTSCRIPT_NAME, FC_FILE, nullptr)),
        &FcObjectSetDestroy);
    return {allocated(FcFontList(nullptr, pattern.get(), wanted.get())), &FcFontSetDestroy};
}

/// Returns the regular font that the system draws with for these families, the preferred one first.
Pattern bestMatch(std::initializer_list<const char*> families) {
    const Pattern pattern = makePattern();
    for (const char* const family : families)
        allocated(
            FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family)));
    allocated(FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern));
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    return {FcFontMatch(nullptr, pattern.get(), &result), &FcPatternDestroy};
}

/// Calls `use(font)` with the installed font of this name in this spelling. Returns false if there
/// is none.
template <class Use>
bool findFont(const std::string& name, Use&& use) {
    for (const char* const property : {FC_FULLNAME, FC_POSTSCRIPT_NAME}) {
        const FontSet fonts = fontsWith(property, name);
        for (int index = 0; index < fonts->nfont; ++index)
            // fontconfig also lists names that differ in case or blanks.
            if (hasName(fonts->fonts[index], property, name)) {
                use(fonts->fonts[index]);
                return true;
            }
    }
    const Pattern ofFamily = bestMatch({name.c_str()});
    const bool isOfFamily = ofFamily && hasName(ofFamily.get(), FC_FAMILY, name);
    if (isOfFamily)
        use(ofFamily.get());
    return isOfFamily;
}

} // namespace

std::optional<PlatformFont> PlatformFont::named(std::string_view name, double points) {
    // Longer than any name of a font file. fontconfig takes quadratic time in the length.
    constexpr std::size_t maximumLength = 1024;
    if (name.empty() || name.size() > maximumLength || name.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::optional<PlatformFont> found;
    // fontconfig compares bytes, so each equivalent spelling is looked up.
    for (const std::string& spelling :
         {text::wellFormed(name), text::composed(name), text::decomposed(name)}) {
        const auto take = [&](const FcPattern* font) {
            const std::string fullName = firstValue(font, FC_FULLNAME);
            found = PlatformFont(fullName.empty() ? spelling : fullName, firstValue(font, FC_FILE),
                                 points, false);
        };
        if (findFont(spelling, take))
            break;
    }
    return found;
}

PlatformFont PlatformFont::system(double points) {
    const Pattern match = bestMatch({"system-ui", "sans-serif"});
    std::string family = match ? firstValue(match.get(), FC_FAMILY) : std::string();
    std::string file = match ? firstValue(match.get(), FC_FILE) : std::string();
    return {family.empty() ? "system-ui" : std::move(family), std::move(file), points, true};
}

} // namespace PerchAppLibrary
