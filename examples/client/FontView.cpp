#include "FontView.hpp"

#include "FontModel.hpp"
#include "Look.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

namespace client {
namespace {

QList<QTextLayout::FormatRange> marks(const QList<FontModel::Range>& ranges,
                                      const QPalette& palette) {
    const Colours colours = foundColours(isDark(palette));
    QTextCharFormat format;
    format.setForeground(colours.text);
    format.setBackground(colours.background);
    QList<QTextLayout::FormatRange> marks;
    for (const FontModel::Range& range : ranges)
        marks.append({range.begin, range.size, format});
    return marks;
}

/// Draws a text with its found parts marked.
class FoundPartDelegate : public RowDelegate {
public:
    using RowDelegate::RowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto found = index.data(FontModel::foundParts).value<QList<FontModel::Range>>();
        if (found.empty()) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem item(option);
        initStyleOption(&item, index);
        const QString text = std::exchange(item.text, QString());
        item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

        const QRect area = item.rect.adjusted(inset, 0, -inset, 0);
        QTextLayout layout(item.fontMetrics.elidedText(text, Qt::ElideRight, area.width()),
                           item.font);
        layout.setFormats(marks(found, item.palette));
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        painter->save();
        painter->setClipRect(area);
        const bool isSelected = item.state.testFlag(QStyle::State_Selected);
        painter->setPen(
            item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        layout.draw(painter, {area.left() * 1.0, area.top() + (area.height() - line.height()) / 2});
        painter->restore();
    }

private:
    static constexpr int inset = 3; // of a text, as the style has it
};

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return {QStyledItemDelegate::sizeHint(option, index).width(),
            option.fontMetrics.height() + gap};
}

void FontView::showModel(QAbstractItemModel& model) {
    setModel(&model);
    setItemDelegate(new FoundPartDelegate(this));
    const int wide = fontMetrics().averageCharWidth();
    header()->resizeSection(FontModel::name, 36 * wide);
    header()->resizeSection(FontModel::family, 24 * wide);
    header()->setSectionResizeMode(FontModel::file, QHeaderView::Stretch);
    for (const int mark : {FontModel::activated, FontModel::favourite})
        header()->resizeSection(mark, header()->sectionSizeHint(mark) + 2 * gap);
}

QModelIndex FontView::firstRow() const {
    const QModelIndex first = model()->index(0, 0);
    return first.isValid() && FontModel::fontAt(first) == nullptr ? model()->index(1, 0) : first;
}

void FontView::goToFirst() {
    if (firstRow().isValid())
        setCurrentIndex(firstRow());
}

void FontView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = event->modifiers() == Qt::NoModifier;
    const QModelIndex row = currentIndex().siblingAtColumn(0);
    if (isPlain && event->key() == Qt::Key_Space)
        switchMark(FontModel::activated);
    else if (isPlain && event->key() == Qt::Key_F)
        switchMark(FontModel::favourite);
    else if (isPlain && event->key() == Qt::Key_Up && (!row.isValid() || row == firstRow()))
        onLeave();
    else
        QTreeView::keyPressEvent(event);
}

void FontView::switchMark(int column) {
    const QModelIndex cell = currentIndex().siblingAtColumn(column);
    if (!cell.isValid())
        return;
    const bool isMarked = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(cell, isMarked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void FontView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    if (FontModel::fontAt(index) != nullptr) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    QFont bold(option.font);
    bold.setBold(true);
    painter->save();
    painter->fillRect(row, palette().color(QPalette::Button));
    painter->setFont(bold);
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(row.adjusted(gap, 0, -gap, 0), Qt::AlignVCenter, index.data().toString());
    painter->restore();
}

} // namespace client
