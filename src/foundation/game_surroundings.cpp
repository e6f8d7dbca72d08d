#include "foundation/game_surroundings.h"

#include <array>
#include <utility>

#include "system/disk.h"
#include "system/known_folders.h"

namespace marlowick {
namespace {

// Below the home folder: Debian's and others' own, the one of Flatpak, the one of Snap.
constexpr std::array<std::string_view, 7> kSteamBelowHome = {
    "\\.local\\share\\Steam",
    "\\.steam\\steam",
    "\\.steam\\root",
    "\\.steam\\debian-installation",
    "\\.var\\app\\com.valvesoftware.Steam\\data\\Steam",
    "\\.var\\app\\com.valvesoftware.Steam\\.local\\share\\Steam",
    "\\snap\\steam\\common\\.local\\share\\Steam",
};

std::function<GameSurroundings()>& surroundingsInUse() {
    static std::function<GameSurroundings()> surroundings;
    return surroundings;
}

GameSurroundings thisMachine() {
    GameSurroundings machine;
    machine.registry = registryValue;
    machine.fixedDrives = fixedDriveRoots();
    machine.programData = programDataFolder();
    machine.savedGames = savedGamesFolder();
    machine.documents = documentsFolder();
    machine.home = homeFolder();
    machine.login = loginName();
    machine.remoteRoots = remoteRoots();
    return machine;
}

// The texts of a value of the registry in the halves for both kinds of programs.
void appendValues(std::vector<Path>& paths, const GameSurroundings& surroundings, RegistryHive hive,
                  std::string_view key, std::string_view name) {
    for (const RegistryView view : {RegistryView::Of32Bit, RegistryView::Of64Bit}) {
        const std::optional<std::string> text =
            surroundings.registry ? surroundings.registry(hive, view, key, name) : std::nullopt;
        if (text && !text->empty()) {
            paths.push_back(pathOfText(*text));
        }
    }
}

}  // namespace

GameSurroundings gameSurroundings() {
    return surroundingsInUse() ? surroundingsInUse()() : thisMachine();
}

void setGameSurroundings(std::function<GameSurroundings()> surroundings) {
    surroundingsInUse() = std::move(surroundings);
}

std::vector<Path> steamFolders(const GameSurroundings& surroundings) {
    constexpr std::string_view kSteam = "Software\\Valve\\Steam";
    std::vector<Path> folders;
    appendValues(folders, surroundings, RegistryHive::CurrentUser, kSteam, "SteamPath");
    appendValues(folders, surroundings, RegistryHive::LocalMachine, kSteam, "InstallPath");
    if (!surroundings.home.empty()) {
        for (const std::string_view folder : kSteamBelowHome) {
            folders.push_back(surroundings.home + folder);
        }
    }
    return folders;
}

std::vector<Path> registeredPaths(const GameSurroundings& surroundings) {
    std::vector<Path> paths;
    for (const RegistryHive hive : {RegistryHive::LocalMachine, RegistryHive::CurrentUser}) {
        appendValues(paths, surroundings, hive, "Software\\Maxis\\The Sims", "InstallPath");
    }
    return paths;
}

}  // namespace marlowick
