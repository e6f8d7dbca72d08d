#include "preview/head_files.h"

#include <string_view>
#include <utility>

#include "far/archive_directory.h"
#include "far/archives.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "mesh/mesh_converter.h"
#include "mesh/suit.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::string_view kSuitTempName = "bcftemp.bcf";
constexpr std::string_view kBmfTempName = "skntemp.bmf";
constexpr std::string_view kSknTempName = "skntemp.skn";
// One letter less than the file that a skin goes to: an old "skintemp.bmp" is never deleted here,
// only written over.
constexpr std::string_view kOldSkinName = "skntemp.bmp";

constexpr std::string_view kSuitSuffix = ".CMX.BCF";
constexpr std::string_view kBmfSuffix = ".BMF";
constexpr std::string_view kSknSuffix = ".SKN";
constexpr std::string_view kBmpSuffix = ".BMP";

void removeTemp(std::string_view name) {
    ignoringErrors([&] { files().remove(tempFolder().child(name)); });
}

// The number of the first entry that is called the wanted name and the suffix, neither of them
// empty; 0 if none is.
int findEntry(const ArchiveDirectory& directory, const std::string& wanted,
              std::string_view suffix) {
    return wanted.empty() ? 0 : directory.firstNamed(wanted + std::string(suffix));
}

// The same without a guard on the length of names: one that is met and is shorter than the suffix
// is 5.
int findEntryUnguarded(const ArchiveDirectory& directory, const std::string& wanted,
                       std::string_view suffix) {
    const std::string name = wanted + std::string(suffix);
    for (int number = 1; number <= directory.count(); ++number) {
        const std::string_view base = directory.baseName(number);
        if (base.size() < suffix.size()) {
            throw RuntimeError(error::kInvalidArgument);
        }
        if (equalsIgnoringCase(base, name)) {
            return number;
        }
    }
    return 0;
}

Path extractToTemp(const Path& archive, const ArchiveDirectory& directory, int number,
                   std::string_view name) {
    gsExtractFileEx(archive, tempFolder(), name, directory.record(), number);
    return tempFolder().child(name);
}

// Takes the mesh on the head out of an extracted suit; without one the name stays what it was.
void readHeadMesh(const Path& bcf, std::string& meshName) {
    SuitRecord suit;
    gsReadSuitBCF(bcf, suit);
    for (int row = 1; row <= suit.Rows.bound(); ++row) {
        if (suit.Rows[row].BoneName == kHeadBone) {
            meshName = upperCase(suit.Rows[row].MeshName);
            return;
        }
    }
}

// The archives' mesh in text form, in "\temp"; empty if this one doesn't hold it.
Path meshFromAnimation(const Path& archive, const ArchiveDirectory& directory,
                       const std::string& meshName) {
    const int number = findEntryUnguarded(directory, meshName, kBmfSuffix);
    if (number == 0) {
        return {};
    }
    Path skn = tempFolder().child(kSknTempName);
    gsConvertBMFtoSKN(extractToTemp(archive, directory, number, kBmfTempName), skn);
    return skn;
}

Path meshFromExpansion(const Path& archive, const ArchiveDirectory& directory,
                       const std::string& meshName) {
    const int number = findEntry(directory, meshName, kSknSuffix);
    return number == 0 ? Path() : extractToTemp(archive, directory, number, kSknTempName);
}

// The mesh of a head whose suit lies in the same archive; empty if it isn't there.
Path meshFromArchive(const Path& archive, bool isAnimation, const std::string& headName,
                     std::string& meshName) {
    const auto directory = readArchiveDirectory(archive);
    const int number = findEntry(*directory, headName, kSuitSuffix);
    if (number == 0) {
        return {};
    }
    readHeadMesh(extractToTemp(archive, *directory, number, kSuitTempName), meshName);
    return isAnimation ? meshFromAnimation(archive, *directory, meshName)
                       : meshFromExpansion(archive, *directory, meshName);
}

}  // namespace

Path gfstrFindMeshFile(std::string& headName) {
    for (const std::string_view name : {kSuitTempName, kBmfTempName, kSknTempName}) {
        removeTemp(name);
    }
    const Path loose = skinFolder(SkinFolder::Game).child(headName + ".cmx");
    if (files().fileExists(loose)) {
        return skinFolder(SkinFolder::Game).child(headMeshOfCmx(loose) + ".skn");
    }
    headName = upperCase(headName);
    std::string meshName;
    for (const ArchiveStage stage : {ArchiveStage::Animation, ArchiveStage::FirstExpansion,
                                     ArchiveStage::Expansions, ArchiveStage::Shared}) {
        for (const Path& archive : existingArchives({stage}, kLastModelExpansion)) {
            Path mesh =
                meshFromArchive(archive, stage == ArchiveStage::Animation, headName, meshName);
            if (!mesh.empty()) {
                return mesh;
            }
        }
    }
    return {};
}

Path gfstrFindSkinFile(std::string& skinName) {
    removeTemp(kOldSkinName);
    Path loose = skinFolder(SkinFolder::Game).child(skinName + std::string(kBmpSuffix));
    if (files().fileExists(loose)) {
        return loose;
    }
    skinName = upperCase(skinName);
    const auto archives = existingArchives({ArchiveStage::AllTextures, ArchiveStage::FirstExpansion,
                                            ArchiveStage::Expansions, ArchiveStage::Shared},
                                           kLastModelExpansion);
    for (const Path& archive : archives) {
        const auto directory = readArchiveDirectory(archive);
        const int number = findEntry(*directory, skinName, kBmpSuffix);
        if (number != 0) {
            return extractToTemp(archive, *directory, number, kSkinTempName);
        }
    }
    return {};
}

HeadFiles findHeadFiles(std::string meshName, std::string skinName) {
    Path mesh = gfstrFindMeshFile(meshName);
    return {std::move(mesh), gfstrFindSkinFile(skinName)};
}

}  // namespace marlowick
