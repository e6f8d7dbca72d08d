// Finds the mesh and the skin of a sim's head, wherever the game keeps them, and puts them on the
// disk as ordinary files: what a drawn preview would begin with.
#pragma once

#include <string>

#include "system/path.h"

namespace marlowick {

// The SKN file of a head (a game text such as "C003FA_Original"): in the skins folder, or in
// "\temp" out of an archive; empty if there is none. Both finders upper-case the caller's name once
// the loose file isn't found, and raise 52 for a name that can't be a file name, else what reading
// a suit raises. A failure within an archive is trapped there, and the search goes on.
Path gfstrFindMeshFile(std::string& headName);

// The BMP file of a head's skin, likewise.
Path gfstrFindSkinFile(std::string& skinName);

struct HeadFiles {
    Path mesh;
    Path skin;
};

// Both files, the mesh first; raises what the finders raise.
HeadFiles findHeadFiles(std::string meshName, std::string skinName);

}  // namespace marlowick
