#include <PerchAppLibrary/record/detail/PropertyKind.hpp>

#include <PerchAppLibrary/text/Text.hpp>

namespace PerchAppLibrary {

void PropertyKind<std::string>::write(Dictionary& dictionary, std::string_view key,
                                      const std::string& value) {
    if (text::isWellFormed(value))
        dictionary.emplace(key, std::string_view(value));
    else
        assign(dictionary[key], value);
}

void PropertyKind<std::vector<std::int64_t>>::write(std::string& text,
                                                    const std::vector<std::int64_t>& values) {
    char before = '[';
    for (const std::int64_t value : values) {
        text += before;
        before = ',';
        PropertyKind<std::int64_t>::write(text, value);
    }
    text += values.empty() ? "[]" : "]";
}

} // namespace PerchAppLibrary
