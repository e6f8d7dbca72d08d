// Which kind of game lies in a folder, and which folders are a Legacy game's own templates of
// neighbourhoods, which must never be written.
#pragma once

#include <vector>

#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "system/path.h"

namespace marlowick {

// True if the game's program lies in the folder.
bool isGame(const Path& folder, BoundedLook& look);

// The kind of the game in a folder; classic where there is none. The Legacy Collection is known by
// a file beside its program, by the manifests of Steam and Epic, and by the EA app's name for its
// folder; if nothing of that tells, by the saves that it has made, unless the registry names the
// folder as the classic game's.
GameKind kindOfGame(const Path& install, const GameSurroundings& surroundings, BoundedLook& look);

// The folders of the games, of either kind, in whose folder "UserData..." a path lies, or whose
// folder it is, as it is written or with links followed. For most paths there is none, which is
// told without a look at the machine's surroundings.
std::vector<Path> gamesOfUserData(const Path& path, BoundedLook& look);

// True if a path lies in a folder "UserData..." of a Legacy game's install folder, or is that
// folder, as it is written or with links followed. Nothing there is ever written.
bool isLegacyTemplate(const Path& path, const GameSurroundings& surroundings, BoundedLook& look);

// True if a folder that a person chooses may serve as that of the neighbourhoods: a folder
// "UserData..." in it is no template.
bool mayHoldNeighbourhoods(const Path& folder, const GameSurroundings& surroundings,
                           BoundedLook& look);

}  // namespace marlowick
