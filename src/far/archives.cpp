#include "far/archives.h"

#include <string>

#include "foundation/folders.h"
#include "foundation/game.h"
#include "system/files.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

// Both the folder and the archive bear the pack's name.
Path packArchive(const std::string& pack) {
    return SimsPath + ("\\" + pack + "\\" + pack + ".far");
}

void appendIfPresent(std::vector<Path>& archives, const Path& archive) {
    if (files().fileExists(archive)) {
        archives.push_back(archive);
    }
}

void appendTextures(std::vector<Path>& archives) {
    const Path folder = searchedTexturesFolder();
    for (const std::string& name : searchFiles(folder, "*.far")) {
        if (isFileName(name)) {
            archives.push_back(folder.child(name));
        }
    }
}

void appendStage(std::vector<Path>& archives, ArchiveStage stage, int lastExpansion) {
    switch (stage) {
        case ArchiveStage::Animation:
            appendIfPresent(archives, SimsPath + "\\GameData\\Animation\\Animation.far");
            break;
        case ArchiveStage::BaseTextures:
            appendIfPresent(archives, searchedTexturesFolder() + "\\Textures.far");
            break;
        case ArchiveStage::AllTextures:
            appendTextures(archives);
            break;
        case ArchiveStage::FirstExpansion:
            appendIfPresent(archives, packArchive("ExpansionPack"));
            break;
        case ArchiveStage::Expansions:
            for (int n = 2; n <= lastExpansion; ++n) {
                appendIfPresent(archives, packArchive("ExpansionPack" + std::to_string(n)));
            }
            break;
        case ArchiveStage::Shared:
            appendIfPresent(archives, packArchive("ExpansionShared"));
            break;
    }
}

}  // namespace

std::vector<Path> existingArchives(const std::vector<ArchiveStage>& stages, int lastExpansion) {
    std::vector<Path> archives;
    for (const ArchiveStage stage : stages) {
        appendStage(archives, stage, lastExpansion);
    }
    return archives;
}

}  // namespace marlowick
