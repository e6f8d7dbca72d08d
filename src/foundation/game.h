// Where the game and the program lie. Both are set once at start (SimsPath also
// by the window that sets the path) and read everywhere.
#pragma once

#include "system/path.h"

namespace marlowick {

// The game's install folder, without a trailing backslash. Empty or the text "ERROR" when the
// game wasn't found: then it is an ordinary folder name that nothing lies under.
inline Path SimsPath;

// The folder of the program's own file. All working files hang off it.
inline Path ProgramFolder;

}  // namespace marlowick
