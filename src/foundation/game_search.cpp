#include "foundation/game_search.h"

#include <algorithm>
#include <utility>

#include "foundation/epic_manifests.h"
#include "foundation/game_kind.h"
#include "foundation/steam_library.h"
#include "foundation/wine_prefixes.h"
#include "system/files.h"

namespace marlowick {
namespace {

constexpr std::size_t kMostGamesOfFolder = 100;

class Search {
  public:
    explicit Search(const GameSurroundings& surroundings)
        : surroundings_(surroundings), look_(surroundings.remoteRoots, surroundings.clock) {}

    std::vector<FoundGame> run() {
        lookInSteam();
        lookInEasFolders();
        for (const Path& install : epicInstalls(surroundings_.programData, look_)) {
            add(install, "Epic", GameKind::Legacy);
        }
        for (const Path& path : registeredPaths(surroundings_)) {
            add(path, "registry");
        }
        for (const WinePrefix& prefix : winePrefixes(surroundings_.home, look_)) {
            lookInPrefix(prefix);
        }
        return std::move(found_);
    }

  private:
    // kind: if the place that it was found in tells.
    void add(const Path& path, const std::string& from, std::optional<GameKind> kind = {}) {
        const std::optional<Path> folder = look_.folder(path);
        if (!folder || isKnown(*folder) || !isGame(*folder, look_)) {
            return;
        }
        if (!kind) {
            kind = kindOfGame(*folder, surroundings_, look_);
        }
        found_.push_back({*folder, *kind, from});
    }

    bool isKnown(const Path& folder) const {
        return std::any_of(found_.begin(), found_.end(),
                           [&](const FoundGame& game) { return game.folder == folder; });
    }

    void lookInSteam() {
        for (const Path& library : steamLibraries(steamFolders(surroundings_), look_)) {
            if (const std::optional<Path> game = gameOfLibrary(library, look_)) {
                add(*game, "Steam", GameKind::Legacy);
            }
        }
    }

    void lookInEasFolders() {
        for (const Path& drive : surroundings_.fixedDrives) {
            for (const char* name : {"\\Program Files\\EA Games", "\\EA Games"}) {
                const Path folder(pathOfText(drive.text()).text() + name);
                add(folder + "\\The Sims Legacy", "EA app", GameKind::Legacy);
                for (const std::string& game : look_.names(folder, kMostGamesOfFolder)) {
                    add(Path(folder.text() + "\\" + game), "EA app");
                }
            }
        }
    }

    void lookInPrefix(const WinePrefix& prefix) {
        const std::string from = "Wine prefix " + prefix.shown;
        if (const std::optional<Path> game = registeredGame(prefix.folder, look_)) {
            add(*game, from);
        }
        add(prefix.folder + "\\drive_c\\Program Files\\EA Games\\The Sims Legacy", from,
            GameKind::Legacy);
    }

    const GameSurroundings& surroundings_;
    BoundedLook look_;
    std::vector<FoundGame> found_;
};

bool holdsGame(const Path& folder) {
    return !folder.empty() && files().fileExists(folder + "\\Sims.exe");
}

}  // namespace

std::vector<FoundGame> findGames(const GameSurroundings& surroundings) {
    return Search(surroundings).run();
}

std::string foundGameText(const FoundGame& game) {
    return gameTitle(game.kind) + " (" + game.from + ")";
}

Path locationAtStart(const Path& setting, const Path& registered,
                     const std::function<std::vector<FoundGame>()>& search) {
    if (holdsGame(setting)) {
        return setting;
    }
    if (setting.empty() && holdsGame(registered)) {
        return registered;
    }
    const std::vector<FoundGame> games = search();
    if (!games.empty()) {
        return games.front().folder;
    }
    return setting.empty() ? registered : setting;
}

}  // namespace marlowick
