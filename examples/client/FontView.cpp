#include "FontView.hpp"

#include "FontModel.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

namespace client {
namespace {

QList<QTextLayout::FormatRange> marks(const QList<FontModel::Range>& ranges) {
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setForeground(Qt::black);
    format.setBackground(QColor(0xff, 0xe0, 0x82));
    QList<QTextLayout::FormatRange> marks;
    for (const FontModel::Range& range : ranges)
        marks.append({range.begin, range.size, format});
    return marks;
}

constexpr int margin = 3; // around a text

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * margin);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const auto found = index.data(FontModel::foundParts).value<QList<FontModel::Range>>();
    if (found.empty()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    const QString text = std::exchange(item.text, QString());
    item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const QRect area = item.rect.adjusted(margin, 0, -margin, 0);
    QTextLayout layout(item.fontMetrics.elidedText(text, Qt::ElideRight, area.width()), item.font);
    layout.setFormats(marks(found));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    painter->save();
    painter->setClipRect(area);
    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    painter->setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(painter, {area.left() * 1.0, area.center().y() - line.height() / 2});
    painter->restore();
}

FontView::FontView(QAbstractItemModel& model) {
    setObjectName("fonts");
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setModel(&model);
    setItemDelegate(new RowDelegate(this));
    header()->resizeSection(FontModel::name, 220);
    header()->resizeSection(FontModel::family, 140);
    header()->resizeSection(FontModel::file, 170);
}

void FontView::keyPressEvent(QKeyEvent* event) {
    const bool isSpace = event->key() == Qt::Key_Space;
    const QModelIndex mark =
        currentIndex().siblingAtColumn(isSpace ? FontModel::activated : FontModel::favourite);
    const QVariant state = mark.data(Qt::CheckStateRole);
    if ((isSpace || event->key() == Qt::Key_F) && event->modifiers() == Qt::NoModifier &&
        state.isValid())
        model()->setData(mark, state.toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                         Qt::CheckStateRole);
    else
        QTreeView::keyPressEvent(event);
}

} // namespace client
