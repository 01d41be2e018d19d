#include <PerchAppLibrary/record/explain.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <variant>

namespace PerchAppLibrary {
namespace {

using Element = simdjson::dom::element;
using Reason = Mismatch::Reason;

constexpr std::size_t mostMismatches = 1000;
constexpr std::size_t mostCharacters = 40; // of a value or key that is shown
constexpr std::size_t mostBytes = 4 * mostCharacters;

simdjson::dom::array elementsOf(Element array) { return array.get_array().value_unsafe(); }
simdjson::dom::object membersOf(Element object) { return object.get_object().value_unsafe(); }

std::string_view kindOf(Element element) {
    // In the order of JSON::Type.
    constexpr std::array<std::string_view, 7> kinds{"Int",    "String", "Bool",   "array",
                                                    "object", "null",   "unknown"};
    return element.type() == simdjson::dom::element_type::DOUBLE
               ? "Float"
               : kinds[static_cast<std::size_t>(typeOf(element))];
}

bool isEmpty(Element element) {
    return element.is_null() || (element.is_array() && elementsOf(element).size() == 0) ||
           (element.is_object() && membersOf(element).size() == 0);
}

/// Appends the text of a value, or only the begin of a long one. Constant time.
void appendBegin(std::string& text, Element value) {
    if (text.size() > mostCharacters)
        return;
    if (value.is_array()) {
        text += '[';
        for (const Element each : elementsOf(value)) {
            text += text.ends_with('[') ? "" : ",";
            appendBegin(text, each);
            if (text.size() > mostCharacters)
                return;
        }
        text += ']';
    } else if (value.is_object()) {
        text += '{';
        for (const auto& [key, member] : membersOf(value)) {
            text += text.ends_with('{') ? "" : ",";
            appendJSONString(text, key.substr(0, mostBytes));
            text += ':';
            appendBegin(text, member);
            if (text.size() > mostCharacters)
                return;
        }
        text += '}';
    } else if (value.is_string()) {
        appendJSONString(text, value.get_string().value_unsafe().substr(0, mostBytes));
    } else {
        text += simdjson::to_string(value);
    }
}

std::string beginOf(Element value) {
    std::string text;
    appendBegin(text, value);
    return text::printable(text, mostCharacters);
}

/// Returns the name of the property that the key probably means, or an empty text.
std::string_view similarName(const RecordSchema& schema, std::string_view key) {
    std::string_view nearest;
    std::size_t least = 1 + (key.size() + 1) / 4; // a quarter of the letters may differ
    for (const Property& property : schema.properties()) {
        const std::size_t longer = std::max(property.name.size(), key.size());
        if (!property.isStored() || longer - std::min(property.name.size(), key.size()) >= least)
            continue;
        if (const std::size_t distance = text::editDistance(property.name, key); distance < least) {
            least = distance;
            nearest = property.name;
        }
    }
    return nearest;
}

/// Walks a document.
class Walk {
public:
    explicit Walk(std::size_t maximum) : m_left(maximum) {}

    void visitArray(Element array, const RecordSchema& schema) {
        std::size_t index = 0;
        for (const Element each : elementsOf(array)) {
            if (m_left == 0)
                return;
            --m_left;
            const Step step(*this, index++);
            visitRecord(each, schema);
        }
    }

    void visitRecord(Element element, const RecordSchema& schema) {
        if (!element.is_object()) {
            add(Reason::noRecord, schema, {}, element, {}, "object");
            return;
        }
        struct Member {
            std::string_view key;
            Element value;
            std::size_t index; // of the property
        };
        constexpr std::size_t usualCount = 64;
        boost::container::small_vector<Member, usualCount> members;
        boost::container::small_vector<std::size_t, usualCount> last( // of the members with a key
            schema.properties().size());
        for (const auto& [key, value] : membersOf(element)) {
            const std::size_t index = schema.find(key);
            if (index != RecordSchema::notFound)
                last[index] = members.size();
            members.push_back({key, value, index});
        }
        for (std::size_t i = 0; i < members.size(); ++i) {
            const auto& [key, value, index] = members[i];
            if (value.is_null())
                continue;
            const Step step(*this, key);
            if (index == RecordSchema::notFound && schema.overrides().mapping)
                continue;
            if (index == RecordSchema::notFound)
                add(Reason::unknownKey, schema, key, value);
            else if (last[index] != i)
                add(Reason::repeatedKey, schema, key, value);
            else
                visitValue(schema.properties()[index], value, schema);
        }
    }

    void visitDocument(Element document, const RecordSchema& schema, bool isList) {
        if (!(isList ? document.is_array() : document.is_object()) && isEmpty(document))
            return;
        if (!isList)
            visitRecord(document, schema);
        else if (document.is_array())
            visitArray(document, schema);
        else {
            add(Reason::noRecord, schema, {}, document, {}, "array of objects");
            m_explanation.mismatches.back().place.insert(0, "list of ");
        }
    }

    Explanation take() { return std::move(m_explanation); }

private:
    /// Makes the path longer by an index or a key, for as long as it lives.
    class Step {
    public:
        template <class T>
        Step(Walk& walk, T step) : m_steps(walk.m_steps) {
            m_steps.emplace_back(step);
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step() { m_steps.pop_back(); }

    private:
        std::vector<std::variant<std::size_t, std::string_view>>& m_steps;
    };

    void visitValue(const Property& property, Element value, const RecordSchema& schema) {
        std::visit([&](const auto& access) { this->visitAccess(access, property, value, schema); },
                   property.access);
    }

    template <class T>
    void visitAccess(const FieldAccess<T>& access, const Property& property, Element value,
                     const RecordSchema& schema) {
        T converted{};
        const bool converts = convertElement(value, converted);
        if (access.constant != nullptr) {
            if (!converts || converted != access.constant())
                add(Reason::notSettable, schema, property.name, value, {}, property.kind());
        } else if (converts) {
            ++m_explanation.used;
        } else {
            addUnconverted(firstUnconverted(converted, value), property, value, schema);
        }
    }

    void visitAccess(const RecordsAccess& access, const Property& property, Element value,
                     const RecordSchema& schema) {
        if (!access.isSingle && value.is_array())
            visitArray(value, access.schema());
        else if (access.isSingle && value.is_object())
            visitRecord(value, access.schema());
        else
            addUnconverted({}, property, value, schema);
    }

    void visitAccess(const ComputedAccess& /*access*/, const Property& property, Element value,
                     const RecordSchema& schema) {
        add(Reason::notSettable, schema, property.name, value, {}, property.kind());
    }

    /// Of an array, the first element that does not convert.
    using Part = std::optional<std::pair<std::size_t, Element>>;

    template <class T>
    static Part firstUnconverted(const T& /*type*/, Element /*value*/) {
        return std::nullopt;
    }
    template <class Item>
    static Part firstUnconverted(const std::vector<Item>& /*type*/, Element value) {
        std::size_t index = 0;
        if (value.is_array())
            for (const Element each : elementsOf(value)) {
                if (Item item{}; !convertElement(each, item))
                    return Part({index, each});
                ++index;
            }
        return std::nullopt;
    }

    void addUnconverted(const Part& part, const Property& property, Element value,
                        const RecordSchema& schema) {
        std::optional<Step> step;
        if (part)
            step.emplace(*this, part->first);
        add(Reason::notConverted, schema, property.name, value,
            part ? kindOf(part->second) : std::string_view(), property.kind());
    }

    void add(Reason reason, const RecordSchema& schema, std::string_view key, Element value,
             std::string_view part = {}, std::string expected = {}) {
        ++m_explanation.ignored;
        std::vector<Mismatch>& mismatches = m_explanation.mismatches;
        const Group group{reason, &schema, key};
        if (const auto known = m_groups.find(group); known != m_groups.end()) {
            ++mismatches[known->second].count;
            return;
        }
        if (mismatches.size() == mostMismatches)
            return;
        m_groups.emplace(group, mismatches.size());
        if (reason == Reason::unknownKey)
            expected = similarName(schema, key);
        std::string place(schema.className());
        if (!key.empty())
            place += "." + text::printable(key, mostCharacters);
        std::string found(kindOf(value));
        if (!part.empty())
            found.append(" with ").append(part);
        mismatches.push_back({reason, std::move(place), std::move(found), std::move(expected),
                              path(), beginOf(value)});
    }

    /// Returns the path of the value that is visited, without the middle of a long one.
    std::string path() const {
        constexpr std::size_t mostSteps = 16; // at each end
        std::string path;
        for (std::size_t i = 0; i < m_steps.size(); ++i) {
            if (i == mostSteps && m_steps.size() > 2 * mostSteps) {
                i = m_steps.size() - mostSteps;
                path += "...";
            }
            if (const auto* const index = std::get_if<std::size_t>(&m_steps[i]))
                path += "[" + std::to_string(*index) + "]";
            else
                path.append(path.empty() ? "" : ".")
                    .append(text::printable(*std::get_if<std::string_view>(&m_steps[i]),
                                            mostCharacters));
        }
        return path;
    }

    /// What one Mismatch tells of: the last is a key of the document.
    using Group = std::tuple<Reason, const RecordSchema*, std::string_view>;

    std::size_t m_left; // number of elements to visit
    Explanation m_explanation;
    std::vector<std::variant<std::size_t, std::string_view>> m_steps; // to the value
    std::map<Group, std::size_t> m_groups;                            // indexes in mismatches
};

std::string withArticle(const std::string& kind) {
    constexpr std::string_view vowels = "AEIOaeio";
    return (vowels.find(kind.front()) == std::string_view::npos ? "a " : "an ") + kind;
}

} // namespace

Explanation explain(const JSON& document, const RecordSchema& schema, bool isList,
                    std::size_t maximum) {
    Walk walk(maximum);
    if (const std::optional<Element> root = JSONElement::of(document))
        walk.visitDocument(*root, schema, isList);
    return walk.take();
}

std::string Mismatch::text() const {
    const std::string className = place.substr(0, place.find('.'));
    std::string text = (path.empty() ? "the document" : path) + ": ";
    switch (reason) {
    case Reason::unknownKey:
        text += className + " has no such property";
        if (!expected.empty())
            text += ", but " + expected;
        break;
    case Reason::repeatedKey:
        text += "a later member has this key";
        break;
    case Reason::notSettable:
        text += place + " cannot be set";
        break;
    case Reason::notConverted:
        text += place + " takes " + withArticle(expected) + ", not " + withArticle(found);
        break;
    case Reason::noRecord:
        text += (className.starts_with("list of ") ? "a " : "") + className + " is read from " +
                withArticle(expected) + ", not " + withArticle(found);
        break;
    }
    text += ": " + value;
    if (count > 1)
        text += " (" + std::to_string(count) + " times)";
    return text;
}

} // namespace PerchAppLibrary
