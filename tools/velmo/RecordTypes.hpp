#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <string>
#include <vector>

namespace velmo {

/// A type of record or list that the library can read.
struct RecordType {
    std::string name;
    std::string item; ///< the name of the type of a list's records, empty for a record

    /// Reads a document: returns the stored properties of the record, or an array with those of
    /// each record of the list.
    PerchAppLibrary::Value (*read)(const PerchAppLibrary::JSON&);

    /// Returns the schema of the record or of a list's records.
    const PerchAppLibrary::RecordSchema& (*schema)();

    /// Returns the stored properties of the type without those of BaseEntity, in their order: an
    /// array of {"name", "kind", "default"}.
    PerchAppLibrary::ValueArray (*properties)();
};

/// Returns all types, sorted by name.
const std::vector<RecordType>& recordTypes();

/// Returns the names of recordTypes().
std::vector<std::string> namesOfTypes();

/// Returns the type with this name, or the only one whose name begins with the text. Ignores case.
/// Throws Failure, with a suggestion, if there is none, or with the names if there are several.
const RecordType& recordType(const std::string& text);

} // namespace velmo
