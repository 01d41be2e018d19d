#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <string>
#include <vector>

namespace PerchAppLibrary {

class BaseEntity;
struct Excluded;
class RecordSchema;
struct Property;

/// Writes the stored properties of the records of one class, in their order.
class RecordWriter {
public:
    /// Requires that the schema outlives the writer. Ends the process (fatalError) if an excluded
    /// name is not that of a stored property.
    RecordWriter(const RecordSchema& schema, const Excluded& excluded);

    /// Adds the properties to a dictionary that has none of their names.
    void write(const BaseEntity& record, Dictionary& dictionary) const;

    /// Appends the members of a JSON object, without braces: `"Id":7,"Name":"x"`. Gives the text of
    /// the dictionary, in a fraction of the time.
    void write(const BaseEntity& record, std::string& text) const;

    /// Returns a dictionary of the properties, with room for one more.
    Dictionary dictionary(const BaseEntity& record, const Storage& storage) const;

private:
    template <class Sink>
    void writeTo(const BaseEntity& record, Sink sink) const;

    const RecordSchema& m_schema;
    std::vector<const Property*> m_members;
};

} // namespace PerchAppLibrary
