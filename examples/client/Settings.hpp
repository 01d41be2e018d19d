#pragma once

#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <QString>

namespace client {

/// Fills the settings from a file, if there is one. What it does not hold keeps its value. Throws
/// std::runtime_error if it cannot be read or is malformed.
void loadSettings(const QString& file, VelmoCloudEntity::ConfigItem& settings);

/// Writes all settings into a file. Throws std::runtime_error, and leaves the file as it was, if it
/// cannot be written.
void saveSettings(const QString& file, VelmoCloudEntity::ConfigItem& settings);

} // namespace client
