#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <string>
#include <string_view>

namespace velmo {

/// Returns the text in a form that is safe for a terminal: ill-formed bytes as U+FFFD, the
/// characters of text::isControl() as escapes such as "\u001B".
std::string printable(std::string_view text);

/// Returns the indentation of a line at this depth of a tree. Beyond depth 20 it stays constant, so
/// that the output for a deep document stays small.
std::string indent(std::size_t depth);

/// Writes the printable() message as one line to standard error.
void warn(const std::string& message);

/// Returns the text in bold if standard output is a terminal and NO_COLOR is not set, otherwise the
/// text unchanged.
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
