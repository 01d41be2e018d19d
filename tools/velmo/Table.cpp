#include "Table.hpp"

#include "Terminal.hpp"

#include <PerchAppLibrary/platform/Text.hpp>

#include <algorithm>

namespace velmo {

using PerchAppLibrary::text::columnCount;

namespace {

/// A longer cell is shown whole, and moves the rest of its own row only.
constexpr std::size_t widestColumn = 80;

} // namespace

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {
    std::vector<std::string> titles;
    titles.reserve(m_columns.size());
    for (const Column& column : m_columns)
        titles.push_back(column.title);
    add(std::move(titles), true);
}

void Table::add(std::vector<std::string> cells, bool isEmphasised) {
    for (std::string& cell : cells)
        cell = printable(cell);
    m_rows.push_back({std::move(cells), isEmphasised});
}

std::string Table::text() const {
    std::vector<std::size_t> widths(m_columns.size());
    for (const Row& row : m_rows)
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (const std::size_t width = columnCount(row.cells[column]); width <= widestColumn)
                widths[column] = std::max(widths[column], width);
    std::string text;
    for (const Row& row : m_rows) {
        std::string line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string& cell = row.cells[column];
            const std::size_t width = columnCount(cell);
            const std::string padding(widths[column] - std::min(width, widths[column]), ' ');
            line += m_columns[column].align == Align::left ? cell + padding : padding + cell;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += (row.isEmphasised ? bold(line) : line) + "\n";
    }
    return text;
}

} // namespace velmo
