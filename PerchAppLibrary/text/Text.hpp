#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Functions on Unicode text in UTF-8.
///
/// Each function takes any bytes: each maximal ill-formed sequence (Unicode Standard, section 3.9)
/// counts as one U+FFFD. No function depends on the locale of the process. Any number of threads
/// may call them. Each function is linear in the length of its arguments, unless stated otherwise.
namespace PerchAppLibrary::text {

/// Returns whether the text is well-formed UTF-8.
bool isWellFormed(std::string_view text) noexcept;

/// Returns the text with each ill-formed sequence replaced by U+FFFD.
std::string wellFormed(std::string_view text);

/// Returns the full upper-case mapping of the root locale (Unicode Standard, section 3.13): "SS"
/// for "ß".
std::string uppercased(std::string_view text);

/// Returns Normalization Form D (UAX #15). Two texts are canonically equivalent if their forms are
/// equal. Takes O(n log n) for a long run of combining marks.
std::string decomposed(std::string_view text);

/// Returns Normalization Form C (UAX #15).
std::string composed(std::string_view text);

/// Returns the form in which texts are compared when case is ignored: decomposed, upper-cased, then
/// decomposed again. The first step makes the result equal for all canonically equivalent
/// spellings, those with iota subscripts included.
std::string folded(std::string_view text);

/// Returns the number of UTF-16 code units.
std::size_t utf16Length(std::string_view text) noexcept;

/// Returns the text between two offsets in UTF-16 code units. Half of a surrogate pair becomes
/// U+FFFD; all other bytes are unchanged. An offset beyond the end counts as the end.
std::string utf16Substring(std::string_view text, std::size_t begin, std::size_t end);

/// Returns the number of code points.
std::size_t codePointCount(std::string_view text) noexcept;

/// Returns the bytes of the first code point or ill-formed sequence, or nothing for an empty text.
/// Constant time.
std::string_view firstCodePoint(std::string_view text) noexcept;

/// Returns whether the text begins with a character that could command a terminal or reorder what
/// it shows: a control character, a line or paragraph separator (general categories Cc, Zl, Zp), or
/// one of the property Bidi_Control (UAX #9). Constant time.
bool isControl(std::string_view character) noexcept;

/// Returns the first code point, U+FFFD for an ill-formed sequence, or U+0000 for an empty text.
/// Constant time.
char32_t codePoint(std::string_view character) noexcept;

/// Returns the text for a message: without ill-formed sequences, each control (isControl) as
/// "\u000A". Of a text of more than `maximum` code points, returns these and "...". Linear in what
/// is returned.
std::string printable(std::string_view text, std::size_t maximum = static_cast<std::size_t>(-1));

/// Returns how many letters to add, remove or replace to make one text of the other, where ASCII
/// case is ignored (Levenshtein distance of bytes). Takes the product of their lengths.
std::size_t editDistance(std::string_view from, std::string_view to);

/// Returns the number of user-perceived characters: extended grapheme clusters (UAX #29).
std::size_t graphemeCount(std::string_view text);

/// Returns the number of columns of the text on a terminal: two for a wide or full-width character
/// (UAX #11), emoji included; none for a combining mark, a format or control character, or a Hangul
/// vowel or final; one for any other.
std::size_t columnCount(std::string_view text) noexcept;

} // namespace PerchAppLibrary::text
