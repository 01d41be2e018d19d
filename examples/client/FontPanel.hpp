#pragma once

#include "Catalogue.hpp"

#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <QLabel>

namespace client {

/// Shows one font: a preview, its title and its locations.
class FontPanel : public QWidget {
public:
    FontPanel();

    /// Shows the font, or nothing for null.
    void showFont(const FontItem* font, const VelmoCloudEntity::ConfigItem& settings);

private:
    QLabel* m_preview = new QLabel;
    QLabel* m_details = new QLabel;
};

/// Returns the file of a font in the client's cache directory, or nothing. A reply decides its
/// name, so it must be a regular file of at most 64 MB, and lie below the directory.
QString cachedFile(const FontItem& font);

/// Returns the font to draw a preview with: the font itself if it is installed or its file is in
/// the client's cache directory, otherwise the system's font.
QFont drawnWith(const FontItem& font, double points);

/// Returns lines with the locations of a font and of its preview; none for a group.
std::vector<std::string> locationsOf(const FontItem& font,
                                     const VelmoCloudEntity::ConfigItem& settings);

} // namespace client
