#pragma once

#include "Catalogue.hpp"

#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <QFont>

#include <map>

namespace Ui {
class MainWindow;
}

namespace client {

/// The part of the window that shows one font: a preview, with a text and a size that the user
/// chooses, and its locations.
class FontPanel {
public:
    /// Calls `onResize` after the user has chosen a size, which is then in the settings.
    FontPanel(Ui::MainWindow& ui, std::shared_ptr<VelmoCloudEntity::ConfigItem> settings,
              std::function<void()> onResize);

    /// Shows the font, or a hint for null.
    void showFont(std::shared_ptr<FontItem> font);

private:
    void showPreview();
    void showLocations();

    /// Returns the font itself if it is installed or its file is in the client's cache directory.
    std::optional<QFont> drawnWith(const FontItem& font);

    Ui::MainWindow& m_ui;
    std::shared_ptr<VelmoCloudEntity::ConfigItem> m_settings;
    std::shared_ptr<FontItem> m_font;
    std::optional<QFont> m_drawn;          // nullopt: in a substitute
    std::map<QString, QFont> m_cacheFonts; // that Qt has, by file
};

/// Returns the path that a font file may be opened at: that of a regular file below the client's
/// cache directory, links resolved, of at most 64 MB. Otherwise returns an empty text. A reply
/// names the file, so it may be a device, a pipe or any file of the user.
QString openableFile(const std::string& file);

} // namespace client
