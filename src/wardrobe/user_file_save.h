// How a changed sim or pet reaches its file.
#pragma once

#include <string>

#include "foundation/history_command.h"
#include "iff/iff_file.h"
#include "iff/safe_rewrite.h"
#include "iff/string_segment.h"
#include "system/path.h"

namespace marlowick {

// What a save takes: the file, its record as it was loaded and as the window has it, its rows, the
// name of the sim or pet, what of the record is written, whether the old file is copied to the
// backups first, and what keeps it among the earlier versions.
struct UserFileSave {
    const Path& userFile;
    const IffFile& loaded;
    IffFile& record;
    const StrSegment& rows;
    const std::string& name;
    SavedParts parts;
    bool backupWanted;
    HistoryCommand& history;
};

// Puts the rows into the record and the record, proven, into the file's place, behind a backup if
// one is wanted. Sets CheckpointNumber to 3000 and 4000. Ends after any step that failed, raising
// its failure or, where the step has reported it, with false: the file then is as it was. So it is
// with false also if the old file can't be kept and the person doesn't want to go on.
bool saveUserFile(const UserFileSave& save);

// What the earlier versions call a sim or pet: the name that the game shows, or that of its object.
std::string nameForHistory(const IffFile& loaded);

}  // namespace marlowick
