// The settings store: text values of the application "Marlowick", section
// "Settings", kept per user where the system keeps such things. A missing key
// and a key with an empty text are one and the same.
#pragma once

#include <QString>

namespace marlowick {

namespace setting {
inline constexpr const char* kBackupSavedFile = "Backup Saved File";
inline constexpr const char* kSkipPajamaSave = "Skip Pajama Save";
inline constexpr const char* kSimsLocation = "Sims Location";
inline constexpr const char* kLastNeighborhood = "Last Neighborhood Selected";
// "Worn" or "Skin": how windows show clothes.
inline constexpr const char* kSkinView = "Skin View";
// Where the neighbourhoods lie, if the player has chosen that.
inline constexpr const char* kNeighborhoods = "Neighborhoods Location";
// How much is kept of earlier versions: MiB, and versions of an archive.
inline constexpr const char* kHistorySize = "History Size";
inline constexpr const char* kHistoryArchiveSize = "History Archive Size";
inline constexpr const char* kHistoryArchiveVersions = "History Archive Versions";
}  // namespace setting

// The value of a key; missing stands for a key that is missing or empty.
QString readSetting(const char* key, const QString& missing = QString());
void writeSetting(const char* key, const QString& value);

// The value as a number; a text that is no number counts as 0.
double readSettingAsNumber(const char* key);

// Keeps the settings in a file of its own from now on: for tests and for the guided tour, which
// must not touch a player's settings. An empty text goes back to the system's store.
void useSettingsFile(const QString& path);

}  // namespace marlowick
