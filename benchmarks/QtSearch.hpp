#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a developer with Qt would write: the four names of each font as QString, searched with
/// QString::contains() and Qt::CaseInsensitive. The conversion is done before.
class QtSearch {
public:
    using Visitor = std::function<void(std::int64_t id, const std::array<std::string, 4>& names)>;

    /// `forEachFont(visit)` calls `visit(id, names)` for each font.
    explicit QtSearch(const std::function<void(const Visitor&)>& forEachFont);
    ~QtSearch();

    /// The fonts of which the first name has the key in it.
    std::vector<std::int64_t> fontsByName(const std::string& key) const;

    /// The fonts of which any name has.
    std::vector<std::int64_t> fontsByKey(const std::string& key) const;

private:
    struct Font;
    std::vector<Font> m_fonts;
};
