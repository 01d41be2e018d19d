#include <PerchAppLibrary/record/readRecords.hpp>

#include <PerchAppLibrary/record/detail/DocumentSource.hpp>
#include <PerchAppLibrary/record/detail/RecordFiller.hpp>
#include <PerchAppLibrary/record/detail/fillRecord.hpp>
#ifdef PERCH_DIRECT_READING // by cmake/DirectReading.cmake
#include <PerchAppLibrary/record/detail/TokenSource.hpp>
#endif

namespace PerchAppLibrary {
namespace {

#ifdef PERCH_DIRECT_READING
/// Puts the parser's padding behind a text, for as long as it lives.
class Padding {
public:
    explicit Padding(std::string& text) : m_text(text), m_size(text.size()) {
        text.append(simdjson::SIMDJSON_PADDING, ' ');
    }
    Padding(const Padding&) = delete;
    Padding& operator=(const Padding&) = delete;
    ~Padding() { m_text.resize(m_size); }

    std::string_view text() const noexcept { return std::string_view(m_text).substr(0, m_size); }

private:
    std::string& m_text;
    std::size_t m_size;
};

/// Returns false at a fault, with some records in the sink.
bool readDirectly(std::string& text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits) {
    if (text.size() > limits.bytes)
        return false;
    const Padding padding(text);
    try {
        TokenSource source(padding.text(), limits);
        const TokenSource::Element root = source.root();
        RecordFiller(source).readInto(sink, root, onlyObjects);
        source.finish(root);
    } catch (const TokenSource::Fault&) {
        return false;
    }
    return true;
}
#else
bool readDirectly(const std::string& /*text*/, bool /*onlyObjects*/, RecordSink& /*sink*/,
                  const JSON::Limits& /*limits*/) {
    return false;
}
#endif

} // namespace

void parseRecords(std::string&& text, bool onlyObjects, RecordSink& sink,
                  const JSON::Limits& limits) {
    if (readDirectly(text, onlyObjects, sink, limits))
        return;
    sink.clear();
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
