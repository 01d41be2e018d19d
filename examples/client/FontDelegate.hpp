#pragma once

#include <QStyledItemDelegate>

namespace client {

/// Draws the cells of a FontModel: texts with the found parts marked, and a heading over all
/// columns of its row.
class FontDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace client
