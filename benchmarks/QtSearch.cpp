#include "QtSearch.hpp"

#include <QString>

#include <algorithm>

struct QtSearch::Font {
    std::int64_t id;
    std::array<QString, 4> names;
};

QtSearch::QtSearch(const std::function<void(const Visitor&)>& forEachFont) {
    forEachFont([this](std::int64_t id, const std::array<std::string, 4>& names) {
        Font font{id, {}};
        std::ranges::transform(names, font.names.begin(), &QString::fromStdString);
        m_fonts.push_back(std::move(font));
    });
}

QtSearch::~QtSearch() = default;

std::vector<std::int64_t> QtSearch::fontsByName(const std::string& key) const {
    const QString needle = QString::fromStdString(key);
    std::vector<std::int64_t> ids;
    for (const Font& font : m_fonts)
        if (font.names.front().contains(needle, Qt::CaseInsensitive))
            ids.push_back(font.id);
    return ids;
}

std::vector<std::int64_t> QtSearch::fontsByKey(const std::string& key) const {
    const QString needle = QString::fromStdString(key);
    std::vector<std::int64_t> ids;
    for (const Font& font : m_fonts)
        if (std::ranges::any_of(font.names, [&needle](const QString& name) {
                return name.contains(needle, Qt::CaseInsensitive);
            }))
            ids.push_back(font.id);
    return ids;
}
