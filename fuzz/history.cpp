// The earlier versions: an "about.json" of a stranger restores and prunes nothing but what the
// three kinds of files hold.
#include "foundation/history.h"

#include <algorithm>
#include <string>

#include "bounds.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/history_command.h"
#include "foundation/history_restore.h"
#include "memory_files.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace {

using namespace marlowick;
using fuzz::require;

bool isOfAKind(const std::string& name) {
    return (name.starts_with("C:\\GAME\\USERDATA") && name.ends_with(".IFF") &&
            name.find("\\CHARACTERS\\USER") != std::string::npos) ||
           (name.starts_with("C:\\GAME\\GAMEDATA\\TEXTURES\\") && name.ends_with(".FAR")) ||
           (name.starts_with("C:\\PROGRAM\\ENS\\") && name.ends_with(".ENS"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::MemoryFiles disk;
    ProgramFolder = Path("C:\\program");
    SimsPath = Path("C:\\game");
    History history(historyPlaces(), {2, 2, 1});
    const Path entry = history.places().history + "\\000001 2026-11-21 14.15.33 Save";
    disk.put(entry + "\\about.json", {reinterpret_cast<const char*>(data), size});
    for (const char* name :
         {"\\UserData\\Characters\\user00001.iff", "\\ENS\\x.ens", "\\gamedata\\textures\\a.far"}) {
        disk.put(entry + name, "abc");
    }
    disk.put(Path("C:\\game\\UserData\\Characters\\user00001.iff"), "now");
    disk.put(Path("C:\\game\\gamedata\\textures\\a.far"), "now");
    disk.put(Path("C:\\program\\ENS\\x.ens"), "now");
    disk.put(Path("C:\\game\\other.txt"), "a person's");
    disk.put(Path("C:\\other.txt"), "a person's");
    const fuzz::Bounds bounds(size);
    const std::vector<HistoryEntry> all = history.entries();
    for (const HistoryEntry& one : all) {
        HistoryCommand command(history, "Restore", "", {});
        for (const bool movedToo : {false, true}) {
            for (const RestoreItem& item : restorePlan(history, one, all, {}, movedToo)) {
                try {
                    restoreFile(item, {command});
                } catch (const RuntimeError&) {
                }
            }
        }
    }
    history.prune();
    require(disk.content(Path("C:\\game\\other.txt")) == "a person's" &&
                disk.content(Path("C:\\other.txt")) == "a person's",
            "a stranger's file has changed");
    for (const std::string& name : disk.names()) {
        require(isOfAKind(name) || name.starts_with("C:\\PROGRAM\\HISTORY\\") ||
                    name.ends_with("\\OTHER.TXT"),
                "a file was written elsewhere");
    }
    return 0;
}
