#include "FontPanel.hpp"

#include "Look.hpp"
#include "Texts.hpp"

#include <PerchAppLibrary/ApplicationManager.hpp>

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QRawFont>

namespace client {

FontPanel::FontPanel(std::shared_ptr<VelmoCloudEntity::ConfigItem> settings,
                     std::function<void()> onResize)
    : m_settings(std::move(settings)) {
    m_text->setObjectName("previewText");
    m_text->setAccessibleName("Text of the preview");
    m_text->setMaxLength(200);
    m_text->setClearButtonEnabled(true);
    m_text->setTextMargins(gap / 2, 0, gap / 2, 0);
    m_size->setObjectName("size");
    m_size->setAccessibleName("Size of the preview");
    m_size->setRange(6, 96);
    m_size->setFixedWidth(160);
    m_size->setValue(static_cast<int>(m_settings->PreviewFontSize()));
    m_settings->setPreviewFontSize(m_size->value()); // in the range
    m_points->setMinimumWidth(m_points->fontMetrics().horizontalAdvance("96 pt"));
    m_points->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_preview->setObjectName("preview");
    m_preview->setMinimumHeight(64);
    m_preview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_drawnIn->setObjectName("drawnIn");
    m_title->setObjectName("title");
    QFont bold(font());
    bold.setBold(true);
    m_title->setFont(bold);
    for (QLabel* const label : {m_preview, m_title, m_drawnIn}) {
        label->setTextFormat(Qt::PlainText); // a name may look like markup
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_lines->setContentsMargins(0, 0, 0, 0);
    m_lines->setVerticalSpacing(gap / 2);
    m_lines->setHorizontalSpacing(2 * gap);

    auto* const controls = new QHBoxLayout;
    controls->addWidget(m_text, 1);
    controls->addWidget(m_size);
    controls->addWidget(m_points);
    auto* const titles = new QHBoxLayout;
    titles->addWidget(m_title, 1);
    titles->addWidget(m_drawnIn);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, gap, 0, 0);
    layout->setSpacing(gap);
    layout->addLayout(titles);
    layout->addLayout(controls);
    layout->addWidget(m_preview, 1);
    layout->addWidget(m_locations);
    connect(m_text, &QLineEdit::textChanged, this, &FontPanel::showPreview);
    connect(m_size, &QSlider::valueChanged, this, [this, onResize](int points) {
        m_settings->setPreviewFontSize(points);
        showPreview();
        showLocations(); // the file of a preview is named after its size
        if (!m_size->isSliderDown())
            onResize();
    });
    connect(m_size, &QSlider::sliderReleased, this, onResize);
    showFont(nullptr);
}

QLabel* FontPanel::addLocation(const char* title, const char* name) {
    auto* const label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const caption = new QLabel(title);
    caption->setForegroundRole(QPalette::PlaceholderText);
    m_lines->addRow(caption, label);
    return label;
}

void FontPanel::showFont(std::shared_ptr<FontItem> font) {
    m_font = std::move(font);
    m_locations->setVisible(m_font != nullptr && !m_font->IsGroup());
    m_title->setText(m_font ? drawable(m_font->TreeNodeTitle()) : QString());
    m_text->setPlaceholderText(m_font ? drawable(m_font->PreviewText()) : "Text of the preview");
    showPreview();
    showLocations();
}

void FontPanel::showPreview() {
    const auto points = static_cast<double>(m_settings->PreviewFontSize());
    m_points->setText(QString("%1 pt").arg(points));
    m_preview->setForegroundRole(m_font ? QPalette::WindowText : QPalette::PlaceholderText);
    m_preview->setAlignment(m_font ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    m_drawnIn->setVisible(m_font != nullptr);
    if (!m_font) {
        m_preview->setFont(font());
        m_preview->setText("Select a font to see it.");
        return;
    }
    const Drawn drawn = drawnWith(*m_font, points);
    const QString name = drawn.font.family() + " " + drawn.font.styleName();
    m_preview->setFont(drawn.font);
    m_preview->setText(m_text->text().isEmpty() ? m_text->placeholderText() : m_text->text());
    m_drawnIn->setText(drawn.isSubstitute ? " Not on this computer: drawn in a substitute "
                                          : drawable(name.trimmed().toStdString(), 60));
    m_drawnIn->setAutoFillBackground(drawn.isSubstitute);
    m_drawnIn->setForegroundRole(drawn.isSubstitute ? QPalette::ButtonText
                                                    : QPalette::PlaceholderText);
    m_drawnIn->setBackgroundRole(QPalette::Button);
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
    show(m_file, m_font->LocalFile() + (m_font->IsLocaled() ? "" : " (not here)"));
    show(m_address, m_font->ProductFileUrl());
    const bool hasPreview = m_font->stem().has_value(); // the locations of previews require it
    const FontItem::PreviewLabels preview{.isFixed = m_settings->UseFixPreviewTag(),
                                          .previewTag = m_settings->PreviewTag(),
                                          .colorTag = m_settings->PreviewColorTag(),
                                          .fontSize = m_settings->PreviewFontSize()};
    show(m_previewFile, hasPreview ? m_font->getLocalPreviewFile(preview) : "");
    show(m_previewAddress, hasPreview ? m_font->getRemotePreviewFile(preview) : "");
}

} // namespace client
