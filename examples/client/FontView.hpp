#pragma once

#include <QTreeView>

namespace client {

/// Shows a FontModel, with the found parts marked.
class FontView : public QTreeView {
public:
    explicit FontView(QAbstractItemModel& model);
};

} // namespace client
