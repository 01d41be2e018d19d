#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace PerchAppLibrary {

class BaseEntity;
struct Excluded;
class RecordSchema;
struct Property;

/// Writes the stored properties of the records of one class, in declaration order. Immutable.
class RecordWriter {
public:
    /// Requires that the schema outlives the writer. Ends the process (fatalError) if an excluded
    /// name is not a stored property's, or comes twice.
    RecordWriter(const RecordSchema& schema, const Excluded& excluded);

    /// Appends the members of a JSON object, without braces: `"Id":7,"Name":"x"`. Equals the text
    /// of dictionary(), but is faster.
    void write(const BaseEntity& record, std::string& text) const;

    /// Returns a dictionary of the properties, with room for one more.
    Dictionary dictionary(const BaseEntity& record, const Storage& storage) const;

private:
    template <class Sink>
    void writeTo(const BaseEntity& record, Sink sink) const;

    const RecordSchema& m_schema;
    std::vector<const Property*> m_members; // the properties to write, in their order
};

/// Reserves memory for the text of a list of `count` records. Call after appending each record,
/// with the number of records so far. After a part of the list, reserves what the rest takes at the
/// size of this part, since growing a text step by step copies it to new pages each time. Reserves
/// at most nine times the size of the text. After the last record, gives memory back if over half
/// of it is unused.
void reserveForList(std::string& text, std::size_t written, std::size_t count);

} // namespace PerchAppLibrary
