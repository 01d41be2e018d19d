#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velmo {

/// Text in columns for people: each column is as wide as its widest cell, counted in columns of the
/// terminal, so that wide (CJK) characters line up. Nothing is cut: a very long cell sticks out of
/// its row.
class Table {
public:
    enum class Align : std::uint8_t { left, right };

    struct Column {
        std::string title;
        Align align = Align::left;
    };

    /// A text, and a part of it, in bytes, that is highlighted on a terminal.
    struct Cell {
        // NOLINTBEGIN(google-explicit-constructor): a text is a cell
        Cell(std::string whole, std::size_t highlightBegin = 0, std::size_t highlightEnd = 0)
            : text(std::move(whole)), begin(highlightBegin), end(highlightEnd) {}
        Cell(const char* whole) : Cell(std::string(whole)) {}
        // NOLINTEND(google-explicit-constructor)

        std::string text;
        std::size_t begin;
        std::size_t end;
    };

    explicit Table(std::vector<Column> columns);

    /// Adds a row; a cell for each column. Cells are made printable.
    void add(std::vector<Cell> cells, bool isEmphasised = false);

    /// The titles and the rows, a line each.
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
