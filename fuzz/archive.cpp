// Archives: the directory, extraction, which writes into its folder alone, and a save with its
// proof.
#include <string>

#include "bounds.h"
#include "far/far_directory.h"
#include "far/far_edit.h"
#include "far/far_save.h"
#include "foundation/bytes.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/history.h"
#include "foundation/history_command.h"
#include "memory_files.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace {

using namespace marlowick;
using fuzz::require;

constexpr std::int64_t kLargestWork = 1 << 22;  // bytes: entries may all lie over one another

std::int64_t lengthOfAll(const FarDirectory& directory, const Path& archive) {
    std::int64_t length = 0;
    for (int number = 1; number <= farEntryCount(directory); ++number) {
        length += farEntryLength(directory.Entries[number], archive);
    }
    return length;
}

void extractSome(const fuzz::MemoryFiles& disk, const Path& archive,
                 const FarDirectory& directory) {
    const Path folder("C:\\game\\out\\meant");
    for (int number = 1; number <= std::min(farEntryCount(directory), 20); ++number) {
        gsExtractFile(archive, folder, directory, number);
        streams().closeAll();
    }
    for (const std::string& name : disk.names()) {
        require(name == upperCase(archive.text()) || name.starts_with("C:\\PROGRAM\\") ||
                    (name.starts_with("C:\\GAME\\OUT\\MEANT\\") &&
                     name.find('\\', 18) == std::string::npos),
                "a file was written elsewhere");
    }
}

void save(const Path& archive, const FarDirectory& directory) {
    FarEdit edit;
    edit.mstrFarFile = archive;
    edit.mudtFarDir = directory;
    try {
        listEntries(edit);
        deleteRows(edit, {0});
        const FarDirectory meant = edit.mudtFarDir;
        History history(historyPlaces());
        HistoryCommand command(history, "Save", "", {});
        saveArchive(edit, archive, command, {[](int, int) {}, [] {}});
        require(edit.mudtFarDir.Entries.bound() == farEntryCount(meant) - 1, "an entry is lost");
        for (int number = 1; number <= edit.mudtFarDir.Entries.bound(); ++number) {
            const FarEntry& was = meant.Entries[number + 1];
            const FarEntry& is = edit.mudtFarDir.Entries[number];
            require(is.FileName == was.FileName && is.FileSize == was.FileSize &&
                        is.FileSize2 == was.FileSize2,
                    "an entry has changed");
        }
    } catch (const RuntimeError&) {
    }
    streams().closeAll();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::MemoryFiles disk;
    ProgramFolder = Path("C:\\program");
    SimsPath = Path("C:\\game");
    const Path archive = texturesFolder() + "\\a.far";
    disk.put(archive, {reinterpret_cast<const char*>(data), size});
    disk.put(tempFolder() + "\\x", "");
    disk.put(Path("C:\\game\\out\\meant\\x"), "");
    const fuzz::Bounds bounds(size);
    FarDirectory directory;
    if (!gsReadFARdir(directory, archive)) {
        streams().closeAll();
        return 0;
    }
    if (lengthOfAll(directory, archive) <= kLargestWork && farEntryCount(directory) > 0) {
        extractSome(disk, archive, directory);
        save(archive, directory);
    }
    return 0;
}
