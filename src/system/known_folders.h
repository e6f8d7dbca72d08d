// The folders that a system keeps for a person and for its programs.
#pragma once

#include <string>

#include "system/path.h"

namespace marlowick {

// Where Windows keeps what, moved or not; nothing is made and nothing looked at. Empty on a system
// that has no such folders.
Path savedGamesFolder();
Path documentsFolder();
Path programDataFolder();

// The person's home folder and login name; empty on Windows, where nothing hangs off them.
Path homeFolder();
std::string loginName();

}  // namespace marlowick
