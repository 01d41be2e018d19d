#include "Look.hpp"

#include <QPainter>
#include <QStyleOption>

namespace client {
namespace {

/// Draws a box to tick.
void drawBox(const QStyleOption& option, QPainter& painter, const QColor& outline) {
    const bool isTicked = option.state.testFlag(QStyle::State_On);
    const bool isPartial = option.state.testFlag(QStyle::State_NoChange);
    const bool isFilled = (isTicked || isPartial) && option.state.testFlag(QStyle::State_Enabled);
    const double side = std::min(option.rect.width(), option.rect.height()) - 1;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(option.rect).center());
    const QColor fill = option.palette.color(isFilled ? QPalette::Highlight : QPalette::Base);
    painter.setBrush(fill);
    painter.setPen(isFilled ? option.palette.color(QPalette::HighlightedText) : outline);
    painter.drawRoundedRect(box, 2.5, 2.5);
    painter.setPen(QPen(option.palette.color(QPalette::HighlightedText), 2, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&box, side](double x, double y) {
        return box.topLeft() + QPointF(x * side, y * side);
    };
    if (isTicked)
        painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.30)});
    else if (isPartial)
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
}

} // namespace

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if (!isBox && element != PE_PanelLineEdit && element != PE_Frame) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QColor outline(isDark(option->palette) ? 0x59616d : 0xb4bbc5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isBox) {
        drawBox(*option, *painter, outline);
    } else {
        const bool isEdit = element == PE_PanelLineEdit;
        const bool hasFocus = isEdit && option->state.testFlag(State_HasFocus);
        painter->setBrush(isEdit ? option->palette.brush(QPalette::Base) : QBrush(Qt::NoBrush));
        painter->setPen(hasFocus ? option->palette.color(QPalette::Link) : outline);
        const double radius = isEdit ? 3 : 0;
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), radius,
                                 radius);
    }
    painter->restore();
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ItemViewItem)
        return {size.width(), option->fontMetrics.height() + gap};
    return type == CT_PushButton ? size + QSize(2 * gap, 0) : size;
}

QPalette paletteOf(bool isDark) {
    QPalette palette(isDark ? QColor(0x2a2e35) : QColor(0xeceef1),  // buttons
                     isDark ? QColor(0x1f2227) : QColor(0xf6f7f9)); // the window
    const QColor text(isDark ? 0xe4e7eb : 0x1c2026);
    const QColor quiet(isDark ? 0x9aa3ae : 0x5f6875);
    const QColor off(isDark ? 0x6a727d : 0x9aa1ab);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, off);
    }
    palette.setColor(QPalette::PlaceholderText, quiet);
    palette.setColor(QPalette::Base, isDark ? QColor(0x17191d) : QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, isDark ? QColor(0x1b1e22) : QColor(0xf8f9fb));
    palette.setColor(QPalette::ToolTipBase, isDark ? QColor(0x2a2e35) : QColor(Qt::white));
    palette.setColor(QPalette::Highlight, isDark ? QColor(0x2b5fb8) : QColor(0x2866cf));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, isDark ? QColor(0x7fb0ff) : QColor(0x2866cf));
    return palette;
}

bool isDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

} // namespace client
