#include "foundation/folders.h"

#include "foundation/game.h"

namespace marlowick {
namespace {

constexpr SkinFolder kSkinFolders[] = {SkinFolder::Game, SkinFolder::Expansion3,
                                       SkinFolder::Shared};

}  // namespace

Path texturesFolder() {
    return SimsPath + "\\gamedata\\textures";
}

Path searchedTexturesFolder() {
    return SimsPath + "\\GameData\\Textures";
}

Path skinFolder(SkinFolder folder) {
    switch (folder) {
        case SkinFolder::Game:
            return SimsPath + "\\gamedata\\skins";
        case SkinFolder::Expansion3:
            return SimsPath + "\\ExpansionPack3\\SkinsBuy";
        case SkinFolder::Shared:
            return SimsPath + "\\ExpansionShared\\SkinsBuy";
    }
    return {};
}

std::span<const SkinFolder> skinFolders() {
    return kSkinFolders;
}

Path backupFolder() {
    return ProgramFolder + "\\Backup";
}

Path ensembleFolder() {
    return ProgramFolder + "\\ENS";
}

Path tempFolder() {
    return ProgramFolder + "\\temp";
}

Path webImageFile() {
    return ProgramFolder + "\\web_image.bmp";
}

Path facesFile() {
    return ProgramFolder + "\\faces.bmp";
}

Path relationImagesFile() {
    return ProgramFolder + "\\relimages.bmp";
}

Path userTempFile() {
    return ProgramFolder + "\\usertemp.iff";
}

}  // namespace marlowick
