#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// A font of the platform at a size: what a client hands to its drawing code. A plain value.
class PlatformFont {
public:
    /// The installed font whose full name, PostScript name or family is the given one (canonically
    /// equivalent, case-sensitive), or none; of a family the regular one. A library built without a
    /// font system knows no installed fonts: there every name gives a font that carries just the
    /// name and the size.
    static std::optional<PlatformFont> named(std::string_view name, double points);

    /// The font of the system's user interface. It has a name in every environment.
    static PlatformFont system(double points);

    /// Full name of an installed font, or family of the system's.
    const std::string& name() const noexcept { return m_name; }

    /// Path of the font's file; empty where the platform gives none.
    const std::string& file() const noexcept { return m_file; }

    /// Size in points.
    double points() const noexcept { return m_points; }

    /// Whether system() made it.
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

} // namespace PerchAppLibrary
