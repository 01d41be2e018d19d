#pragma once

#include "DocumentType.hpp"
#include "Progress.hpp"

#include <PerchAppLibrary/json/JSON.hpp>

#include <new>
#include <string>

namespace velmo {

/// Returns the JSON document in a file. "-" is standard input. Throws Failure if the file cannot be
/// read, the document is malformed, or memory runs out.
PerchAppLibrary::JSON readDocument(const std::string& file, Progress& progress);

/// Returns the name of the file in messages.
std::string nameOf(const std::string& file);

/// Throws Failure for a file whose document or records need more memory than there is.
[[noreturn]] void failForMemory(const std::string& file);

/// Returns `make(document)` for the document in a file. Throws Failure like readDocument(), also
/// if memory runs out in `make`, and for a document that seems to be of a type other than `type`;
/// with `isForced`, warns of that.
template <class Make>
auto readAs(const std::string& file, const RecordType& type, bool isForced, Make&& make) {
    try {
        Progress progress(nameOf(file));
        const PerchAppLibrary::JSON document = readDocument(file, progress);
        progress.hide(); // a warning needs the line
        requireType(file, document, type, isForced);
        progress.begin("making the records of");
        return make(document);
    } catch (const std::bad_alloc&) {
        failForMemory(file);
    }
}

} // namespace velmo
