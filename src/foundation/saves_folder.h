// Where the Legacy Collection keeps a player's neighbourhoods: the folder
// "Electronic Arts\The Sims 25" among the player's saved games, or, of some players, documents.
#pragma once

#include <vector>

#include "foundation/game_surroundings.h"
#include "system/path.h"

namespace marlowick {

struct SavesCandidate {
    Path folder;
    bool isInSavedGames = true;  // else in the documents
};

// The folders that the saves of the game in install may lie in, there or not, in the order in which
// they count. At least one.
std::vector<SavesCandidate> savesCandidates(const Path& install,
                                            const GameSurroundings& surroundings,
                                            BoundedLook& look);

// The folders "UserData..." in a folder.
std::vector<Path> userDataFolders(const Path& folder, BoundedLook& look);

// True if a folder "UserData..." in it has a folder "Characters" or a file "Neighborhood.iff".
bool holdsNeighbourhood(const Path& folder, BoundedLook& look);

// The first candidate that holds a neighbourhood; if none does, the first candidate.
Path savesFolder(const Path& install, const GameSurroundings& surroundings, BoundedLook& look);

}  // namespace marlowick
