#include "catalogue/skin_image.h"

#include <string>

#include "far/archive_directory.h"
#include "far/archives.h"
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

}  // namespace

void SkinImages::fetch(PictureTarget& picture, std::string_view name) {
    if (!name.starts_with("***") && !loadFromFolders(picture, name)) {
        fetchFromArchives(picture, name);
    }
}

void SkinImages::fetchFromArchives(PictureTarget& picture, std::string_view name) {
    if (!archives_) {
        archives_ = existingArchives(
            {ArchiveStage::BaseTextures, ArchiveStage::Shared, ArchiveStage::FirstExpansion,
             ArchiveStage::Expansions, ArchiveStage::AllTextures},
            kLastSkinExpansion);
    }
    for (const Path& archive : *archives_) {
        const auto directory = lookAtArchiveDirectory(archive).directory;
        const int number = directory->firstBeginningWith(name);
        if (number == 0) {
            continue;
        }
        // The first hit ends the search, whatever becomes of it.
        std::int64_t length = kWholeFile;
        ignoringErrors([&] {
            const FarDirectory& record = directory->record();
            extractFarEntry(archive, tempFolder(), kSkinTempName, record, number);
            length = farEntryLength(record.Entries[number], archive);
        });
        ignoringErrors([&] { picture.load(tempFolder().child(kSkinTempName), length); });
        return;
    }
}

void gsFetchSkinImage(PictureTarget& picture, std::string_view name) {
    SkinImages().fetch(picture, name);
}

ExtractedSkin extractSkin(const Path& archive, int number) {
    const auto directory = readArchiveDirectory(archive);
    const FarDirectory& record = directory->record();
    const bool copied = gsExtractFileEx(archive, tempFolder(), kSkinTempName, record, number);
    const FarEntry& entry = record.Entries[number];
    return {tempFolder().child(kSkinTempName), copied ? farEntryLength(entry, archive) : kWholeFile,
            upperCase(directory->baseName(number))};
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
