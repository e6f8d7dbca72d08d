#include "foundation/open_game.h"

#include "foundation/game_kind.h"
#include "foundation/saves_folder.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

// Whether the folder of the neighbourhoods is one that the player has chosen.
bool isChosen = false;

Path savesOf(const Path& install) {
    BoundedLook look;
    return savesFolder(install, gameSurroundings(), look);
}

}  // namespace

void openGame(const Path& install, const Path& chosen) {
    BoundedLook look;
    SimsPath = install;
    SimsKind = kindOfGame(install, gameSurroundings(), look);
    isChosen = mayChooseNeighbourhoods(chosen);
    if (isChosen) {
        NeighbourhoodsElsewhere = chosen;
    } else {
        NeighbourhoodsElsewhere = SimsKind == GameKind::Legacy ? savesOf(install) : Path();
    }
}

bool waitsForSaves() {
    if (SimsKind != GameKind::Legacy || isChosen) {
        return false;
    }
    BoundedLook look;
    if (holdsNeighbourhood(NeighbourhoodsElsewhere, look)) {
        return false;
    }
    NeighbourhoodsElsewhere = savesOf(SimsPath);
    return !holdsNeighbourhood(NeighbourhoodsElsewhere, look);
}

bool mayChooseNeighbourhoods(const Path& folder) {
    BoundedLook look;
    return !folder.empty() && mayHoldNeighbourhoods(folder, gameSurroundings(), look);
}

bool isTemplate(const Path& path) {
    BoundedLook look;
    // To ask the machine for its drives and mounts takes longer than to write a small file.
    return !gamesOfUserData(path, look).empty() && isLegacyTemplate(path, gameSurroundings(), look);
}

void refuseTemplate(const Path& path) {
    if (isTemplate(path)) {
        throw RuntimeError(error::kPathFileAccess);
    }
}

Path automaticNeighbourhoods(const Path& install) {
    BoundedLook look;
    return kindOfGame(install, gameSurroundings(), look) == GameKind::Legacy ? savesOf(install)
                                                                             : install;
}

}  // namespace marlowick
