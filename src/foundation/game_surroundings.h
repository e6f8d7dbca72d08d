// What of the machine the program asks about when it looks for the game and its saves. On each
// system a part of it is empty, and nothing is looked for there. Tests put made-up surroundings in
// place.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bounded_look.h"
#include "system/path.h"
#include "system/registry_values.h"

namespace marlowick {

struct GameSurroundings {
    // Windows: the registry (an empty function has no values), the disks that are built in, and the
    // folders that the system keeps, moved or not.
    std::function<std::optional<std::string>(RegistryHive, RegistryView, std::string_view key,
                                             std::string_view name)>
        registry;
    std::vector<Path> fixedDrives;
    Path programData;
    Path savedGames;
    Path documents;

    // Linux: the person's home folder and login name, which all of Steam's folders and the Wine
    // prefixes hang off.
    Path home;
    std::string login;

    // For a search: roots that it doesn't look behind (remoteRoots of system/disk.h), and the time.
    std::vector<Path> remoteRoots;
    SearchClock clock = std::chrono::steady_clock::now;
};

// Those of this machine, or those that were put in their place.
GameSurroundings gameSurroundings();

// An empty function is this machine again.
void setGameSurroundings(std::function<GameSurroundings()> surroundings);

// The folders that Steam itself may lie in, in the order in which they are looked at; several may
// be links to one.
std::vector<Path> steamFolders(const GameSurroundings& surroundings);

// The folders that the registry of Windows names as that of the classic game, there or not.
std::vector<Path> registeredPaths(const GameSurroundings& surroundings);

}  // namespace marlowick
