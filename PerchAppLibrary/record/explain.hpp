#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What filling records from a document leaves out. Filling itself reports nothing: a value that
/// does not convert, or under an unknown key, keeps the default.
namespace PerchAppLibrary {

/// Values of a document that filling ignores for one reason: all under one key of one class.
struct Mismatch {
    enum class Reason : std::uint8_t {
        unknownKey,   ///< no property has this name
        repeatedKey,  ///< a later member of the object has the same key
        notSettable,  ///< the property is computed or a constant
        notConverted, ///< the value does not convert to the property's type
        noRecord,     ///< the document, or an element of a list, is no object or list
    };
    Reason reason;
    std::string place;    ///< class and key: "FontItem.Tags"; for noRecord, the class
    std::string found;    ///< the kind of the values: "String", "array with String"
    std::string expected; ///< the kind of the property; of an unknown key, a similar name, or empty
    std::string path;     ///< where the first value is: "[3].Children[0].Tags"
    std::size_t count = 1;

    /// Returns a sentence in English.
    std::string text() const;
};

/// The result of explain().
struct Explanation {
    /// One entry for each place, reason and kind of value, in the order of their first values. At
    /// most 1,000; a hostile document may have a new key in each object.
    std::vector<Mismatch> mismatches;
    std::size_t used = 0;    ///< number of values that filling stores, arrays of records aside
    std::size_t ignored = 0; ///< number of values that it ignores

    /// Whether most values are ignored, as for a document of another type.
    bool isOfOtherType() const noexcept { return ignored > used; }
};

/// Walks a document beside the schema of its records. For `isList`, the document is an array of
/// records. A null counts as a missing value, and a value that converts as used, even if it is of
/// another kind ("7" for an Int). Does not see what an override of the mapping reads; of a class
/// with one, unknown keys are not reported. Visits at most `maximum` records. Linear.
Explanation explain(const JSON& document, const RecordSchema& schema, bool isList,
                    std::size_t maximum = static_cast<std::size_t>(-1));

/// Returns the schema of a class of records.
template <std::derived_from<BaseEntity> Record>
const RecordSchema& schemaOf() {
    return std::make_shared<Concrete<Record>>()->schema();
}

/// Explains what T::parse() ignores, where T is a class of records or a list wrapper.
///
///     for (const Mismatch& each : explain<FontList>(JSON::parse(text)).mismatches)
///         log(each.text());
template <class T>
Explanation explain(const JSON& document, std::size_t maximum = static_cast<std::size_t>(-1)) {
    if constexpr (std::derived_from<T, BaseEntity>)
        return explain(document, schemaOf<T>(), false, maximum);
    else
        return explain(document, schemaOf<typename T::value_type::element_type>(), true, maximum);
}

} // namespace PerchAppLibrary
