#include "FontModel.hpp"

#include "Texts.hpp"

#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/text/Text.hpp>

#include <QLocale>

namespace client {
namespace {

constexpr int batch = 200; // rows, more than a window shows

bool isMark(int column) { return column == FontModel::activated || column == FontModel::favourite; }

std::string textOf(const FontItem& font, int column) {
    switch (column) {
    case FontModel::name:
        return font.DisplayName();
    case FontModel::family:
        return font.ProductSetName();
    case FontModel::file:
        return font.ProductFileName();
    default:
        return {};
    }
}

Qt::CheckState markOf(const FontItem& font, int column) {
    if (column == FontModel::favourite)
        return font.IsFavorited() ? Qt::Checked : Qt::Unchecked;
    if (!font.IsGroup())
        return font.IsActivated() ? Qt::Checked : Qt::Unchecked;
    const auto count = VelmoCloudEntity::FontList::getActivatedFontCount(font.Children());
    if (count == 0)
        return Qt::Unchecked;
    return font.IsActivated() ? Qt::Checked : Qt::PartiallyChecked;
}

void mark(FontItem& font, int column, bool isMarked) {
    if (column == FontModel::activated)
        font.setActivated(isMarked); // of a group, all members
    else
        font.setIsFavorited(isMarked);
}

} // namespace

std::unique_ptr<FontModel::Level> FontModel::levelOf(Level* outer, int row, Fonts fonts) {
    const auto shown = static_cast<int>(std::min<std::size_t>(fonts.size(), batch));
    return std::make_unique<Level>(Level{outer, row, std::move(fonts), shown, {}});
}

void FontModel::setFound(Found found, const std::string& key) {
    beginResetModel();
    m_keyText = drawable(key, 40);
    m_wholeKey = found.fonts.size();
    Fonts rows = std::move(found.fonts);
    if (!key.empty() && rows.size() + found.byCharacter.size() > 0) {
        rows.insert(rows.begin(), nullptr); // a heading
        if (!found.byCharacter.empty())
            rows.push_back(nullptr);
        rows.insert(rows.end(), std::move_iterator(found.byCharacter.begin()),
                    std::move_iterator(found.byCharacter.end()));
    }
    m_root = levelOf(nullptr, 0, std::move(rows));
    m_key.clear();
    m_characters.clear();
    if (!key.empty())
        m_key.emplace_back(key);
    for (const std::string_view character : VelmoCloudEntity::searchedCharacters(key))
        m_characters.emplace_back(character);
    endResetModel();
}

FontModel::Level& FontModel::levelBelow(const QModelIndex& parent) const {
    if (!parent.isValid())
        return *m_root;
    auto* const level = static_cast<Level*>(parent.internalPointer());
    std::unique_ptr<Level>& below = level->opened[parent.row()];
    if (!below)
        below = levelOf(level, parent.row(), fontAt(parent)->Children());
    return *below;
}

const std::shared_ptr<FontItem>& FontModel::fontAt(const QModelIndex& index) {
    const auto* const level = static_cast<const Level*>(index.internalPointer());
    return level->fonts[static_cast<std::size_t>(index.row())];
}

QModelIndex FontModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0 || column >= columns || row >= rowCount(parent))
        return {};
    return createIndex(row, column, &levelBelow(parent));
}

QModelIndex FontModel::parent(const QModelIndex& child) const {
    if (!child.isValid())
        return {};
    const auto* const level = static_cast<const Level*>(child.internalPointer());
    return level->outer != nullptr ? createIndex(level->row, 0, level->outer) : QModelIndex();
}

int FontModel::rowCount(const QModelIndex& parent) const {
    return hasChildren(parent) ? levelBelow(parent).shown : 0;
}

bool FontModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid())
        return !m_root->fonts.empty();
    const FontItem* const font = fontAt(parent).get();
    return parent.column() == 0 && font != nullptr && font->IsGroup() && !font->Children().empty();
}

bool FontModel::canFetchMore(const QModelIndex& parent) const {
    return hasChildren(parent) && std::cmp_less(rowCount(parent), levelBelow(parent).fonts.size());
}

void FontModel::fetchMore(const QModelIndex& parent) {
    Level& level = levelBelow(parent);
    const int more = std::min(batch, static_cast<int>(level.fonts.size()) - level.shown);
    beginInsertRows(parent, level.shown, level.shown + more - 1);
    level.shown += more;
    endInsertRows();
}

QVariant FontModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (fontAt(index) == nullptr)
        return role == Qt::DisplayRole ? headingOf(index.row()) : QVariant();
    const FontItem& font = *fontAt(index);
    if (role == Qt::DisplayRole && !isMark(index.column()))
        return drawable(textOf(font, index.column()));
    if (role == Qt::CheckStateRole && (flags(index) & Qt::ItemIsUserCheckable) != 0)
        return markOf(font, index.column());
    if (role == foundParts && !isMark(index.column()))
        return QVariant::fromValue(partsFound(index));
    return {};
}

QString FontModel::headingOf(int row) const {
    if (row == 0 && m_wholeKey == 0)
        return QString("No name with \u201C%1\u201D").arg(m_keyText);
    const std::size_t count = row == 0 ? m_wholeKey : m_root->fonts.size() - m_wholeKey - 2;
    const char* const title = row == 0 ? "Names with" : "Single characters of";
    return QString("%1 \u201C%2\u201D (%3)")
        .arg(title, m_keyText, QLocale().toString(static_cast<qulonglong>(count)));
}

FontModel::Parts FontModel::partsFound(const QModelIndex& index) const {
    const std::string text = drawable(textOf(*fontAt(index), index.column())).toStdString();
    const auto unitsBefore = [&text](std::size_t end) {
        return static_cast<int>(PerchAppLibrary::text::utf16Length({text.data(), end}));
    };
    Parts parts;
    for (const auto& needle : std::cmp_less_equal(index.row(), m_wholeKey) ? m_key : m_characters)
        if (const auto part = needle.partOf(text))
            parts.emplace_back(unitsBefore(part->begin), unitsBefore(part->end));
    return parts;
}

bool FontModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || (flags(index) & Qt::ItemIsUserCheckable) == 0)
        return false;
    mark(*fontAt(index), index.column(), value.toInt() == Qt::Checked);
    // A font may be in several rows, and a group has a mark that its members make.
    emit dataChanged(this->index(0, activated), this->index(m_root->shown - 1, favourite));
    return true;
}

QVariant FontModel::headerData(int section, Qt::Orientation orientation, int role) const {
    constexpr std::array titles{"Name", "Family", "File", "Activated", "Favourite"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QString(titles[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags FontModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!index.isValid())
        return flags;
    if (fontAt(index) == nullptr)
        return Qt::ItemNeverHasChildren; // a heading: the keyboard passes it
    const bool isGroup = fontAt(index)->IsGroup();
    // A group is activated if its members are. It is no favourite itself.
    if (index.column() == activated || (index.column() == favourite && !isGroup))
        flags |= Qt::ItemIsUserCheckable;
    return isGroup ? flags : flags | Qt::ItemNeverHasChildren;
}

} // namespace client
