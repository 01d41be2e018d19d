#include <PerchAppLibrary/Dictionary.hpp>

#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/Text.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <boost/json/serializer.hpp>

#include <charconv>
#include <cmath>
#include <iterator>
#include <type_traits>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

template <class Element>
Value arrayValue(const std::vector<Element>& elements, const Storage& storage) {
    ValueArray array(storage);
    array.reserve(elements.size());
    for (const Element& element : elements) {
        if constexpr (std::is_scalar_v<Element>)
            array.push_back(toValue(element));
        else
            array.push_back(toValue(element, storage));
    }
    return array;
}

Value valueOf(dom::element element);

Value valueOf(dom::array elements) {
    ValueArray array;
    array.reserve(elements.size());
    for (const dom::element each : elements)
        array.push_back(valueOf(each));
    return array;
}

Value valueOf(dom::object members) {
    Dictionary dictionary;
    dictionary.reserve(members.size());
    for (const auto& [key, member] : members)
        dictionary.insert_or_assign(key, valueOf(member));
    return toValue(std::move(dictionary));
}

/// Goes down one call for each level, of which a document has JSON::maximumDepth at most.
Value valueOf(dom::element element) {
    switch (element.type()) {
    case dom::element_type::INT64:
        return element.get_int64().value_unsafe();
    case dom::element_type::UINT64:
        return element.get_uint64().value_unsafe();
    case dom::element_type::DOUBLE:
        return element.get_double().value_unsafe();
    case dom::element_type::STRING:
        return boost::json::string(element.get_string().value_unsafe());
    case dom::element_type::BOOL:
        return element.get_bool().value_unsafe();
    case dom::element_type::ARRAY:
        return valueOf(element.get_array().value_unsafe());
    case dom::element_type::OBJECT:
        return valueOf(element.get_object().value_unsafe());
    case dom::element_type::NULL_VALUE:
        break;
    }
    return nullptr;
}

template <class Source>
void appendText(std::string& text, const Source& source) {
    char buffer[4096];
    boost::json::serializer serializer;
    serializer.reset(&source);
    while (!serializer.done())
        text.append(serializer.read(buffer));
}

template <class Source>
std::string textOf(const Source& source) {
    std::string text;
    appendText(text, source);
    return text;
}

} // namespace

Value toValue(std::int64_t number) { return number; }
Value toValue(bool flag) { return flag; }

Value toValue(float number) {
    if (!std::isfinite(number))
        return nullptr;
    // By way of the shortest decimal that gives the float back: 12.7, where a plain cast gives 12.699999809265137.
    char decimal[32];
    double value = 0;
    std::from_chars(decimal, std::to_chars(decimal, std::end(decimal), number).ptr, value);
    return value;
}

Value toValue(std::string_view text, const Storage& storage) {
    if (text::isWellFormed(text))
        return boost::json::string(text, storage);
    return boost::json::string(text::wellFormed(text), storage);
}

Value toValue(const std::string& text, const Storage& storage) {
    return toValue(std::string_view(text), storage);
}
Value toValue(const std::optional<std::string>& text, const Storage& storage) {
    return text ? toValue(*text, storage) : nullptr;
}
Value toValue(const std::vector<std::int64_t>& numbers, const Storage& storage) {
    return arrayValue(numbers, storage);
}
Value toValue(const std::optional<std::vector<std::int64_t>>& numbers) {
    return numbers ? toValue(*numbers) : nullptr;
}
Value toValue(const std::vector<std::string>& texts, const Storage& storage) {
    return arrayValue(texts, storage);
}
Value toValue(const URL& url) { return toValue(std::string_view(url.buffer())); }
Value toValue(const PlatformFont& font) {
    return Dictionary{{"name", toValue(font.name())}, {"size", font.points()}};
}
Value toValue(const JSON& json) {
    const std::optional<dom::element> element = JSONElement::of(json);
    return element ? valueOf(*element) : nullptr;
}
Value toValue(Dictionary dictionary) {
    Value value = std::move(dictionary); // braces would make an array of it
    return value;
}

std::string toText(const Dictionary& dictionary) { return textOf(dictionary); }
std::string toText(const Value& value) { return textOf(value); }

std::string toText(const std::vector<Dictionary>& dictionaries) {
    std::string text = "[";
    for (const Dictionary& dictionary : dictionaries) {
        if (text.size() > 1)
            text += ',';
        appendText(text, dictionary);
    }
    text += ']';
    return text;
}

} // namespace PerchAppLibrary
