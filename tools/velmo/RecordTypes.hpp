#pragma once

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>

#include <string>
#include <vector>

namespace velmo {

/// A type of record or list that the library can read.
struct RecordType {
    std::string name;

    /// The properties of a record of the type, or of each in a list, filled from the document.
    PerchAppLibrary::Value (*read)(const PerchAppLibrary::JSON&);

    /// The stored properties that the type has beside those of every record, in their order: an
    /// array of
    /// {"name", "kind", "default"}.
    PerchAppLibrary::ValueArray (*properties)();
};

/// All of them, by name.
const std::vector<RecordType>& recordTypes();

/// The type that the text names, whole or by its beginning, in small or capital letters. Throws
/// Failure, which says what is near, when there is none or several.
const RecordType& recordType(const std::string& text);

} // namespace velmo
