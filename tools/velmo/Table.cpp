#include "Table.hpp"

#include "Terminal.hpp"

#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>

namespace velmo {

using PerchAppLibrary::text::columnCount;

namespace {

/// A wider cell does not widen its column; it shifts the rest of its row.
constexpr std::size_t maxColumnWidth = 80;

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

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {
    std::vector<Cell> titles;
    titles.reserve(m_columns.size());
    for (const Column& column : m_columns)
        titles.emplace_back(column.title);
    add(std::move(titles), true);
}

void Table::add(std::vector<Cell> cells, bool isEmphasised) {
    for (Cell& cell : cells)
        cell = printableCell(cell);
    m_rows.push_back({std::move(cells), isEmphasised});
}

std::string Table::text() const {
    std::vector<std::size_t> widths(m_columns.size());
    for (const Row& row : m_rows)
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (const std::size_t width = columnCount(row.cells[column].text);
                width <= maxColumnWidth)
                widths[column] = std::max(widths[column], width);
    std::string text;
    for (const Row& row : m_rows) {
        std::string line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string cell = withHighlight(row.cells[column]);
            const std::size_t width = columnCount(row.cells[column].text);
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
