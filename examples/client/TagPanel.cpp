#include "TagPanel.hpp"

#include "FontView.hpp"
#include "Load.hpp"

#include <QSignalBlocker>

namespace client {
namespace {

constexpr int tagRole = Qt::UserRole; // the FontTagItem of a row, which the catalogue owns

QString labelOf(const FontTagItem& tag) {
    const QString name = shown(tag.Name());
    if (!tag.IsGroup())
        return name + QString(" (%1)").arg(tag.FontIdList().size());
    const char* const filter = tag.SubTagFilterType() == "And" ? ": all of" : ": any of";
    return name + " " + shown(tag.Alias()) + filter;
}

} // namespace

TagPanel::TagPanel(Catalogue& catalogue, std::function<void()> onChange) : m_catalogue(catalogue) {
    setObjectName("tags");
    setAccessibleName("Tags");
    setHeaderHidden(true);
    setIndentation(16);
    setItemDelegate(new RowDelegate(this));
    connect(this, &QTreeWidget::itemChanged, this, [this, onChange](QTreeWidgetItem* row) {
        auto* const tag = static_cast<FontTagItem*>(row->data(0, tagRole).value<void*>());
        m_catalogue.tick(*tag, row->checkState(0) == Qt::Checked);
        onChange();
    });
}

void TagPanel::showTags() {
    const QSignalBlocker noTick(this);
    clear();
    add(*invisibleRootItem(), m_catalogue.tags());
    expandAll();
}

void TagPanel::add(QTreeWidgetItem& group, const Tags& tags) {
    for (const auto& tag : tags) {
        if (!tag->IsGroup() && tag->FontIdList().empty())
            continue;
        auto* const row = new QTreeWidgetItem(&group, {labelOf(*tag)});
        row->setData(0, tagRole, QVariant::fromValue<void*>(tag.get()));
        if (tag->IsGroup())
            add(*row, tag->Children());
        else
            row->setCheckState(0, tag->IsChecked() ? Qt::Checked : Qt::Unchecked);
    }
}

} // namespace client
