#pragma once

#include "Catalogue.hpp"

#include <QTreeWidgetItem>

namespace client {

/// Shows the tags that have fonts as rows to tick. A row keeps its tag: tagOf() returns it.
void showTags(QTreeWidget& view, const Tags& tags);

FontTagItem& tagOf(const QTreeWidgetItem& row);

} // namespace client
