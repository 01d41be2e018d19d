#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>

namespace VelmoCloudEntity {

/// How a list wrapper is made from a text: from a document, or directly. Use the latter only for
/// classes whose constructors and destructors have no visible effect, such as those of this
/// library, since it may make records and destroy them before it finds a fault.
enum class Parsing { document, direct };

/// The base class of the list wrappers: an array of records that is read from a JSON array. Copies
/// share the records. A list is a range of its records:
///
///     for (const auto& font : FontList::parse(text))
///
/// `List` is the class of the wrapper.
template <class List, class Item, Elements which = Elements::all>
class RecordRange {
public:
    /// An empty list.
    RecordRange() = default;

    /// Makes one record for each element of a JSON array, in order; with Elements::objects, for
    /// each element that is an object. Any other value gives an empty list. Takes only a JSON: pass
    /// a text to parse().
    template <std::same_as<PerchAppLibrary::JSON> JSON>
    explicit RecordRange(const JSON& json) : m_records(makeRecords<Item>(json, which)) {}

    template <PerchAppLibrary::JSONScalar T>
    explicit RecordRange(const T& value) = delete;

    /// Returns List(JSON::parse(text, limits)). Throws JSON::ParseError if the text is malformed. A
    /// list with `parsing = Parsing::direct` takes less time and memory, since it mostly makes no
    /// document.
    template <class Text>
    static List parse(Text&& text, const PerchAppLibrary::JSON::Limits& limits = {}) {
        if constexpr (List::parsing == Parsing::direct) {
            static_assert(PerchAppLibrary::detail::isFilledByBase<Item>);
            PerchAppLibrary::detail::RecordsSink<Item> sink;
            PerchAppLibrary::detail::parseRecords(std::forward<Text>(text),
                                                  which == Elements::objects, sink, limits);
            List list;
            list.m_records = std::move(sink.records);
            return list;
        } else {
            return List(PerchAppLibrary::JSON::parse(std::forward<Text>(text), limits));
        }
    }

    /// How parse() works. A list redeclares it.
    static constexpr Parsing parsing = Parsing::document;

    using value_type = std::shared_ptr<Item>;

    /// Deleted for a temporary, whose records would be gone. `for (... : List::parse(text))` works.
    auto begin() const& noexcept { return m_records.begin(); }
    auto end() const& noexcept { return m_records.end(); }
    void begin() const&& = delete;
    void end() const&& = delete;
    std::size_t size() const noexcept { return m_records.size(); }
    bool empty() const noexcept { return m_records.empty(); }

    /// Returns the record at this index. Requires an index below size().
    const std::shared_ptr<Item>& operator[](std::size_t index) const& noexcept {
        return m_records[index];
    }
    std::shared_ptr<Item> operator[](std::size_t index) && noexcept {
        return std::move(m_records[index]);
    }

protected:
    Records<Item> m_records;
};

/// A list wrapper whose array is named `List`.
template <class ListClass, class Item, Elements which = Elements::all>
class RecordList : public RecordRange<ListClass, Item, which> {
public:
    using RecordRange<ListClass, Item, which>::RecordRange;

    /// Returns the records, in order: a reference into the list, or the array itself if the list is
    /// a temporary.
    const Records<Item>& List() const& noexcept { return this->m_records; }
    Records<Item> List() && noexcept { return std::move(this->m_records); }

    /// Replaces the records.
    void setList(Records<Item> newList) { this->m_records = std::move(newList); }
};

} // namespace VelmoCloudEntity
