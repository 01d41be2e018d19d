#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

namespace PerchAppLibrary {

void assign(Value& target, const PlatformFont& font) {
    Dictionary& dictionary = target.emplace_object();
    assign(dictionary["name"], font.name());
    dictionary["size"] = font.points();
}

} // namespace PerchAppLibrary
