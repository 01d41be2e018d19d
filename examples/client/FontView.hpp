#pragma once

#include <QStyledItemDelegate>
#include <QTreeView>

namespace client {

/// Draws a row with some space around its text, and marks FontModel::foundParts in it.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

/// Shows a FontModel, with the found parts marked.
class FontView : public QTreeView {
public:
    explicit FontView(QAbstractItemModel& model);

protected:
    /// Space switches Activated of the current font, F Favourite.
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace client
