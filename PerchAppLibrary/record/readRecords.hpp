#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSink.hpp>

#include <string>
#include <string_view>

/// Reading arrays of records: from a document, or directly from a text.
namespace PerchAppLibrary::detail {

/// Reads one record for each element of the JSON array, or with `onlyObjects` for each that is an
/// object, into the sink. Reads nothing from any other value. Linear.
void readRecords(const JSON& json, bool onlyObjects, RecordSink& sink);

/// Does readRecords(JSON::parse(text, limits), onlyObjects, sink), but nearly always without a
/// document: it fills the records while it reads the text. If the text is malformed, destroys the
/// records and parses a document. So do not use it for classes whose constructors, destructors or
/// overrides have a visible effect. Throws JSON::ParseError if the text is malformed or exceeds the
/// limits.
void parseRecords(std::string_view text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits = {});
void parseRecords(std::string&& text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits = {});
inline void parseRecords(const char* text, bool onlyObjects, RecordSink& sink,
                         const JSON::Limits& limits = {}) {
    parseRecords(std::string_view(text), onlyObjects, sink, limits);
}

} // namespace PerchAppLibrary::detail
