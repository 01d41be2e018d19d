#include "FontPanel.hpp"

#include <QFontDatabase>
#include <QRawFont>
#include <QVBoxLayout>

#include <set>

namespace client {

FontPanel::FontPanel() {
    m_preview->setObjectName("preview");
    m_details->setObjectName("details");
    auto* const layout = new QVBoxLayout(this);
    for (QLabel* const label : {m_preview, m_details}) {
        label->setTextFormat(Qt::PlainText); // a name may look like markup
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        layout->addWidget(label);
    }
    hide();
}

void FontPanel::showFont(const FontItem* font, const VelmoCloudEntity::ConfigItem& settings) {
    setVisible(font != nullptr);
    if (font == nullptr)
        return;
    const QFont drawn = drawnWith(*font, static_cast<double>(settings.PreviewFontSize()));
    m_preview->setFont(drawn);
    m_preview->setText(QString::fromStdString(font->PreviewText()));
    m_details->setText(QString::fromStdString(font->TreeNodeTitle()) + ", drawn in " +
                       drawn.family() + " " + drawn.styleName() +
                       QString::fromStdString(locationsOf(*font, settings)));
}

QFont drawnWith(const FontItem& font, double points) {
    using PerchAppLibrary::PlatformFont;
    const auto installed = PlatformFont::named(font.ProductName(), points);
    const PlatformFont found = installed ? *installed : font.Font();
    QString file = QString::fromStdString(found.file());
    if (!installed && font.IsLocaled()) {
        file = QString::fromStdString(font.LocalFile());
        static std::set<QString> added;
        if (added.insert(file).second)
            QFontDatabase::addApplicationFont(file);
    }
    const QRawFont raw(file, points);
    QFont drawn(raw.isValid() ? raw.familyName() : QString::fromStdString(found.name()));
    drawn.setStyleName(raw.styleName());
    drawn.setPointSizeF(points);
    return drawn;
}

std::string locationsOf(const FontItem& font, const VelmoCloudEntity::ConfigItem& settings) {
    if (font.IsGroup())
        return "";
    std::string lines = "\nFile: " + font.LocalFile() + (font.IsLocaled() ? "" : " (not here)") +
                        "\nFrom: " + font.ProductFileUrl();
    if (!font.stem()) // the locations of previews require it
        return lines;
    const FontItem::PreviewLabels preview{.isFixed = settings.UseFixPreviewTag(),
                                          .previewTag = settings.PreviewTag(),
                                          .colorTag = settings.PreviewColorTag(),
                                          .fontSize = settings.PreviewFontSize()};
    return lines + "\nPreview: " + font.getLocalPreviewFile(preview) +
           "\nFrom: " + font.getRemotePreviewFile(preview);
}

} // namespace client
