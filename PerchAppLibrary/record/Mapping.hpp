#pragma once

#include <PerchAppLibrary/JSON.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// How a JSON value becomes the value of a property.
///
/// Conversion is lenient in kind and exact in value: it succeeds where the property can hold what the JSON says, and
/// otherwise does not take place, so that the property keeps the value it has.
///
///   JSON \ property  | Int                 | Bool        | Float            | String           | array of these
///   -----------------|---------------------|-------------|------------------|------------------|----------------
///   integer          | within 64 bits      | 0 and 1     | yes              | its digits       | -
///   other number     | integral, exact     | 0.0 and 1.0 | in range         | shortest decimal | -
///   string           | an integer's digits | see below   | a decimal number | as it is         | -
///   true, false      | 1, 0                | yes         | 1, 0             | "true", "false"  | -
///   array            | -                   | -           | -                | -                | all fit
///   object           | -                   | -           | -                | -                | -
///   null             | -                   | -           | -                | -                | -
///
/// - Int: an integer in text is an optional "-" and decimal digits, nothing else, in the range of 64 bits. A number such
///   as 3.0 or 1e3 is integral; from 2^53 on one such number could stand for several integers, so none converts.
/// - Bool in text: "true" and "false" in any case of their letters, "0" and "1".
/// - Float: rounded to the nearest 32-bit float; out of range is what would become infinite, or zero without being zero.
///   A number in text is an optional "-", decimal digits, and a point and an exponent if need be.
/// - String: an integer within 64 bits (signed or unsigned) keeps its digits. Any other number is written as the shortest
///   decimal that gives it back, with ".0" when it is integral ("22.0"); from 2^63 on it has been rounded, and does
///   not convert.
/// - An array of Int or of String is converted as a whole, element by element by the columns above, or not at all.
/// - An optional String takes what a String takes, and is absent after a null.
/// - A JSON takes any value as it is, a null too, in a document of its own.
/// - Arrays of records are never filled here: the record makes its nested records itself.
namespace PerchAppLibrary {

/// The JSON as a T by the table above, or none where the table says "-" or sets a condition that does not hold.
/// T is std::int64_t, bool, float, std::string, or a std::vector of std::int64_t or std::string.
template <class T>
std::optional<T> convert(const JSON& json);

extern template std::optional<std::int64_t> convert(const JSON&);
extern template std::optional<bool> convert(const JSON&);
extern template std::optional<float> convert(const JSON&);
extern template std::optional<std::string> convert(const JSON&);
extern template std::optional<std::vector<std::int64_t>> convert(const JSON&);
extern template std::optional<std::vector<std::string>> convert(const JSON&);

} // namespace PerchAppLibrary
