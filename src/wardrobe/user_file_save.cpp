#include "wardrobe/user_file_save.h"

#include "foundation/error_trap.h"
#include "iff/safe_rewrite.h"
#include "wardrobe/user_backup.h"

namespace marlowick {

bool saveUserFile(const UserFileSave& save) {
    CheckpointNumber = 3000;
    if (!writeWardrobeTable(save.record, save.rows) || !save.writeTemp(save.record)) {
        return false;
    }
    if (save.backupWanted && !msMakeUserBackup(save.userFile, save.name)) {
        return false;
    }
    CheckpointNumber = 4000;
    replaceUserFile(save.userFile);
    return true;
}

}  // namespace marlowick
