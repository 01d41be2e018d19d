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
    for (QLabel* const caption : {m_ui.fileCaption, m_ui.addressCaption, m_ui.previewFileCaption,
                                  m_ui.previewAddressCaption})
        caption->setForegroundRole(QPalette::PlaceholderText);
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
    m_ui.locations->setVisible(m_font != nullptr && !m_font->IsGroup());
    m_ui.title->setText(m_font ? drawable(m_font->TreeNodeTitle()) : QString());
    m_ui.previewText->setPlaceholderText(m_font ? drawable(m_font->PreviewText())
                                                : "Text of the preview");
    showPreview();
    showLocations();
}

void FontPanel::showPreview() {
    const auto points = static_cast<double>(m_settings->PreviewFontSize());
    m_ui.points->setText(QString("%1 pt").arg(points));
    m_ui.preview->setForegroundRole(m_font ? QPalette::WindowText : QPalette::PlaceholderText);
    m_ui.preview->setAlignment(m_font ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    m_ui.drawnIn->setVisible(m_font != nullptr);
    if (!m_font) {
        m_ui.preview->setFont(m_ui.title->parentWidget()->font());
        m_ui.preview->setText("Select a font to see it.");
        return;
    }
    const Drawn drawn = drawnWith(*m_font, points);
    const QString name = drawn.font.family() + " " + drawn.font.styleName();
    m_ui.preview->setFont(drawn.font);
    m_ui.preview->setText(m_ui.previewText->text().isEmpty() ? m_ui.previewText->placeholderText()
                                                             : m_ui.previewText->text());
    m_ui.drawnIn->setText(drawn.isSubstitute ? " Not on this computer: drawn in a substitute "
                                             : drawable(name.trimmed().toStdString(), 60));
    m_ui.drawnIn->setAutoFillBackground(drawn.isSubstitute);
    m_ui.drawnIn->setForegroundRole(drawn.isSubstitute ? QPalette::ButtonText
                                                       : QPalette::PlaceholderText);
    m_ui.drawnIn->setBackgroundRole(QPalette::Button);
}

Drawn FontPanel::drawnWith(const FontItem& font, double points) {
    using PerchAppLibrary::PlatformFont;
    const auto installed = PlatformFont::named(font.ProductName(), points);
    const QString file = installed ? QString() : openableFile(font.LocalFile());
    Drawn drawn{QFont(), !installed && (file.isEmpty() || !isRead(file))};
    if (installed) {
        const QRawFont raw(QString::fromStdString(installed->file()), points);
        drawn.font.setFamily(raw.isValid() ? raw.familyName()
                                           : QString::fromStdString(installed->name()));
        drawn.font.setStyleName(raw.styleName());
    } else if (!drawn.isSubstitute) {
        drawn.font = m_read[file];
    } else {
        drawn.font.setFamily(QString::fromStdString(PlatformFont::system(points).name()));
    }
    drawn.font.setPointSizeF(points);
    return drawn;
}

bool FontPanel::isRead(const QString& file) {
    QFile device(file);
    if (!m_read.contains(file) && device.open(QIODevice::ReadOnly)) {
        const QByteArray content = device.readAll();
        const QRawFont raw(content, QFont().pointSizeF());
        if (QFontDatabase::addApplicationFontFromData(content) < 0 || !raw.isValid())
            return false;
        m_read[file].setFamily(raw.familyName());
        m_read[file].setStyleName(raw.styleName());
    }
    return m_read.contains(file);
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
    if (!m_font || m_font->IsGroup())
        return;
    const auto show = [](QLabel* label, const std::string& text) {
        label->setText(text.empty() ? QString("\u2013") : drawable(text, 400));
    };
    show(m_ui.file, m_font->LocalFile() + (m_font->IsLocaled() ? "" : " (not here)"));
    show(m_ui.address, m_font->ProductFileUrl());
    const bool hasPreview = m_font->stem().has_value(); // the locations of previews require it
    const FontItem::PreviewLabels preview{.isFixed = m_settings->UseFixPreviewTag(),
                                          .previewTag = m_settings->PreviewTag(),
                                          .colorTag = m_settings->PreviewColorTag(),
                                          .fontSize = m_settings->PreviewFontSize()};
    show(m_ui.previewFile, hasPreview ? m_font->getLocalPreviewFile(preview) : "");
    show(m_ui.previewAddress, hasPreview ? m_font->getRemotePreviewFile(preview) : "");
}

} // namespace client
