#include "foundation/steam_library.h"

#include <algorithm>

#include "foundation/vdf_text.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::string_view kManifest = "\\steamapps\\appmanifest_3314060.acf";

// Bytes. Real ones have a few thousand.
constexpr std::int64_t kLongestText = 1 << 20;

constexpr std::size_t kMostLibraries = 100;

bool isNumber(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool endsIn(const Path& path, std::string_view name) {
    return equalsIgnoringCase(path.fileName(), name);
}

}  // namespace

std::vector<Path> librariesOfVdf(std::string_view vdf) {
    std::vector<Path> libraries;
    readVdf(vdf, [&](const std::vector<std::string>& keys, const std::string& value) {
        // "libraryfolders" { "1" { "path" "D:\\Steam" } }, and of old { "1" "D:\\Steam" }.
        const bool isPath = (keys.size() == 3 && equalsIgnoringCase(keys[2], "path")) ||
                            (keys.size() == 2 && isNumber(keys[1]));
        if (isPath && equalsIgnoringCase(keys[0], "libraryfolders") &&
            libraries.size() < kMostLibraries) {
            libraries.push_back(pathOfText(value));
        }
    });
    return libraries;
}

std::optional<std::string> installDirOfManifest(std::string_view acf) {
    std::optional<std::string> folder;
    readVdf(acf, [&](const std::vector<std::string>& keys, const std::string& value) {
        if (keys.size() == 2 && equalsIgnoringCase(keys[0], "AppState") &&
            equalsIgnoringCase(keys[1], "installdir")) {
            folder = value;
        }
    });
    return folder;
}

std::vector<Path> steamLibraries(const std::vector<Path>& steamFolders, BoundedLook& look) {
    std::vector<Path> libraries;
    const auto add = [&](const Path& library) {
        const std::optional<Path> place = look.folder(library);
        if (place && std::find(libraries.begin(), libraries.end(), *place) == libraries.end()) {
            libraries.push_back(*place);
        }
    };
    std::vector<Path> seen;
    for (const Path& folder : steamFolders) {
        const std::optional<Path> steam = look.folder(folder);
        // Several of the places are links to one.
        if (!steam || std::find(seen.begin(), seen.end(), *steam) != seen.end()) {
            continue;
        }
        seen.push_back(*steam);
        const std::optional<std::string> list =
            look.read(*steam + "\\steamapps\\libraryfolders.vdf", kLongestText);
        for (const Path& library : list ? librariesOfVdf(*list) : std::vector<Path>()) {
            add(library);
        }
        add(*steam);
    }
    return libraries;
}

std::optional<Path> gameOfLibrary(const Path& library, BoundedLook& look) {
    const std::optional<std::string> manifest =
        look.read(library + std::string(kManifest), kLongestText);
    const std::optional<std::string> name =
        manifest ? installDirOfManifest(*manifest) : std::nullopt;
    const std::optional<Path> folder =
        name ? childNamed(library + "\\steamapps\\common", *name) : std::nullopt;
    return folder ? look.folder(*folder) : std::nullopt;
}

std::optional<Path> libraryAround(const Path& install) {
    const Path common = install.folder();
    const Path steamApps = common.folder();
    if (!endsIn(common, "common") || !endsIn(steamApps, "steamapps")) {
        return std::nullopt;
    }
    return steamApps.folder();
}

Path steamPrefix(const Path& library) {
    return library + "\\steamapps\\compatdata\\3314060\\pfx";
}

}  // namespace marlowick
