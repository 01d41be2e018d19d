#pragma once

#include <QStyledItemDelegate>
#include <QTreeView>

#include <functional>

namespace client {

/// Draws rows with some space above and below their texts.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// Shows a FontModel, with the found parts marked. Space switches whether the current font is
/// activated, F whether it is a favourite. Calls `onLeave` for Up in the first row.
class FontView : public QTreeView {
public:
    using QTreeView::QTreeView;

    /// Shows this model from now on. Call it once.
    void showModel(QAbstractItemModel& model);
    std::function<void()> onLeave;

    /// Makes the first row that is not a heading the current one, if there is any.
    void goToFirst();

    void keyboardSearch(const QString& /*text*/) override {} // the search box does it

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    void switchMark(int column);
    QModelIndex firstRow() const;
};

} // namespace client
