// Ensembles: what can be loaded is saved and loaded again as the same clothes.
#include "wardrobe/ensemble.h"

#include "bounds.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/history.h"
#include "foundation/history_command.h"
#include "memory_files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    fuzz::MemoryFiles disk;
    ProgramFolder = Path("C:\\program");
    const Path path = ensembleFolder() + "\\x.ENS";
    disk.put(path, {reinterpret_cast<const char*>(data), size});
    const fuzz::Bounds bounds(size);
    WardrobeFields fields;
    try {
        loadEnsemble(path, fields);
    } catch (const RuntimeError&) {
        streams().closeAll();
        return 0;
    }
    History history(historyPlaces());
    HistoryCommand command(history, "Save Ensemble", "", {});
    fuzz::require(saveEnsemble(path, fields, command), "an ensemble that was loaded isn't saved");
    WardrobeFields again;
    loadEnsemble(path, again);
    for (const NamedField& named : kNamedFields) {
        fuzz::require(fields.*named.field == again.*named.field, "clothes have changed");
    }
    return 0;
}
