#include "Settings.hpp"

#include "Replies.hpp"

#include <VelmoCloudEntity/version.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace client {

using PerchAppLibrary::JSON;

void loadSettings(const QString& file, VelmoCloudEntity::ConfigItem& settings) {
    Reply content{file, file};
    readFile(content);
    if (content.isMissing)
        return;
    if (!content.error.isEmpty())
        throw std::runtime_error(content.error.toStdString());
    settings.setValue(JSON::parse(content.text.toStdString()));
}

void saveSettings(const QString& file, VelmoCloudEntity::ConfigItem& settings) {
    settings.setLastUseVersion(VELMO_VERSION);
    const std::string text = PerchAppLibrary::toText(settings.Dict());
    QDir().mkpath(QFileInfo(file).absolutePath());
    QSaveFile device(file);
    if (!device.open(QIODevice::WriteOnly) || device.write(text.c_str()) < 0 || !device.commit())
        throw std::runtime_error(device.errorString().toStdString());
}

} // namespace client
