#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace velmo {

using PerchAppLibrary::text::printable; // makes a text safe for a terminal

/// Returns the indentation of a line at this depth of a tree. Beyond depth 20 it stays constant, so
/// that the output for a deep document stays small.
std::string indent(std::size_t depth);

/// Writes the printable() message as one line to standard error.
void warn(const std::string& message);

/// Returns whether the stream is a terminal that understands escape sequences: TERM is not "dumb".
bool isTerminal(std::FILE* stream);

/// Returns the number of columns of the terminal that standard output is, or 0 if it is none.
std::size_t terminalWidth();

/// Sets when output is coloured: "always", "never" or, for every other text, automatically. That is
/// the default: colours for a terminal unless NO_COLOR is set.
void setColours(const std::string& when);

/// Returns the text with line breaks in place of blanks, so that lines fit in this many columns.
/// Lines after the first are indented. A word that does not fit on a line of its own may be broken
/// after a comma. With 0 columns, returns the text unchanged: wrapped(text, terminalWidth()).
std::string wrapped(std::string_view text, std::size_t columns, std::size_t indentation = 0);

/// Returns the text in bold if output is coloured, otherwise the text unchanged.
std::string bold(const std::string& text);

/// Like bold(), in red, for the matches of a search.
std::string highlighted(const std::string& text);

/// Writes the text to standard output. Throws Failure if that fails.
void print(std::string_view text);

/// Writes the value to standard output as a JSON document on one line. Throws Failure if that
/// fails.
void printJSON(const PerchAppLibrary::Value& value);

/// Like printJSON(), for the text of a document.
void printJSONText(const std::string& text);

} // namespace velmo
