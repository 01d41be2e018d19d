#include "Table.hpp"

#include "Terminal.hpp"

#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>

namespace velmo {

using PerchAppLibrary::text::columnCount;

namespace {

/// A wider cell does not widen its column; it shifts the rest of its row.
constexpr std::size_t maxColumnWidth = 80;

constexpr std::size_t rowsInBatch = 1000;

/// Returns the cell with printable() text and the new position of its highlighted part.
Table::Cell printableCell(const Table::Cell& cell) {
    const std::string_view text = cell.text;
    std::string shown = printable(text.substr(0, cell.begin));
    const std::size_t begin = shown.size();
    shown += printable(text.substr(cell.begin, cell.end - cell.begin));
    const std::size_t end = shown.size();
    return {shown + printable(text.substr(cell.end)), begin, end};
}

std::string withHighlight(const Table::Cell& cell) {
    if (cell.begin == cell.end)
        return cell.text;
    return cell.text.substr(0, cell.begin) +
           highlighted(cell.text.substr(cell.begin, cell.end - cell.begin)) +
           cell.text.substr(cell.end);
}

} // namespace

Table::Table(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size()) {
    std::vector<Cell> titles;
    titles.reserve(m_columns.size());
    for (const Column& column : m_columns)
        titles.emplace_back(column.title);
    add(std::move(titles), true);
}

void Table::add(std::vector<Cell> cells, bool isEmphasised) {
    for (Cell& cell : cells)
        cell = printableCell(cell);
    for (std::size_t column = 0; column < m_widths.size(); ++column)
        if (const std::size_t width = columnCount(cells[column].text); width <= maxColumnWidth)
            m_widths[column] = std::max(m_widths[column], width);
    m_rows.push_back({std::move(cells), isEmphasised});
    if (m_rows.size() == rowsInBatch)
        print();
}

void Table::print() {
    std::string text;
    for (const Row& row : m_rows) {
        std::string line;
        for (std::size_t column = 0; column < m_widths.size(); ++column) {
            const std::string cell = withHighlight(row.cells[column]);
            const std::size_t width = columnCount(row.cells[column].text);
            const std::string padding(m_widths[column] - std::min(width, m_widths[column]), ' ');
            line += m_columns[column].align == Align::left ? cell + padding : padding + cell;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += (row.isEmphasised ? bold(line) : line) + "\n";
    }
    m_rows.clear();
    velmo::print(text);
}

} // namespace velmo
