#include "TagPanel.hpp"

#include "FontView.hpp"
#include "Texts.hpp"

#include <QHeaderView>
#include <QLocale>
#include <QPainter>
#include <QSignalBlocker>

namespace client {
namespace {

constexpr int tagRole = Qt::UserRole; // the FontTagItem of a row

} // namespace

TagPanel::TagPanel(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(2);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setAllColumnsShowFocus(true);
    setItemDelegate(new RowDelegate(this));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* row) {
        auto* const tag = static_cast<FontTagItem*>(row->data(0, tagRole).value<void*>());
        onTick(*tag, row->checkState(0) == Qt::Checked);
    });
}

void TagPanel::showTags(const Tags& tags) {
    const QSignalBlocker noTick(this);
    clear();
    m_shown = tags;
    add(*invisibleRootItem(), tags);
    expandAll();
}

void TagPanel::add(QTreeWidgetItem& group, const Tags& tags) {
    for (const auto& tag : tags) {
        if (!tag->IsGroup() && tag->FontIdList().empty())
            continue;
        auto* const row = new QTreeWidgetItem(&group, {drawable(tag->Name())});
        row->setData(0, tagRole, QVariant::fromValue<void*>(tag.get()));
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        row->setForeground(1, palette().placeholderText());
        if (tag->IsGroup()) {
            QFont bold(font());
            bold.setBold(true);
            row->setFont(0, bold);
            row->setText(0, drawable(tag->Name() + " " + tag->Alias()));
            row->setText(1, tag->SubTagFilterType() == "And" ? "all of" : "any of");
            add(*row, tag->Children());
        } else {
            row->setText(1, QLocale().toString(tag->FontIdList().size()));
            row->setCheckState(0, tag->IsChecked() ? Qt::Checked : Qt::Unchecked);
        }
    }
}

void TagPanel::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, "No tags");
}

} // namespace client
