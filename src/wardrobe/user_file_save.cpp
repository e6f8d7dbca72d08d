#include "wardrobe/user_file_save.h"

#include "foundation/error_trap.h"
#include "wardrobe/user_backup.h"

namespace marlowick {

bool saveUserFile(const UserFileSave& save) {
    CheckpointNumber = 3000;
    if (!writeWardrobeTable(save.record, save.rows) || !writeUserTemp(save.record, save.parts)) {
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
