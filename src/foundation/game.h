// Where the game, its neighbourhoods and the program lie. They are set at the start and when the
// player opens another game (open_game.h), and read everywhere.
#pragma once

#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick {

enum class GameKind {
    Classic,  // its neighbourhoods lie in its own folder
    Legacy,  // the Legacy Collection: its neighbourhoods lie among the player's saves, and those in
             // its own folder are templates that are never written
};

// What a person calls such a game.
std::string gameTitle(GameKind kind);

// The game's install folder, without a trailing backslash. Empty or the text "ERROR" when the
// game wasn't found: then it is an ordinary folder name that nothing lies under.
inline Path SimsPath;
inline GameKind SimsKind = GameKind::Classic;

// Where the neighbourhoods lie, if not in the game's own folder; else empty.
inline Path NeighbourhoodsElsewhere;

// The folder that the neighbourhoods lie in, without a trailing backslash.
Path neighbourhoodsPath();

// The folder of a neighbourhood. userDataDir is a game text such as "UserData2"; 52 if it can't be
// a folder's name.
Path neighbourhoodFolder(std::string_view userDataDir);

// The folder of the program's own file. All working files hang off it.
inline Path ProgramFolder;

}  // namespace marlowick
