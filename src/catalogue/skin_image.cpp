#include "catalogue/skin_image.h"

#include <string>

#include "far/archives.h"
#include "far/far_directory.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "system/game_text.h"
#include "system/path.h"

namespace marlowick {
namespace {

bool loadFromFolders(PictureTarget& picture, std::string_view name) {
    for (const SkinFolder folder : skinFolders()) {
        const bool loaded = ignoringErrors(
            [&] { picture.load(skinFolder(folder).child(std::string(name) + ".bmp")); });
        if (loaded) {
            return true;
        }
    }
    return false;
}

// The number of the first entry whose bare name begins with the wanted one; 0 if none does.
int firstMatch(const FarDirectory& directory, const std::string& wanted) {
    const int count = farEntryCount(directory);
    for (int number = 1; number <= count; ++number) {
        if (gfstrFarBaseName(directory.Entries[number].FileName).starts_with(wanted)) {
            return number;
        }
    }
    return 0;
}

void loadFromArchives(PictureTarget& picture, const std::string& wanted) {
    const auto archives = existingArchives(
        {ArchiveStage::BaseTextures, ArchiveStage::Shared, ArchiveStage::FirstExpansion,
         ArchiveStage::Expansions, ArchiveStage::AllTextures},
        kLastSkinExpansion);
    for (const Path& archive : archives) {
        FarDirectory directory;
        ignoringErrors([&] { readFarDirectory(directory, archive); });
        const int number = firstMatch(directory, wanted);
        if (number == 0) {
            continue;
        }
        // The first hit ends the search, whatever becomes of it.
        ignoringErrors(
            [&] { extractFarEntry(archive, tempFolder(), kSkinTempName, directory, number); });
        ignoringErrors([&] { picture.load(tempFolder().child(kSkinTempName)); });
        return;
    }
}

}  // namespace

void gsFetchSkinImage(PictureTarget& picture, std::string_view name) {
    if (name.starts_with("***") || loadFromFolders(picture, name)) {
        return;
    }
    loadFromArchives(picture, upperCase(name));
}

void showArchiveSkin(PictureTarget& picture, const Path& archive, int number) {
    FarDirectory directory;
    gsReadFARdir(directory, archive);
    gsExtractFileEx(archive, tempFolder(), kSkinTempName, directory, number);
    picture.load(tempFolder().child(kSkinTempName));
}

void showChosenSkin(PictureTarget& picture, const ChosenSkin& chosen) {
    if (chosen.FarFileIndex == -1) {
        picture.load(chosen.LoadSkinFile);
    } else {
        showArchiveSkin(picture, chosen.LoadSkinFile, chosen.FarFileIndex);
    }
}

}  // namespace marlowick
