// Fuzzes explain(). A value that it calls used changes the record when it is changed; one that it
// calls ignored changes nothing, whatever other ignored value stands there.
#include "Document.hpp"

#include <tests/Sample.hpp>

#include <tools/velmo/RecordTypes.hpp>

#include <PerchAppLibrary/record/explain.hpp>

#include <set>

using namespace PerchAppLibrary;
using velmo::RecordType;

namespace {

/// The place of one value in the text of a document.
struct Place {
    std::size_t begin;
    std::size_t end;
    bool isElement; // of an array, not a member
};

/// Returns the places of all values. Requires a document.
std::vector<Place> placesIn(const std::string& text) {
    std::vector<Place> places;
    std::vector<Place> open;
    const auto add = [&](std::size_t begin, std::size_t end) {
        places.push_back({begin, end, !open.empty() && text[open.back().begin] == '['});
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i++;
        if (text[begin] == '"') {
            for (; text[i] != '"'; ++i)
                i += text[i] == '\\' ? 1 : 0;
            const std::size_t next = text.find_first_not_of(" \t\r\n", ++i);
            if (next == std::string::npos || text[next] != ':') // not a key
                add(begin, i);
        } else if (text[begin] == '[' || text[begin] == '{') {
            open.push_back({begin, 0, false});
        } else if (text[begin] == ']' || text[begin] == '}') {
            const std::size_t first = open.back().begin;
            open.pop_back();
            add(first, i);
        } else if (std::string_view(" \t\r\n,:").find(text[begin]) == std::string_view::npos) {
            i = std::min(text.find_first_of(" \t\r\n,]}", i), text.size());
            add(begin, i);
        }
    }
    return places;
}

class Check {
public:
    Check(const RecordType& type, std::string text) : m_type(type), m_text(std::move(text)) {}

    void run() const {
        std::size_t count = 0;
        for (const Mismatch& each : m_explanation.mismatches) {
            count += each.count;
            require(each.text().find_first_of("\n\x1B") == std::string::npos, each.text());
        }
        require(count == m_explanation.ignored, m_text);
        // A value within another comes before it. What holds a counted value is not counted itself.
        const std::vector<Place> places = placesIn(m_text);
        const Place* counted = nullptr;
        for (const Place& place : places) {
            const bool holdsCounted =
                counted != nullptr && place.begin <= counted->begin && counted->end <= place.end;
            if (!holdsCounted && checkPlace(place))
                counted = &place;
        }
    }

private:
    enum class Use : unsigned char { neither, used, ignored };

    std::string with(const Place& place, std::string_view value) const {
        return std::string(m_text).replace(place.begin, place.end - place.begin, value);
    }

    Explanation explained(const std::string& text) const {
        return explain(JSON::parse(text), m_type.schema(), !m_type.item.empty());
    }

    /// Returns the properties of what is filled from the text.
    std::string filled(const std::string& text) const {
        return toText(m_type.read(JSON::parse(text)));
    }

    /// Returns what the explanation calls this value of a text, from what changes in the numbers
    /// without it. A null stands for a missing member, and an empty object for an element.
    static Use useOf(const Explanation& with, const Explanation& without) {
        if (with.used == without.used + 1 && with.ignored == without.ignored)
            return Use::used;
        if (with.ignored == without.ignored + 1 && with.used == without.used)
            return Use::ignored;
        return Use::neither;
    }

    /// Returns whether the value is counted.
    bool checkPlace(const Place& place) const {
        const Explanation without = explained(with(place, place.isElement ? "{}" : "null"));
        const Use use = useOf(m_explanation, without);
        if (use == Use::neither)
            return false;
        bool isChanged = false;
        for (const std::string_view value : {"7", "-7.5", "\"z\"", "\"5\"", "true", "false", "[]",
                                             "{}", "[7]", "[\"z\"]", "[[]]", "{\"z\":7}"}) {
            const std::string text = with(place, value);
            const std::string record = filled(text);
            // In an array or object with content, the content may be what is ignored.
            const bool isWhole = value.size() == 2 || value.find_first_of("[{") != 0;
            if (use == Use::ignored && isWhole && useOf(explained(text), without) == Use::ignored)
                requireEqual(record, m_filled, "ignored in\n" + m_text + "\nand\n" + text);
            isChanged = isChanged || record != m_filled;
        }
        require(isChanged || use == Use::ignored, [&] {
            return "used without effect at " + std::to_string(place.begin) + " in\n" + m_text;
        });
        return true;
    }

    const RecordType& m_type;
    std::string m_text;
    Explanation m_explanation = explained(m_text);
    std::string m_filled = filled(m_text);
};

/// Adds the names of the properties of a class, and of the records in it.
void addNames(const RecordSchema& schema, std::set<std::string_view>& names) {
    for (const Property& property : schema.properties())
        if (names.insert(property.name).second)
            if (const auto* const records = std::get_if<RecordsAccess>(&property.access))
                addNames(records->schema(), names);
}

/// Of all types, and often of the sample, which has properties of each kind.
const std::vector<RecordType>& types() {
    static const std::vector<RecordType> all = [] {
        const auto read = [](const JSON& json) {
            return Value(Sample::create(json)->properties());
        };
        std::vector<RecordType> types = velmo::recordTypes();
        types.insert(types.end(), 10, {"Sample", "", read, &RecordAccess::schema<Sample>, nullptr});
        return types;
    }();
    return all;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const RecordType& type = input.pick(types());
    std::set<std::string_view> names{"unknown"};
    addNames(type.schema(), names);
    const std::vector<std::string_view> keys(names.begin(), names.end());
    std::string text = makeObject(input, keys);
    if (!type.item.empty())
        text = "[" + text + "," + makeObject(input, keys) + "]";
    Check(type, std::move(text)).run();
    return 0;
}
