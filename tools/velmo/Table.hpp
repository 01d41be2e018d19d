#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velmo {

/// A table as text. Each column is as wide as its widest cell, counted in columns of the terminal,
/// so that wide (CJK) characters are aligned. No cell is cut: a very wide one shifts the rest of
/// its row.
class Table {
public:
    enum class Align : std::uint8_t { left, right };

    struct Column {
        std::string title;
        Align align = Align::left;
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

    /// Adds a row. Requires one cell for each column. Cells are made printable.
    void add(std::vector<Cell> cells, bool isEmphasised = false);

    /// Returns the titles and the rows, one line each.
    std::string text() const;

private:
    struct Row {
        std::vector<Cell> cells;
        bool isEmphasised;
    };

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
};

} // namespace velmo
