#pragma once

#include "Catalogue.hpp"

#include <QTreeWidget>

#include <functional>

namespace client {

/// The tags of a catalogue, to tick. Calls `onTick` when the user changes a tick.
class TagPanel : public QTreeWidget {
public:
    explicit TagPanel(QWidget* parent);
    std::function<void(FontTagItem&, bool isTicked)> onTick;

    /// Shows the tags that have fonts.
    void showTags(const Tags& tags);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void add(QTreeWidgetItem& group, const Tags& tags);

    Tags m_shown; // the owners of the rows' tags
};

} // namespace client
