// The game in Steam: libraries of games, each a folder on some disk, and in the library that has
// the game a manifest that names its folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bounded_look.h"
#include "system/path.h"

namespace marlowick {

// The libraries that a text "libraryfolders.vdf" lists, in its order.
std::vector<Path> librariesOfVdf(std::string_view vdf);

// The name of the game's folder by a manifest ("appmanifest_3314060.acf"), UTF-8; it may be
// anything.
std::optional<std::string> installDirOfManifest(std::string_view acf);

// The libraries of all Steam installs in the folders, in order, each once; those that are there.
std::vector<Path> steamLibraries(const std::vector<Path>& steamFolders, BoundedLook& look);

// The folder that a library's manifest names for the game; nothing if there is no such folder.
std::optional<Path> gameOfLibrary(const Path& library, BoundedLook& look);

// The library that a folder lies in as a game of Steam ("steamapps\common\..."), by the path alone.
std::optional<Path> libraryAround(const Path& install);

// The drives and folders of Windows that Steam keeps in a library for the game ("...\pfx"): a Wine
// prefix. It may not be there yet.
Path steamPrefix(const Path& library);

}  // namespace marlowick
