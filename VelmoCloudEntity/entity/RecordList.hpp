#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <concepts>
#include <cstddef>
#include <utility>

namespace VelmoCloudEntity {

/// What the list wrappers have in common: an array of records that is read from a JSON array. A
/// plain value; copies share the records. It is a range of its records:
///
///     for (const auto& font : FontList::parse(text))
///
/// List is the class of the wrapper.
template <class List, class Item, Elements which = Elements::all>
class RecordRange {
public:
    /// An empty list.
    RecordRange() = default;

    /// Makes one record for each element of a JSON array, or for each that is an object, in order.
    /// Empty for any other value. Takes exactly a JSON, since a text would become a JSON string.
    template <std::same_as<PerchAppLibrary::JSON> JSON>
    explicit RecordRange(const JSON& json) : m_records(makeRecords<Item>(json, which)) {}

    template <PerchAppLibrary::JSONScalar T>
    explicit RecordRange(const T& value) = delete;

    /// Returns List(JSON::parse(text)). Throws JSON::ParseError as JSON::parse() does.
    template <class Text>
    static List parse(Text&& text) {
        return List(PerchAppLibrary::JSON::parse(std::forward<Text>(text)));
    }

    auto begin() const noexcept { return m_records.begin(); }
    auto end() const noexcept { return m_records.end(); }
    std::size_t size() const noexcept { return m_records.size(); }
    bool empty() const noexcept { return m_records.empty(); }

    /// Requires an index below size().
    const std::shared_ptr<Item>& operator[](std::size_t index) const noexcept {
        return m_records[index];
    }

protected:
    Records<Item> m_records;
};

/// A list wrapper whose array is named `List`.
template <class ListClass, class Item, Elements which = Elements::all>
class RecordList : public RecordRange<ListClass, Item, which> {
public:
    using RecordRange<ListClass, Item, which>::RecordRange;

    /// Returns the records, in order. The array lives as long as the list; a list that is about to
    /// go returns it by value.
    const Records<Item>& List() const& noexcept { return this->m_records; }
    Records<Item> List() && noexcept { return std::move(this->m_records); }

    void setList(Records<Item> newList) { this->m_records = std::move(newList); }
};

} // namespace VelmoCloudEntity
