#include "FontPanel.hpp"

#include "Texts.hpp"
#include "ui_MainWindow.h"

#include <PerchAppLibrary/ApplicationManager.hpp>

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QRawFont>

namespace client {

FontPanel::FontPanel(Ui::MainWindow& ui, std::shared_ptr<VelmoCloudEntity::ConfigItem> settings,
                     std::function<void()> onResize)
    : m_ui(ui), m_settings(std::move(settings)) {
    m_ui.size->setValue(static_cast<int>(m_settings->PreviewFontSize()));
    m_settings->setPreviewFontSize(m_ui.size->value()); // in the range
    m_ui.drawnIn->setBackgroundRole(QPalette::Button);
    QObject::connect(m_ui.previewText, &QLineEdit::textChanged, [this] { showPreview(); });
    QObject::connect(m_ui.size, &QSlider::valueChanged, [this, onResize](int points) {
        m_settings->setPreviewFontSize(points);
        showPreview();
        showLocations(); // the file of a preview is named after its size
        if (!m_ui.size->isSliderDown())
            onResize();
    });
    QObject::connect(m_ui.size, &QSlider::sliderReleased, onResize);
}

void FontPanel::showFont(std::shared_ptr<FontItem> font) {
    m_font = std::move(font);
    m_drawn = m_font ? drawnWith(*m_font) : std::nullopt;
    m_ui.title->setText(m_font ? drawable(m_font->TreeNodeTitle()) : QString());
    m_ui.drawnIn->setVisible(m_font != nullptr);
    const QString name = m_drawn ? m_drawn->family() + " " + m_drawn->styleName() : QString();
    m_ui.drawnIn->setText(m_drawn ? drawable(name.toStdString(), 60)
                                  : " Not on this computer: drawn in a substitute ");
    m_ui.drawnIn->setAutoFillBackground(!m_drawn);
    m_ui.previewText->setPlaceholderText(m_font ? drawable(m_font->PreviewText())
                                                : "Text of the preview");
    showPreview();
    showLocations();
}

void FontPanel::showPreview() {
    const auto points = static_cast<double>(m_settings->PreviewFontSize());
    m_ui.points->setText(QString("%1 pt").arg(points));
    QFont drawn = m_drawn.value_or(QFont());
    if (m_font)
        drawn.setPointSizeF(points);
    const QString typed = m_ui.previewText->text();
    const QString text = typed.isEmpty() ? m_ui.previewText->placeholderText() : typed;
    m_ui.preview->setFont(drawn);
    m_ui.preview->setForegroundRole(m_font ? QPalette::WindowText : QPalette::PlaceholderText);
    m_ui.preview->setText(m_font ? text : "Select a font to see it.");
}

std::optional<QFont> FontPanel::drawnWith(const FontItem& font) {
    const auto installed = PerchAppLibrary::PlatformFont::named(font.ProductName(), 12);
    const QString path =
        installed ? QString::fromStdString(installed->file()) : openableFile(font.LocalFile());
    if (m_cacheFonts.contains(path))
        return m_cacheFonts[path];
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray content = file.readAll();
    const QRawFont raw(content, 12);
    if (!raw.isValid())
        return std::nullopt;
    QFont drawn;
    drawn.setFamily(raw.familyName()); // one name, commas or not
    drawn.setStyleName(raw.styleName());
    if (!installed && QFontDatabase::addApplicationFontFromData(content) >= 0)
        m_cacheFonts[path] = drawn; // Qt keeps each that is added
    return drawn;
}

QString openableFile(const std::string& file) {
    constexpr qint64 maxBytes = 1LL << 26; // the greatest fonts, Chinese ones, take half of it
    const std::string cache = PerchAppLibrary::ApplicationManager::tmpCachesDir();
    const QString folder = QFileInfo(QString::fromStdString(cache)).canonicalFilePath();
    const QFileInfo info(QFileInfo(QString::fromStdString(file)).canonicalFilePath());
    const bool isOpenable = !folder.isEmpty() && info.isFile() && info.size() <= maxBytes &&
                            info.filePath().startsWith(folder + "/");
    return isOpenable ? info.filePath() : QString();
}

void FontPanel::showLocations() {
    m_ui.locations->setVisible(m_font != nullptr && !m_font->IsGroup());
    if (!m_font || m_font->IsGroup())
        return;
    const FontItem::PreviewLabels preview{.isFixed = m_settings->UseFixPreviewTag(),
                                          .previewTag = m_settings->PreviewTag(),
                                          .colorTag = m_settings->PreviewColorTag(),
                                          .fontSize = m_settings->PreviewFontSize()};
    const bool hasPreview = m_font->stem().has_value(); // the locations of previews require it
    for (const auto& [label, location] :
         {std::pair(m_ui.file, m_font->LocalFile() + (m_font->IsLocaled() ? "" : " (not here)")),
          {m_ui.address, m_font->ProductFileUrl()},
          {m_ui.previewFile, hasPreview ? m_font->getLocalPreviewFile(preview) : ""},
          {m_ui.previewAddress, hasPreview ? m_font->getRemotePreviewFile(preview) : ""}})
        label->setText(location.empty() ? QString("\u2013") : drawable(location, 400));
}

} // namespace client
