#pragma once

#include "Catalogue.hpp"

#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <QFont>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include <map>

namespace client {

/// A font to draw a preview with.
struct Drawn {
    QFont font;
    bool isSubstitute; // the system's font, since the wanted one is not on this computer
};

/// Shows one font: a preview, with a text and a size that the user chooses, and its locations.
class FontPanel : public QWidget {
public:
    /// Calls `onResize` after the user has chosen a size, which is then in the settings.
    FontPanel(std::shared_ptr<VelmoCloudEntity::ConfigItem> settings,
              std::function<void()> onResize);

    /// Shows the font, or a hint for null.
    void showFont(std::shared_ptr<FontItem> font);

    QWidget* textEdit() const { return m_text; }
    QWidget* sizeSlider() const { return m_size; }

private:
    void showPreview();
    void showLocations();
    QLabel* addLocation(const char* title, const char* name);

    /// Returns the font itself if it is installed or its file is in the client's cache directory,
    /// otherwise the system's font.
    Drawn drawnWith(const FontItem& font, double points);
    bool isRead(const QString& file);

    std::shared_ptr<VelmoCloudEntity::ConfigItem> m_settings;
    std::shared_ptr<FontItem> m_font;
    std::map<QString, QFont> m_read; // by file of the cache directory
    QLabel* m_title = new QLabel;
    QLineEdit* m_text = new QLineEdit;
    QSlider* m_size = new QSlider(Qt::Horizontal);
    QLabel* m_points = new QLabel;
    QLabel* m_preview = new QLabel;
    QLabel* m_drawnIn = new QLabel;
    QWidget* m_locations = new QWidget;
    QFormLayout* m_lines = new QFormLayout(m_locations);
    QLabel* m_file = addLocation("File", "file");
    QLabel* m_address = addLocation("Address", "address");
    QLabel* m_previewFile = addLocation("Preview", "previewFile");
    QLabel* m_previewAddress = addLocation("Preview address", "previewAddress");
};

/// Returns the path that a font file may be opened at: that of a regular file below the client's
/// cache directory, links resolved, of at most 64 MB. Otherwise returns an empty text. A reply
/// names the file, so it may be a device, a pipe or any file of the user.
QString openableFile(const std::string& file);

} // namespace client
