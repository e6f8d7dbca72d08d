#include "wardrobe/user_file_save.h"

#include "foundation/error_trap.h"
#include "iff/proven_rewrite.h"
#include "iff/sim_names.h"
#include "wardrobe/row_changes.h"
#include "wardrobe/user_backup.h"

namespace marlowick {

bool saveUserFile(const UserFileSave& save) {
    CheckpointNumber = 3000;
    StrSegment before;
    if (!readWardrobeTable(save.loaded, before)) {
        return false;
    }
    CheckpointNumber = 3000;
    if (!writeWardrobeTable(save.record, save.rows) || !writeUserTemp(save.record, save.parts)) {
        return false;
    }
    if (save.backupWanted && !msMakeUserBackup(save.userFile, save.name)) {
        return false;
    }
    CheckpointNumber = 4000;
    const bool isSim = save.parts == SavedParts::All;
    return replaceUserFileProven({save.userFile,
                                  save.loaded,
                                  {save.rows, isSim, !isSim},
                                  save.history,
                                  inWords(rowChanges(before, save.rows))});
}

std::string nameForHistory(const IffFile& loaded) {
    const std::string name = lastCatalogueName(loaded).value_or("");
    return name.empty() ? lastUserLabel(loaded).value_or("") : name;
}

}  // namespace marlowick
