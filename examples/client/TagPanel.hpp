#pragma once

#include "Catalogue.hpp"

#include <QTreeWidget>

#include <functional>

namespace client {

/// The tags of a catalogue, to tick. Calls `onChange` after the user has changed a tick.
class TagPanel : public QTreeWidget {
public:
    TagPanel(Catalogue& catalogue, std::function<void()> onChange);

    /// Shows the tags that have fonts. Call it after the catalogue's tags have changed.
    void showTags();

private:
    void add(QTreeWidgetItem& group, const Tags& tags);

    Catalogue& m_catalogue;
};

} // namespace client
