#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Unicode text, stored as UTF-8.
///
/// Every function takes any bytes: each maximal ill-formed sequence (Unicode Standard, section 3.9)
/// counts as one U+FFFD. Nothing depends on the locale of the process. Each function is linear in
/// the length of its arguments.
namespace PerchAppLibrary::text {

bool isWellFormed(std::string_view text) noexcept;

/// The text with each ill-formed sequence replaced by U+FFFD.
std::string wellFormed(std::string_view text);

/// The full upper-case mapping of the root locale (Unicode Standard, section 3.13): "ß" becomes
/// "SS".
std::string uppercased(std::string_view text);

/// Normalization Form D (UAX #15): two texts are canonically equivalent when these are the same
/// bytes.
std::string decomposed(std::string_view text);

/// Normalization Form C (UAX #15).
std::string composed(std::string_view text);

/// The form in which texts are compared without regard to case: decomposed, upper-cased, decomposed
/// again. The first step keeps the result the same for every canonically equivalent spelling, iota
/// subscripts among them.
std::string folded(std::string_view text);

/// Number of UTF-16 code units.
std::size_t utf16Length(std::string_view text) noexcept;

/// The text between two offsets counted in UTF-16 code units. Half of a surrogate pair that is cut
/// apart becomes U+FFFD; all other bytes are kept as they are. Offsets beyond the end stand for the
/// end.
std::string utf16Substring(std::string_view text, std::size_t begin, std::size_t end);

/// Number of code points.
std::size_t codePointCount(std::string_view text) noexcept;

/// The bytes of the first code point (or ill-formed sequence); empty for an empty text.
std::string_view firstCodePoint(std::string_view text) noexcept;

/// Whether these are the bytes of one control character (general category Cc), which could command
/// a terminal.
bool isControl(std::string_view character) noexcept;

/// Number of user-perceived characters: extended grapheme clusters (UAX #29).
std::size_t graphemeCount(std::string_view text);

/// Number of columns that the text takes on a terminal: two for a wide or full-width character (UAX
/// #11) and for an emoji, none for a mark that combines or a control character, one for the rest.
std::size_t columnCount(std::string_view text) noexcept;

} // namespace PerchAppLibrary::text
