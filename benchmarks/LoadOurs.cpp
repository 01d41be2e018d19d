#include "Loaders.hpp"

VelmoCloudEntity::FontList loadOurs(std::string text) {
    return VelmoCloudEntity::FontList(PerchAppLibrary::JSON::parse(std::move(text)));
}
