#include "foundation/game.h"

namespace marlowick {

std::string gameTitle(GameKind kind) {
    return kind == GameKind::Legacy ? "The Sims Legacy Collection" : "The Sims";
}

Path neighbourhoodsPath() {
    return NeighbourhoodsElsewhere.empty() ? SimsPath : NeighbourhoodsElsewhere;
}

Path neighbourhoodFolder(std::string_view userDataDir) {
    return neighbourhoodsPath().child(userDataDir);
}

}  // namespace marlowick
