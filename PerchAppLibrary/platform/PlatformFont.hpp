#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// A font of the platform at a size, for the client's drawing code. A value that owns its texts.
///
/// If memory runs out in fontconfig, which finds the fonts, the process may crash: fontconfig does
/// not check all of its allocations.
class PlatformFont {
public:
    /// Returns the installed font with this full name, PostScript name or family, or nullopt if
    /// there is none. A name of more than 1024 bytes is not looked up. Names compare by canonical
    /// equivalence (UAX #15), case included. For a family, returns its regular font. In a library
    /// built without a font system, returns a font of this name and size for every name.
    static std::optional<PlatformFont> named(std::string_view name, double points);

    /// Returns the font of the system's user interface. Its name is never empty.
    static PlatformFont system(double points);

    /// Returns the full name of an installed font, or the family of the system's font.
    const std::string& name() const noexcept { return m_name; }

    /// Returns the path of the font's file, or an empty text if the platform gives none.
    const std::string& file() const noexcept { return m_file; }

    /// Returns the size in points.
    double points() const noexcept { return m_points; }

    /// Returns whether system() made the font.
    bool isSystem() const noexcept { return m_isSystem; }

private:
    PlatformFont(std::string name, std::string file, double points, bool isSystem)
        : m_name(std::move(name)),
          m_file(std::move(file)),
          m_points(points),
          m_isSystem(isSystem) {}

    std::string m_name;
    std::string m_file;
    double m_points;
    bool m_isSystem;
};

/// @cond what toValue() uses
/// Sets a value of a Dictionary to {"name", "size"} of the font.
void assign(Value& target, const PlatformFont& font);
/// @endcond

} // namespace PerchAppLibrary
