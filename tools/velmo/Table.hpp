#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velmo {

/// A table on standard output. Each column is as wide as its widest cell, counted in columns of the
/// terminal, so that wide (CJK) characters are aligned. On a terminal, rows that are too long are
/// made to fit by Column::narrow. Otherwise no cell is cut: a very wide one shifts the rest of its
/// row. The rows of a long table are printed in batches, the first ones at once; a column can
/// become wider from batch to batch.
class Table {
public:
    enum class Align : std::uint8_t { left, right };

    /// What becomes of a column if rows do not fit on the terminal.
    enum class Narrow : std::uint8_t {
        keep,
        drop, ///< it is left out, the last one first
        cut,  ///< if dropping is not enough, its long cells are cut, with an ellipsis
    };

    struct Column {
        std::string title;
        Align align = Align::left;
        Narrow narrow = Narrow::keep;
    };

    /// A text with a part, a range of bytes, that is highlighted on a terminal.
    struct Cell {
        // NOLINTBEGIN(google-explicit-constructor): a text converts to a cell
        Cell(std::string whole, std::size_t highlightBegin = 0, std::size_t highlightEnd = 0)
            : text(std::move(whole)), begin(highlightBegin), end(highlightEnd) {}
        Cell(const char* whole) : Cell(std::string(whole)) {}
        // NOLINTEND(google-explicit-constructor)

        std::string text;
        std::size_t begin;
        std::size_t end;
    };

    /// Makes a table without rows.
    explicit Table(std::vector<Column> columns);

    /// Adds a row. Requires one cell for each column. Cells are made printable. Prints the batch of
    /// rows if it is full.
    void add(std::vector<Cell> cells, bool isEmphasised = false);

    /// Prints the pending rows, one line each; the titles before the first row.
    void print();

private:
    struct Row {
        std::vector<Cell> cells;
        bool isEmphasised;
    };

    /// Returns the widths of the columns with which rows fit on the terminal. Drops columns before
    /// the first rows are printed. A dropped column has no width.
    std::vector<std::size_t> fittingWidths();

    std::string lineOf(const Row& row, const std::vector<std::size_t>& widths) const;

    std::vector<Column> m_columns;
    std::vector<std::size_t> m_widths;
    std::vector<bool> m_isDropped; ///< for each column
    std::vector<Row> m_rows;       ///< those that are not printed yet
    bool m_isBegun = false;        ///< whether rows were printed
};

} // namespace velmo
