#include <PerchAppLibrary/record/explain.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <variant>

namespace PerchAppLibrary {
namespace {

using Element = simdjson::dom::element;
using Reason = Mismatch::Reason;

std::string_view kindOf(Element element) {
    switch (element.type()) {
    case simdjson::dom::element_type::ARRAY:
        return "array";
    case simdjson::dom::element_type::OBJECT:
        return "object";
    case simdjson::dom::element_type::STRING:
        return "String";
    case simdjson::dom::element_type::BOOL:
        return "Bool";
    case simdjson::dom::element_type::DOUBLE:
        return "Float";
    case simdjson::dom::element_type::NULL_VALUE:
        return "null";
    default:
        return "Int";
    }
}

/// Returns the name of a property that differs from the key in case only, or an empty text.
std::string_view similarName(const RecordSchema& schema, std::string_view key) {
    const auto lowercase = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    for (const Property& property : schema.properties())
        if (std::ranges::equal(property.name, key, {}, lowercase, lowercase))
            return property.name;
    return {};
}

/// Walks a document. Recurses once for each level of records, at most JSON::maximumDepth.
class Walk {
public:
    explicit Walk(std::size_t maximum) : m_left(maximum) {}

    void visitArray(Element array, const RecordSchema& schema) {
        std::size_t index = 0;
        const simdjson::dom::array elements = array.get_array().value_unsafe();
        for (const Element each : elements) {
            if (m_left == 0)
                return;
            --m_left;
            const std::size_t size = m_path.size();
            m_path.append("[").append(std::to_string(index++)).append("]");
            visitRecord(each, schema);
            m_path.resize(size);
        }
    }

    void visitRecord(Element element, const RecordSchema& schema) {
        if (!element.is_object()) {
            add(Reason::noRecord, schema, {}, kindOf(element), "object");
            return;
        }
        std::vector<bool> isSeen(schema.properties().size());
        const simdjson::dom::object object = element.get_object().value_unsafe();
        // Of members with one key, the last counts.
        std::vector<std::pair<std::string_view, Element>> members;
        for (const auto member : object)
            members.emplace_back(member.key, member.value);
        std::vector<bool> isRepeated(members.size());
        for (std::size_t i = members.size(); i-- > 0;)
            if (const std::size_t index = schema.find(members[i].first);
                index != RecordSchema::notFound) {
                isRepeated[i] = isSeen[index];
                isSeen[index] = true;
            }
        for (std::size_t i = 0; i < members.size(); ++i)
            visitMember(members[i].first, members[i].second, isRepeated[i], schema);
    }

    void addOther(Element element, const RecordSchema& schema) {
        add(Reason::noRecord, schema, {}, kindOf(element), "array of records");
    }

    Explanation take() { return std::move(m_explanation); }

private:
    void visitMember(std::string_view key, Element value, bool isRepeated,
                     const RecordSchema& schema) {
        if (value.is_null())
            return;
        const std::size_t size = m_path.size();
        m_path.append(size == 0 ? "" : ".").append(key);
        const std::size_t index = schema.find(key);
        if (index == RecordSchema::notFound) {
            if (!schema.overrides().mapping)
                add(Reason::unknownKey, schema, key, kindOf(value), similarName(schema, key));
        } else if (isRepeated) {
            add(Reason::repeatedKey, schema, key, kindOf(value), "");
        } else {
            const Property& property = schema.properties()[index];
            std::visit([&](const auto& access) { visitValue(access, property, value, schema); },
                       property.access);
        }
        m_path.resize(size);
    }

    template <class T>
    void visitValue(const FieldAccess<T>& access, const Property& property, Element value,
                    const RecordSchema& schema) {
        T converted{};
        if (access.set == nullptr)
            add(Reason::notSettable, schema, property.name, kindOf(value), property.kind());
        else if (convertElement(value, converted))
            ++m_explanation.used;
        else
            addUnconverted(converted, property, value, schema);
    }

    void visitValue(const RecordsAccess& access, const Property& property, Element value,
                    const RecordSchema& schema) {
        if (!access.isSingle && value.is_array())
            visitArray(value, access.schema());
        else if (access.isSingle && value.is_object())
            visitRecord(value, access.schema());
        else
            add(Reason::notConverted, schema, property.name, kindOf(value), property.kind());
    }

    void visitValue(const ComputedAccess& /*access*/, const Property& property, Element value,
                    const RecordSchema& schema) {
        add(Reason::notSettable, schema, property.name, kindOf(value), property.kind());
    }

    template <class T>
    void addUnconverted(const T& /*type*/, const Property& property, Element value,
                        const RecordSchema& schema) {
        add(Reason::notConverted, schema, property.name, kindOf(value), property.kind());
    }

    /// Names the first element that does not convert.
    template <class Item>
    void addUnconverted(const std::vector<Item>& /*type*/, const Property& property, Element value,
                        const RecordSchema& schema) {
        std::string found(kindOf(value));
        const std::size_t size = m_path.size();
        if (value.is_array()) {
            std::size_t index = 0;
            const simdjson::dom::array elements = value.get_array().value_unsafe();
            for (const Element each : elements) {
                if (Item item{}; !convertElement(each, item)) {
                    found += " with " + std::string(kindOf(each));
                    m_path.append("[").append(std::to_string(index)).append("]");
                    break;
                }
                ++index;
            }
        }
        add(Reason::notConverted, schema, property.name, found, property.kind());
        m_path.resize(size);
    }

    void add(Reason reason, const RecordSchema& schema, std::string_view key,
             std::string_view found, std::string_view expected) {
        constexpr std::size_t maximum = 1000;
        ++m_explanation.ignored;
        std::string place(schema.className());
        if (!key.empty())
            place.append(".").append(key);
        std::string id = place;
        id.append("\n").append(found).append(1, static_cast<char>('0' + static_cast<int>(reason)));
        const auto [known, isNew] = m_indexes.try_emplace(id, m_explanation.mismatches.size());
        if (!isNew)
            ++m_explanation.mismatches[known->second].count;
        else if (m_indexes.size() <= maximum)
            m_explanation.mismatches.push_back(
                {reason, std::move(place), std::string(found), std::string(expected), m_path});
        else
            m_indexes.erase(known);
    }

    std::size_t m_left; // number of records to visit
    Explanation m_explanation;
    std::string m_path;                                     // of the value that is visited
    std::unordered_map<std::string, std::size_t> m_indexes; // in mismatches
};

} // namespace

Explanation explain(const JSON& document, const RecordSchema& schema, bool isList,
                    std::size_t maximum) {
    Walk walk(maximum);
    if (const std::optional<Element> root = JSONElement::of(document)) {
        if (!isList)
            walk.visitRecord(*root, schema);
        else if (root->is_array())
            walk.visitArray(*root, schema);
        else
            walk.addOther(*root, schema);
    }
    return walk.take();
}

std::string Mismatch::text() const {
    std::string text = path.empty() ? "the document" : path;
    switch (reason) {
    case Reason::unknownKey:
        text += ": no property of " + place.substr(0, place.find('.'));
        if (!expected.empty())
            text += "; " + expected + " is one";
        break;
    case Reason::repeatedKey:
        text += ": a later member has this key";
        break;
    case Reason::notSettable:
        text += ": " + place + " cannot be set";
        break;
    case Reason::notConverted:
    case Reason::noRecord:
        text += ": " + found + " where " + expected + " is expected";
        break;
    }
    if (count > 1)
        text += " (" + std::to_string(count) + " times)";
    return text;
}

} // namespace PerchAppLibrary
