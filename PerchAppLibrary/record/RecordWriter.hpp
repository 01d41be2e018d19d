#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

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

} // namespace PerchAppLibrary
