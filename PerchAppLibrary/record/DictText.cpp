#include <PerchAppLibrary/record/DictText.hpp>

#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/JSONText.hpp>

#include <charconv>
#include <iterator>
#include <variant>

namespace PerchAppLibrary {
namespace {

void append(std::string& text, std::int64_t number) {
    char digits[20]; // "-9223372036854775808"
    text.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

void append(std::string& text, bool flag) { text.append(flag ? "true" : "false"); }

void append(std::string& text, const std::string& content) { appendJSONString(text, content); }

void append(std::string& text, const std::vector<std::int64_t>& numbers) {
    text += '[';
    for (const std::int64_t& number : numbers) {
        if (&number != numbers.data())
            text += ',';
        append(text, number);
    }
    text += ']';
}

/// Values of the rarer types take the road by way of the Dict's.
template <class T>
void append(std::string& text, const T& value) {
    text += toText(toValue(value));
}

struct ValueWriter {
    std::string& text;
    const BaseEntity& record;
    const Property& property;

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        if (access.field != nullptr)
            append(text, record.*access.field);
        else
            append(text, (record.*access.get)());
    }

    template <class Access>
    void operator()(const Access&) const {
        text += toText(property.value(record));
    }
};

} // namespace

DictText::DictText(const RecordSchema& schema, const Excluded& excluded) {
    for (const Property* const property : schema.storedWithout(excluded))
        m_members.push_back({",\"" + std::string(property->name) + "\":", property});
}

void DictText::append(std::string& text, const BaseEntity& record) const {
    std::size_t separator = 1; // the comma that the first goes without
    for (const auto& [key, property] : m_members) {
        text.append(key, separator);
        std::visit(ValueWriter{text, record, *property}, property->access);
        separator = 0;
    }
}

} // namespace PerchAppLibrary
