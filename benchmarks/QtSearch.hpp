#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The search that a developer would write with Qt: QString::contains() with Qt::CaseInsensitive
/// over the four names of each font. The constructor converts the names.
class QtSearch {
public:
    using Visitor = std::function<void(std::int64_t id, const std::array<std::string, 4>& names)>;

    /// Requires that `forEachFont(visit)` calls `visit(id, names)` for each font.
    explicit QtSearch(const std::function<void(const Visitor&)>& forEachFont);
    ~QtSearch();

    /// Returns the identifiers of the fonts whose first name contains the key.
    std::vector<std::int64_t> fontsByName(const std::string& key) const;

    /// Returns the identifiers of the fonts with a name that contains the key.
    std::vector<std::int64_t> fontsByKey(const std::string& key) const;

private:
    struct Font;
    std::vector<Font> m_fonts;
};
