#include "widgets/settings.h"

#include <QSettings>
#include <memory>

namespace marlowick {
namespace {

QString& settingsFile() {
    static QString path;
    return path;
}

std::unique_ptr<QSettings> openStore() {
    auto store = settingsFile().isEmpty()
                     ? std::make_unique<QSettings>(QStringLiteral("Marlowick"))
                     : std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat);
    store->beginGroup(QStringLiteral("Settings"));
    return store;
}

}  // namespace

QString readSetting(const char* key, const QString& missing) {
    const QString value = openStore()->value(QString::fromLatin1(key)).toString();
    return value.isEmpty() ? missing : value;
}

void writeSetting(const char* key, const QString& value) {
    const auto store = openStore();
    store->setValue(QString::fromLatin1(key), value);
    store->sync();
}

double readSettingAsNumber(const char* key) {
    return readSetting(key).trimmed().toDouble();
}

void useSettingsFile(const QString& path) {
    settingsFile() = path;
}

}  // namespace marlowick
