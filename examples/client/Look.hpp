#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace client {

/// The space between parts of the window and at its edges.
constexpr int gap = 8;

/// Qt's style Fusion, with outlines that are visible in dark colours, too, and with space between
/// rows.
class Style : public QProxyStyle {
public:
    Style() : QProxyStyle("fusion") {}
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
};

/// Returns the colours of the window.
QPalette paletteOf(bool isDark);
bool isDark(const QPalette& palette);

} // namespace client
