// Finding the game where its shops and its players put it: Steam, the EA app, Epic, the registry,
// Wine prefixes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "system/path.h"

namespace marlowick {

struct FoundGame {
    Path folder;
    GameKind kind = GameKind::Classic;
    std::string from;  // in words: "Steam", "EA app", "Epic", "registry", "Wine prefix ~/.wine"
};

// The games that are found, the likeliest first, each once. It takes two seconds at most.
std::vector<FoundGame> findGames(const GameSurroundings& surroundings);

// The line of a list for a found game: "The Sims Legacy Collection (Steam)".
std::string foundGameText(const FoundGame& game);

// Where the game lies for a program that starts: the setting if the game lies there; else, if the
// setting is empty, what the registry says, if the game lies there; else the first game that search
// finds; else the setting, or what the registry says in the place of an empty one. search is only
// asked where it matters.
Path locationAtStart(const Path& setting, const Path& registered,
                     const std::function<std::vector<FoundGame>()>& search);

}  // namespace marlowick
