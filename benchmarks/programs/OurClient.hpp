#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <cstddef>
#include <string>
#include <vector>

/// What a client does with its fonts, with the library. PlainClient.hpp says what each function
/// does.

VelmoCloudEntity::FontList loadOurs(std::string text);
std::size_t digestOf(const VelmoCloudEntity::FontList& fonts);
void activate(const VelmoCloudEntity::FontList& fonts, const std::vector<std::int64_t>& ids);
std::string textOfFound(const VelmoCloudEntity::FontList& fonts, const std::string& key);
