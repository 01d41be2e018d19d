#include "FontDelegate.hpp"

#include "FontModel.hpp"
#include "Look.hpp"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace client {
namespace {

void drawMarked(QPainter& painter, const QStyleOptionViewItem& item, const QString& text,
                const FontModel::Parts& parts) {
    constexpr int inset = 3; // of a text, as the style has it
    const QRect area = item.rect.adjusted(inset, 0, -inset, 0);
    QTextLayout layout(item.fontMetrics.elidedText(text, Qt::ElideRight, area.width()), item.font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QPointF corner(area.left(), area.top() + (area.height() - line.height()) / 2);
    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    const QColor colour(isSelected || isDark(item.palette) ? 0x5c4a12 : 0xffecb3);
    painter.save();
    painter.setClipRect(area);
    for (const auto& [begin, end] : parts)
        painter.fillRect(QRectF(corner + QPointF(line.cursorToX(begin), 0),
                                corner + QPointF(line.cursorToX(end), line.height())),
                         colour);
    painter.setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(&painter, corner);
    painter.restore();
}

} // namespace

void FontDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    if (FontModel::fontAt(index) == nullptr) {
        item.rect.setLeft(0); // each cell draws the row, over what the view has drawn of it
        item.rect.setRight(item.widget->width());
        item.font.setBold(true);
        item.state |= QStyle::State_Enabled; // which a row that the keyboard passes is not
        item.backgroundBrush = item.palette.button();
    }
    const auto parts = index.data(FontModel::foundParts).value<FontModel::Parts>();
    const QString text = parts.empty() ? QString() : std::exchange(item.text, QString());
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    if (!parts.empty())
        drawMarked(*painter, item, text, parts);
}

} // namespace client
