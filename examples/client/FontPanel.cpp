#include "FontPanel.hpp"

#include "Load.hpp"

#include <PerchAppLibrary/ApplicationManager.hpp>

#include <QDir>
#include <QFileInfo>
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
    m_preview->setText(shown(font->PreviewText()));
    QStringList lines{shown(font->TreeNodeTitle()) + ", drawn in " + drawn.family() + " " +
                      drawn.styleName()};
    for (const std::string& line : locationsOf(*font, settings))
        lines << shown(line);
    m_details->setText(lines.join('\n'));
}

QString cachedFile(const FontItem& font) {
    constexpr qint64 maximumSize = 64LL << 20;
    const QFileInfo file(QString::fromStdString(font.LocalFile()));
    const QDir cache(QString::fromStdString(PerchAppLibrary::ApplicationManager::tmpCachesDir()));
    const bool isBelow = !font.IsGroup() && !cache.canonicalPath().isEmpty() &&
                         file.canonicalFilePath().startsWith(cache.canonicalPath() + "/");
    return isBelow && file.isFile() && file.size() <= maximumSize ? file.canonicalFilePath()
                                                                  : QString();
}

QFont drawnWith(const FontItem& font, double points) {
    using PerchAppLibrary::PlatformFont;
    const auto installed = PlatformFont::named(font.ProductName(), points);
    const PlatformFont found = installed ? *installed : font.Font();
    QString file = QString::fromStdString(found.file());
    if (const QString local = cachedFile(font); !installed && !local.isEmpty()) {
        file = local;
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

std::vector<std::string> locationsOf(const FontItem& font,
                                     const VelmoCloudEntity::ConfigItem& settings) {
    if (font.IsGroup())
        return {};
    std::vector<std::string> lines{"File: " + font.LocalFile() +
                                       (font.IsLocaled() ? "" : " (not here)"),
                                   "From: " + font.ProductFileUrl()};
    if (!font.stem()) // the locations of previews require it
        return lines;
    const FontItem::PreviewLabels preview{.isFixed = settings.UseFixPreviewTag(),
                                          .previewTag = settings.PreviewTag(),
                                          .colorTag = settings.PreviewColorTag(),
                                          .fontSize = settings.PreviewFontSize()};
    lines.push_back("Preview: " + font.getLocalPreviewFile(preview));
    lines.push_back("From: " + font.getRemotePreviewFile(preview));
    return lines;
}

} // namespace client
