#include <memory>
#include <string>

#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/open_game.h"
#include "system/block_copy.h"
#include "system/game_text.h"
#include "system/streams.h"

namespace marlowick {
namespace {

void copyEntry(File& archive, File& output, const FarEntry& entry) {
    archive.seek(gflngLittleEndianToLong(entry.FileOffset));
    copyBlocks(archive, output, gflngLittleEndianToLong(entry.FileSize));
}

void extractThroughSlots(const Path& archive, const Path& folder, std::string_view outputName,
                         const FarDirectory& directory, int number) {
    const Path output = folder.child(outputName);
    File& source = streams().open(slot::kExtractSource, archive, OpenMode::Binary);
    File& target = streams().open(slot::kExtractOutput, output, OpenMode::Binary);
    copyEntry(source, target, directory.Entries[number]);
    streams().close(slot::kExtractSource);
    streams().close(slot::kExtractOutput);
}

}  // namespace

bool gsExtractFile(const Path& archive, const Path& folder, const FarDirectory& directory,
                   int number) {
    return trapped("modFARsupport", "gsExtractFile", [&] {
        const std::string name = gfstrFileNameOfPath(directory.Entries[number].FileName);
        refuseTemplate(folder.child(name));
        extractThroughSlots(archive, folder, name, directory, number);
    });
}

bool gsExtractFileEx(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number) {
    return trapped("modFARsupport", "gsExtractFileEx",
                   [&] { extractThroughSlots(archive, folder, outputName, directory, number); });
}

FarExtraction::FarExtraction(const Path& archive, const Path& folder)
    : archive_(archive), folder_(folder), held_(folder) {}

FarExtraction::~FarExtraction() {
    if (isOpen_) {
        streams().close(slot::kExtractSource);
    }
}

bool FarExtraction::extract(const FarDirectory& directory, int number) {
    return trapped("modFARsupport", "gsExtractFile", [&] {
        const std::string name = gfstrFileNameOfPath(directory.Entries[number].FileName);
        const Path output = folder_.child(name);
        refuseTemplates(output, name);
        // After a failure the slot stays taken, and each later entry fails at its opening.
        File& source = isOpen_ ? streams().at(slot::kExtractSource)
                               : streams().open(slot::kExtractSource, archive_, OpenMode::Binary);
        isOpen_ = false;
        File& target = streams().open(slot::kExtractOutput, output, OpenMode::Binary);
        copyEntry(source, target, directory.Entries[number]);
        streams().close(slot::kExtractOutput);
        isOpen_ = true;
    });
}

// A file lies in a template if its folder does; where it is a link or is itself called like one, it
// is asked on its own.
void FarExtraction::refuseTemplates(const Path& output, const std::string& name) {
    if (!isTemplate_) {
        isTemplate_ = isTemplate(folder_);
    }
    if (*isTemplate_) {
        throw RuntimeError(error::kPathFileAccess);
    }
    if (matchesMask(name, "UserData*") || files().isLink(output)) {
        refuseTemplate(output);
    }
}

void extractFarEntry(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number) {
    const std::unique_ptr<File> source = files().open(archive, OpenMode::Input);
    const std::unique_ptr<File> target = files().open(folder.child(outputName), OpenMode::Binary);
    copyEntry(*source, *target, directory.Entries[number]);
}

}  // namespace marlowick
