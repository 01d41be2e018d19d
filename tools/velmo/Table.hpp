#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmo {

/// Text in columns for people: each column is as wide as its widest cell, counted in columns of the terminal,
/// so that wide (CJK) characters line up. Nothing is cut: a very long cell
/// sticks out of its row.
class Table {
public:
    enum class Align : std::uint8_t { left, right };

    struct Column {
        std::string title;
        Align align = Align::left;
    };

    explicit Table(std::vector<Column> columns);

    /// Adds a row; a cell for each column. Cells are made printable.
    void add(std::vector<std::string> cells, bool isEmphasised = false);

    /// The titles and the rows, a line each.
    std::string text() const;

private:
    struct Row {
        std::vector<std::string> cells;
        bool isEmphasised;
    };

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
};

} // namespace velmo
