// The dated copy of a user file that is made before a save.
#pragma once

#include <ctime>
#include <string>

#include "system/path.h"

namespace marlowick {

// The path of the user file under edit.
inline Path gstrUserFile;

// File name, sim name, neighbourhood and time stamp, of which only letters, digits, "-" and "_"
// are kept. The stamp ends in hour, minute and the minute again: two backups within a minute
// share a name. The sim name is shortened where the whole would pass 255 bytes.
std::string backupName(const Path& userFile, const std::string& simName, const std::tm& time);

// Copies the user file into the program folder's "\Backup", which is made if it is missing.
// The stamp is localTime(). A backup of that name is only replaced if this run of the program made
// it from the same folder; else it may come from another game, and a number behind the name ("_2")
// keeps both. Trapped (frmEditSim, msMakeUserBackup); false after a failure.
bool msMakeUserBackup(const Path& userFile, const std::string& simName);

}  // namespace marlowick
