#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>

#include <string>
#include <string_view>

namespace velmo {

/// Text as it can be shown: ill-formed bytes as U+FFFD, and control characters, which could command
/// the terminal, spelled as "\u001B".
std::string printable(std::string_view text);

/// What stands before a line at this depth of a tree; beyond a certain depth always the same, since
/// the indentation of a document made to be deep would fill the disk.
std::string indent(std::size_t depth);

/// Writes the message as one line to standard error, made printable.
void warn(const std::string& message);

/// The text in bold where standard output is a terminal and NO_COLOR is not set.
std::string bold(const std::string& text);

/// The text in bold red, as a search shows what it found, under the same conditions.
std::string highlighted(const std::string& text);

/// Writes to standard output. Throws Failure when that cannot be written.
void print(std::string_view text);

/// Writes the value to standard output as one JSON document on a line of its own.
void printJSON(const PerchAppLibrary::Value& value);

} // namespace velmo
