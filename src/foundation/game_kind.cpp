#include "foundation/game_kind.h"

#include <algorithm>

#include "foundation/epic_manifests.h"
#include "foundation/saves_folder.h"
#include "foundation/steam_library.h"
#include "foundation/wine_prefixes.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

// The path as it is written, and as it is with links followed, as far as it is there.
std::vector<Path> formsOf(const Path& path, BoundedLook& look) {
    const Path written = pathOfText(path.text());
    std::vector<Path> forms = {written};
    for (Path above = written; !above.empty(); above = above.folder()) {
        if (const std::optional<Path> place = look.place(above)) {
            const Path real = *place + written.text().substr(above.text().size());
            if (real != written) {
                forms.push_back(real);
            }
            break;
        }
    }
    return forms;
}

class Judge {
  public:
    Judge(const Path& install, const GameSurroundings& surroundings, BoundedLook& look)
        : install_(install),
          forms_(formsOf(install, look)),
          surroundings_(surroundings),
          look_(look),
          shops_(surroundings.remoteRoots, surroundings.clock) {}

    GameKind kind() {
        const bool legacy = look_.file(forms_.front() + "\\eadpsdk.json") || isEasByName() ||
                            isSteams() || isEpics() || (hasSaves() && !isRegistered());
        return legacy ? GameKind::Legacy : GameKind::Classic;
    }

  private:
    bool isInstall(const std::optional<Path>& folder) const {
        return folder && isSamePlace(*folder, install_);
    }

    bool isEasByName() const {
        return std::any_of(forms_.begin(), forms_.end(), [](const Path& path) {
            return equalsIgnoringCase(path.folder().fileName(), "EA Games") &&
                   matchesMask(path.fileName(), "The Sims Legacy*");
        });
    }

    bool isSteams() {
        std::vector<Path> libraries;
        for (const Path& path : forms_) {
            if (const std::optional<Path> library = libraryAround(path)) {
                libraries.push_back(*library);
            }
        }
        const auto hasIt = [this](const Path& library) {
            return isInstall(gameOfLibrary(library, look_));
        };
        if (std::any_of(libraries.begin(), libraries.end(), hasIt)) {
            return true;
        }
        libraries = steamLibraries(steamFolders(surroundings_), shops_);
        return std::any_of(libraries.begin(), libraries.end(), hasIt);
    }

    bool isEpics() {
        const std::vector<Path> installs = epicInstalls(surroundings_.programData, shops_);
        return std::any_of(installs.begin(), installs.end(),
                           [this](const Path& path) { return isInstall(path); });
    }

    // Elsewhere than among the saved games they tell nothing: many programs write documents.
    bool hasSaves() {
        if (surroundings_.savedGames.empty() && !prefix()) {
            return false;
        }
        for (const SavesCandidate& candidate : savesCandidates(install_, surroundings_, look_)) {
            if (candidate.isInSavedGames && look_.folder(candidate.folder + "\\UserData")) {
                return true;
            }
        }
        return false;
    }

    bool isRegistered() {
        const std::vector<Path> paths = registeredPaths(surroundings_);
        return std::any_of(paths.begin(), paths.end(),
                           [this](const Path& path) { return isInstall(look_.folder(path)); }) ||
               (prefix() && isInstall(registeredGame(*prefix(), look_)));
    }

    std::optional<Path> prefix() const {
        for (const Path& path : forms_) {
            if (std::optional<Path> found = prefixAround(path)) {
                return found;
            }
        }
        return std::nullopt;
    }

    const Path& install_;
    std::vector<Path> forms_;
    const GameSurroundings& surroundings_;
    BoundedLook& look_;
    // For the shops' other games: a question about this game doesn't wait for a library in a
    // network.
    BoundedLook shops_;
};

}  // namespace

bool isGame(const Path& folder, BoundedLook& look) {
    return !folder.empty() && look.file(pathOfText(folder.text()) + "\\Sims.exe");
}

GameKind kindOfGame(const Path& install, const GameSurroundings& surroundings, BoundedLook& look) {
    return isGame(install, look) ? Judge(install, surroundings, look).kind() : GameKind::Classic;
}

std::vector<Path> gamesOfUserData(const Path& path, BoundedLook& look) {
    std::vector<Path> games;
    for (const Path& form : formsOf(path, look)) {
        for (Path place = form; !place.empty(); place = place.folder()) {
            if (matchesMask(place.fileName(), "UserData*") && isGame(place.folder(), look)) {
                games.push_back(place.folder());
            }
        }
    }
    return games;
}

bool isLegacyTemplate(const Path& path, const GameSurroundings& surroundings, BoundedLook& look) {
    const std::vector<Path> games = gamesOfUserData(path, look);
    return std::any_of(games.begin(), games.end(), [&](const Path& game) {
        return kindOfGame(game, surroundings, look) == GameKind::Legacy;
    });
}

bool mayHoldNeighbourhoods(const Path& folder, const GameSurroundings& surroundings,
                           BoundedLook& look) {
    const std::vector<Path> found = userDataFolders(folder, look);
    return std::any_of(found.begin(), found.end(), [&](const Path& neighbourhood) {
        return !isLegacyTemplate(neighbourhood, surroundings, look);
    });
}

}  // namespace marlowick
