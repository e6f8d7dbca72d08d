#include "foundation/saves_folder.h"

#include <algorithm>

#include "foundation/steam_library.h"
#include "foundation/wine_prefixes.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::string_view kSaves = "\\Electronic Arts\\The Sims 25";
constexpr std::size_t kMostNames = 1000;

// The prefix that the game in install runs in comes first.
class Prefixes {
  public:
    Prefixes(const GameSurroundings& surroundings, BoundedLook& look)
        : surroundings_(surroundings), look_(look) {}

    // As the path is written, and as it is with links followed: a library may have links in it, and
    // links may lead to it.
    void addThoseOf(const Path& install) {
        std::vector<Path> paths = {pathOfText(install.text())};
        if (const std::optional<Path> place = look_.place(install)) {
            paths.push_back(*place);
        }
        bool isSteams = false;
        for (const Path& path : paths) {
            const std::optional<Path> library = libraryAround(path);
            isSteams = isSteams || library.has_value();
            if (library) {
                add(steamPrefix(*library));
            }
            if (const std::optional<Path> prefix = prefixAround(path)) {
                add(*prefix);
            }
        }
        if (isSteams) {
            for (const Path& library : steamLibraries(steamFolders(surroundings_), look_)) {
                add(steamPrefix(library));
            }
        }
    }

    // A game outside of any prefix may be run in one all the same.
    void addAll() {
        for (const WinePrefix& prefix : winePrefixes(surroundings_.home, look_)) {
            add(prefix.folder);
        }
        add(surroundings_.home + "\\.wine");
    }

    // Those that are there, or, if none is, the first as it would be.
    std::vector<Path> take() {
        std::vector<Path> there;
        for (const Path& prefix : prefixes_) {
            if (look_.folder(prefix)) {
                there.push_back(prefix);
            }
        }
        if (there.empty() && !prefixes_.empty()) {
            there.push_back(prefixes_.front());
        }
        return there;
    }

    bool isEmpty() const { return prefixes_.empty(); }

  private:
    void add(const Path& prefix) {
        if (std::find(prefixes_.begin(), prefixes_.end(), prefix) == prefixes_.end()) {
            prefixes_.push_back(prefix);
        }
    }

    const GameSurroundings& surroundings_;
    BoundedLook& look_;
    std::vector<Path> prefixes_;
};

}  // namespace

std::vector<SavesCandidate> savesCandidates(const Path& install,
                                            const GameSurroundings& surroundings,
                                            BoundedLook& look) {
    std::vector<SavesCandidate> candidates;
    const auto add = [&](const Path& savedGames, const Path& documents) {
        candidates.push_back({savedGames + kSaves, true});
        if (!documents.empty()) {
            candidates.push_back({documents + kSaves, false});
        }
    };
    if (!surroundings.savedGames.empty()) {
        add(surroundings.savedGames, surroundings.documents);
        return candidates;
    }
    Prefixes prefixes(surroundings, look);
    prefixes.addThoseOf(install);
    if (prefixes.isEmpty()) {
        prefixes.addAll();
    }
    for (const Path& prefix : prefixes.take()) {
        for (const PrefixFolders& folders : prefixFolders(prefix, surroundings.login, look)) {
            add(folders.savedGames, folders.documents);
        }
    }
    return candidates;
}

std::vector<Path> userDataFolders(const Path& folder, BoundedLook& look) {
    const Path above = pathOfText(folder.text());
    std::vector<Path> folders;
    for (const std::string& name : look.names(above, kMostNames)) {
        const Path neighbourhood(above.text() + "\\" + name);
        if (matchesMask(name, "UserData*") && look.folder(neighbourhood)) {
            folders.push_back(neighbourhood);
        }
    }
    return folders;
}

bool holdsNeighbourhood(const Path& folder, BoundedLook& look) {
    const std::vector<Path> found = userDataFolders(folder, look);
    return std::any_of(found.begin(), found.end(), [&](const Path& neighbourhood) {
        return look.folder(neighbourhood + "\\Characters") ||
               look.file(neighbourhood + "\\Neighborhood.iff");
    });
}

Path savesFolder(const Path& install, const GameSurroundings& surroundings, BoundedLook& look) {
    const std::vector<SavesCandidate> candidates = savesCandidates(install, surroundings, look);
    for (const SavesCandidate& candidate : candidates) {
        if (holdsNeighbourhood(candidate.folder, look)) {
            return candidate.folder;
        }
    }
    return candidates.front().folder;
}

}  // namespace marlowick
