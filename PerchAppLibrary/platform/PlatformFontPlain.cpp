// Fonts for a build without a font system. They hold the given name and size.
#include <PerchAppLibrary/platform/PlatformFont.hpp>

namespace PerchAppLibrary {

std::optional<PlatformFont> PlatformFont::named(std::string_view name, double points) {
    return PlatformFont(std::string(name), {}, points, false);
}

PlatformFont PlatformFont::system(double points) { return {"system-ui", {}, points, true}; }

} // namespace PerchAppLibrary
