#include "showTags.hpp"

#include "Texts.hpp"

#include <QHeaderView>
#include <QLocale>
#include <QSignalBlocker>
#include <QTreeWidget>

namespace client {
namespace {

constexpr int tagRole = Qt::UserRole;

void add(QTreeWidgetItem& group, const Tags& tags) {
    for (const auto& tag : tags) {
        if (!tag->IsGroup() && tag->FontIdList().empty())
            continue;
        auto* const row = new QTreeWidgetItem(&group, {drawable(tag->Name())});
        row->setData(0, tagRole, QVariant::fromValue(tag));
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        row->setForeground(1, row->treeWidget()->palette().placeholderText());
        if (tag->IsGroup()) {
            QFont bold;
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

} // namespace

void showTags(QTreeWidget& view, const Tags& tags) {
    const QSignalBlocker noTick(view);
    view.clear();
    view.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    view.header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    add(*view.invisibleRootItem(), tags);
    if (view.topLevelItemCount() == 0)
        (new QTreeWidgetItem(&view, {"No tags"}))->setFlags(Qt::ItemIsEnabled);
    view.expandAll();
}

FontTagItem& tagOf(const QTreeWidgetItem& row) {
    return *row.data(0, tagRole).value<std::shared_ptr<FontTagItem>>();
}

} // namespace client
