#pragma once

#include "Catalogue.hpp"

#include <PerchAppLibrary/text/Needle.hpp>

#include <QAbstractItemModel>

#include <map>

namespace client {

/// The rows of the font view: a tree of fonts, or what a key found, in two sections that each begin
/// with a heading.
///
/// Texts are read from the records when the view draws a row. The view asks for more rows when it
/// is scrolled to the last one.
class FontModel : public QAbstractItemModel {
public:
    enum Column { name, family, file, activated, favourite };
    static constexpr int columns = favourite + 1;

    /// Role of the found parts of a text: where each begins and ends, in UTF-16 code units.
    static constexpr int foundParts = Qt::UserRole;
    using Parts = QList<std::pair<int, int>>;

    /// Shows what was found with this key.
    void setFound(Found found, const std::string& key);

    /// Returns the font or group of a row, or null for a heading. Requires a valid index.
    static const std::shared_ptr<FontItem>& fontAt(const QModelIndex& index);

    /// Returns the first row that is not a heading, or an invalid index.
    QModelIndex firstFont() const { return index(m_key.empty() ? 0 : 1, 0); }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& /*parent*/ = {}) const override { return columns; }
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// The rows below the root, or below a group that the view has opened. Each index points to the
    /// level that its row is in.
    struct Level {
        Level* outer; // null for the root
        int row;      // of the group in the outer level
        Fonts fonts;
        int shown;                                    // number of rows that the view has got
        std::map<int, std::unique_ptr<Level>> opened; // by row
    };
    static std::unique_ptr<Level> levelOf(Level* outer, int row, Fonts fonts);
    Level& levelBelow(const QModelIndex& parent) const;
    Parts partsFound(const QModelIndex& index) const;
    QString headingOf(int row) const;

    std::unique_ptr<Level> m_root = levelOf(nullptr, 0, {});
    QString m_keyText;
    std::size_t m_wholeKey = 0;                              // number of fonts in the first section
    std::vector<PerchAppLibrary::text::Needle> m_key;        // one, or none without a key
    std::vector<PerchAppLibrary::text::Needle> m_characters; // of the key
};

} // namespace client
