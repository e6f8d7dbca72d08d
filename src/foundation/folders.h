// The folders below the game's and the program's own that have fixed names, and the files of fixed
// names in them. Each is named here once, without a backslash behind it.
#pragma once

#include <span>
#include <string_view>

#include "system/path.h"

namespace marlowick {

// The game's archives of textures, "\gamedata\textures": the only folder that archives are opened
// from and saved to. A search through the game's archives names it "\GameData\Textures", and hands
// the archives out under that name.
Path texturesFolder();
Path searchedTexturesFolder();

// The folders that loose skins and models lie in.
enum class SkinFolder {
    Game,        // "\gamedata\skins"
    Expansion3,  // "\ExpansionPack3\SkinsBuy"
    Shared,      // "\ExpansionShared\SkinsBuy"
};
Path skinFolder(SkinFolder folder);
// All of them, in the order in which they are searched.
std::span<const SkinFolder> skinFolders();

// The program's own: dated copies of user files, ensembles, and what passes through the disk on its
// way to the screen or into an archive.
Path backupFolder();
Path ensembleFolder();
Path tempFolder();

// In the temporary folder: the last skin that came out of an archive.
inline constexpr std::string_view kSkinTempName = "skintemp.bmp";

// The pictures of the last user file that was unpacked: the portrait, the faces of its moods and
// those of its friendships.
Path webImageFile();
Path facesFile();
Path relationImagesFile();

// The user file that is being saved. It stays after a save.
Path userTempFile();

}  // namespace marlowick
