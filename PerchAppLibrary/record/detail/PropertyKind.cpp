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

} // namespace PerchAppLibrary
