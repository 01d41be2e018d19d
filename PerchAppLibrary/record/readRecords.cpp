#include <PerchAppLibrary/record/readRecords.hpp>

#include <PerchAppLibrary/record/detail/DocumentSource.hpp>
#include <PerchAppLibrary/record/detail/RecordFiller.hpp>
#include <PerchAppLibrary/record/detail/fillRecord.hpp>
#ifdef PERCH_DIRECT_READING // by cmake/DirectReading.cmake
#include <PerchAppLibrary/record/detail/TokenSource.hpp>
#endif

namespace PerchAppLibrary {
namespace detail {
namespace {

#ifdef PERCH_DIRECT_READING
/// Returns false at a fault, with some records in the sink.
bool readDirectly(std::string& text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits) {
    const std::size_t size = text.size();
    if (size > limits.bytes)
        return false;
    text.append(simdjson::SIMDJSON_PADDING, ' ');
    try {
        TokenSource source(std::string_view(text).substr(0, size), limits);
        const TokenSource::Element root = source.root();
        RecordFiller(source).readInto(sink, root, onlyObjects);
        source.finish(root);
        return true;
    } catch (const TokenSource::Fault&) {
        text.resize(size);
        return false;
    }
}
#endif

} // namespace

void parseRecords(std::string&& text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits) {
#ifdef PERCH_DIRECT_READING
    if (readDirectly(text, onlyObjects, sink, limits))
        return;
    sink.clear();
#endif
    readRecords(JSON::parse(std::move(text), limits), onlyObjects, sink);
}

void parseRecords(std::string_view text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits) {
    std::string copy;
    copy.reserve(text.size() + simdjson::SIMDJSON_PADDING);
    parseRecords(std::move(copy.append(text)), onlyObjects, sink, limits);
}

void readRecords(const JSON& json, bool onlyObjects, RecordSink& sink) {
    DocumentSource source(json);
    if (const auto root = source.root())
        RecordFiller(source).readInto(sink, *root, onlyObjects);
}

} // namespace detail

void mapRecord(BaseEntity& record, const JSON& json, const Excluded& excluded) {
    DocumentSource source(json);
    if (const auto root = source.root())
        RecordFiller(source).map(record, *root, excluded);
}

void fillRecord(BaseEntity& record, const JSON& json, const Excluded& excluded) {
    DocumentSource source(json);
    RecordFiller(source).fill(record, source.root(), excluded);
}

void fillArray(const RecordsAccess& access, BaseEntity& record, const JSON& json) {
    DocumentSource source(json);
    RecordFiller(source).fillArray(access, record, source.root());
}

} // namespace PerchAppLibrary
