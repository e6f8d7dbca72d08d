#include "catalogue/skin_image.h"

#include <algorithm>
#include <string>

#include "far/archives.h"
#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "system/files.h"
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
        std::int64_t length = kWholeFile;
        ignoringErrors([&] {
            extractFarEntry(archive, tempFolder(), kSkinTempName, directory, number);
            length = farEntryLength(directory.Entries[number], archive);
        });
        ignoringErrors([&] { picture.load(tempFolder().child(kSkinTempName), length); });
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

ExtractedSkin extractSkin(const Path& archive, int number) {
    FarDirectory directory;
    gsReadFARdir(directory, archive);
    const bool copied = gsExtractFileEx(archive, tempFolder(), kSkinTempName, directory, number);
    const FarEntry& entry = directory.Entries[number];
    return {tempFolder().child(kSkinTempName), copied ? farEntryLength(entry, archive) : kWholeFile,
            gfstrFarBaseName(entry.FileName)};
}

void showChosenSkin(PictureTarget& picture, const ChosenSkin& chosen) {
    if (chosen.FarFileIndex == -1) {
        picture.load(chosen.LoadSkinFile);
        return;
    }
    const ExtractedSkin skin = extractSkin(chosen.LoadSkinFile, chosen.FarFileIndex);
    picture.load(skin.file, skin.length);
}

}  // namespace marlowick
