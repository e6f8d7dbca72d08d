// The game that the program works on: opening it, and what to ask about its neighbourhoods.
#pragma once

#include "foundation/game.h"
#include "system/path.h"

namespace marlowick {

// Sets SimsPath, SimsKind and the folder of the neighbourhoods. chosen: the folder of the
// neighbourhoods that the player has chosen; empty, or one that may not hold neighbourhoods (any
// more), for the game's own or, of a Legacy game, its saves. An install folder without a game
// counts as a classic one.
void openGame(const Path& install, const Path& chosen);

// True if the open game is a Legacy one whose saves the game itself hasn't made yet. Looks for them
// again first, and takes them where they are now.
bool waitsForSaves();

// True if the player may choose the folder as that of the neighbourhoods: a folder "UserData..." in
// it isn't a Legacy game's own template.
bool mayChooseNeighbourhoods(const Path& folder);

// True if a file or folder lies in a Legacy game's own templates of neighbourhoods, also through a
// link: the game never reads what is written there.
bool isTemplate(const Path& path);

// Raises 75 for a file that is about to be written and would lie in such a template.
void refuseTemplate(const Path& path);

// The folder of the neighbourhoods that goes with a game, for a player who chooses none.
Path automaticNeighbourhoods(const Path& install);

}  // namespace marlowick
