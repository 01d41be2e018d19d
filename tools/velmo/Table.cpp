#include "Table.hpp"

#include "Terminal.hpp"

#include <PerchAppLibrary/text/Text.hpp>

#include <algorithm>

namespace velmo {

using PerchAppLibrary::text::columnCount;

namespace {

/// A wider cell does not widen its column; it shifts the rest of its row.
constexpr std::size_t maxColumnWidth = 80;

/// No column is cut to less.
constexpr std::size_t leastWidth = 8;

/// The columns between two cells.
constexpr std::size_t gap = 2;

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

/// Returns the longest begin of the text that fits in the columns.
std::string_view fitting(std::string_view text, std::size_t columns) {
    std::size_t size = 0;
    std::size_t width = 0;
    while (size < text.size()) {
        const std::string_view character = PerchAppLibrary::text::firstCodePoint(text.substr(size));
        width += columnCount(character);
        if (width > columns)
            break;
        size += character.size();
    }
    return text.substr(0, size);
}

/// Returns the cell without what does not fit in the columns, with an ellipsis in its place. What
/// stands before the highlighted part goes first if that would be cut off.
Table::Cell cut(Table::Cell cell, std::size_t columns) {
    const std::string ellipsis = "…";
    if (columnCount(cell.text) > columns &&
        columnCount(std::string_view(cell.text).substr(0, cell.end)) >= columns)
        cell = {ellipsis + cell.text.substr(cell.begin), ellipsis.size(),
                ellipsis.size() + cell.end - cell.begin};
    if (columnCount(cell.text) <= columns)
        return cell;
    const std::string shown(fitting(cell.text, columns - 1));
    return {shown + ellipsis, std::min(cell.begin, shown.size()), std::min(cell.end, shown.size())};
}

} // namespace

Table::Table(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size()), m_isDropped(m_columns.size()) {
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

std::vector<std::size_t> Table::fittingWidths() {
    std::vector<std::size_t> widths = m_widths;
    const std::size_t available = terminalWidth();
    if (available == 0)
        return widths;
    const auto excess = [&] {
        std::size_t width = 0;
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (!m_isDropped[column])
                width += (width == 0 ? 0 : gap) + widths[column];
        return width - std::min(width, available);
    };
    for (std::size_t column = widths.size(); column-- > 0 && !m_isBegun;)
        m_isDropped[column] = m_columns[column].narrow == Narrow::drop && excess() > 0;
    while (excess() > 0) {
        std::size_t* widest = nullptr;
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (m_columns[column].narrow == Narrow::cut &&
                (widest == nullptr || widths[column] > *widest))
                widest = &widths[column];
        if (widest == nullptr || *widest <= leastWidth)
            break;
        --*widest;
    }
    return widths;
}

std::string Table::lineOf(const Row& row, const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (m_isDropped[column])
            continue;
        const bool isCut = m_columns[column].narrow == Narrow::cut && terminalWidth() != 0;
        const Cell cell = isCut ? cut(row.cells[column], widths[column]) : row.cells[column];
        const std::size_t width = columnCount(cell.text);
        const std::string padding(widths[column] - std::min(width, widths[column]), ' ');
        const std::string text = withHighlight(cell);
        line += m_columns[column].align == Align::left ? text + padding : padding + text;
        line.append(gap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return row.isEmphasised ? bold(line) : line;
}

void Table::print() {
    const std::vector<std::size_t> widths = fittingWidths();
    std::string text;
    for (const Row& row : m_rows)
        text += lineOf(row, widths) + "\n";
    m_rows.clear();
    m_isBegun = true;
    velmo::print(text);
}

} // namespace velmo
