#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/BaseEntity.hpp>
#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What filling records from a document leaves out. Filling itself reports nothing: a value that
/// does not convert, or under an unknown key, changes nothing.
namespace PerchAppLibrary {

/// Values of a document that filling ignores for one reason: all that are under one key of one
/// class. Its texts come from the document, but are safe to show: long ones are
/// shortened, and control characters are escaped.
struct Mismatch {
    enum class Reason : std::uint8_t {
        unknownKey,   ///< no property has this name
        repeatedKey,  ///< a later member of the object has this key
        notSettable,  ///< the property is computed, or a constant with another value
        notConverted, ///< the value does not convert to the property's type
        noRecord,     ///< the document, or an element of a list, is no object or list
    };
    Reason reason;
    /// Class and key, "FontItem.Tags"; for noRecord "FontItem" or "list of FontItem".
    std::string place;
    std::string found;    ///< the kind of the first value: "String", "array with String"
    std::string expected; ///< the kind of the property; of an unknown key, a similar name or empty
    std::string path;     ///< where the first value is: "[3].Children[0].Tags"; empty: the document
    std::string value;    ///< the first value: `["x"]`
    std::size_t count = 1;

    /// Returns a sentence in English, of one line.
    std::string text() const;
};

/// The result of explain().
struct Explanation {
    /// One entry for each class, key and reason, in the order of their first values. At most 1,000,
    /// since a hostile document may have a new key in each object.
    std::vector<Mismatch> mismatches;

    /// The number of values that filling stores. An array of records, or a nested record, counts as
    /// the values in it.
    std::size_t used = 0;

    /// The number of values that filling ignores. An array or object counts as one.
    std::size_t ignored = 0;

    /// Returns whether most values are ignored, as those of a document of another type are. False
    /// for null, `{}` and `[]`, which have no values.
    bool isOfOtherType() const noexcept { return ignored > used; }
};

/// The default of the parameter `maximum` below.
inline constexpr std::size_t allRecords = static_cast<std::size_t>(-1);

/// Explains what filling ignores of a document: of a record of the class of the schema, or for
/// `isList` of an array of them. Looks at the first `maximum` elements of lists.
///
/// Every other value in a record is used: to change it changes the record. Three kinds count as
/// neither: a null, which stands for a missing value, an empty document, and a constant's own
/// value. Heeds no override of setValue: what a class does with more keys, or fewer, is not known.
/// Of a class that overrides the mapping, unknown keys are therefore not reported.
///
/// Linear. Recurses once for each level of records. Throws only std::bad_alloc.
Explanation explain(const JSON& document, const RecordSchema& schema, bool isList,
                    std::size_t maximum = allRecords);

/// Explains what T::parse() ignores, where T is a class of records or a list wrapper.
///
///     for (const Mismatch& each : explain<FontList>(JSON::parse(text)).mismatches)
///         log(each.text());
template <class T>
Explanation explain(const JSON& document, std::size_t maximum = allRecords) {
    if constexpr (std::derived_from<T, BaseEntity>)
        return explain(document, RecordAccess::schema<T>(), false, maximum);
    else
        return explain(document, RecordAccess::schema<typename T::value_type::element_type>(), true,
                       maximum);
}

} // namespace PerchAppLibrary
