#include <PerchAppLibrary/Dictionary.hpp>

#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/Text.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <boost/json/serializer.hpp>

#include <charconv>
#include <cmath>
#include <iterator>

namespace PerchAppLibrary {
namespace {

template <class Element>
Value arrayValue(const std::vector<Element>& elements) {
    ValueArray array;
    array.reserve(elements.size());
    for (const Element& element : elements)
        array.push_back(toValue(element));
    return array;
}

template <class T>
Value optionalValue(const std::optional<T>& optional) {
    return optional ? toValue(*optional) : Value(nullptr);
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

Value toValue(std::string_view text) {
    if (text::isWellFormed(text))
        return boost::json::string(text);
    return boost::json::string(text::wellFormed(text));
}

Value toValue(const std::string& text) { return toValue(std::string_view(text)); }
Value toValue(const std::optional<std::string>& text) { return optionalValue(text); }
Value toValue(const std::vector<std::int64_t>& numbers) { return arrayValue(numbers); }
Value toValue(const std::optional<std::vector<std::int64_t>>& numbers) { return optionalValue(numbers); }
Value toValue(const std::vector<std::string>& texts) { return arrayValue(texts); }
Value toValue(const URL& url) { return toValue(std::string_view(url.buffer())); }
Value toValue(const PlatformFont& font) {
    return Dictionary{{"name", toValue(font.name())}, {"size", font.points()}};
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
