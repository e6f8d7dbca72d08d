// How a changed sim or pet reaches its file.
#pragma once

#include <string>

#include "iff/iff_file.h"
#include "iff/safe_rewrite.h"
#include "iff/string_segment.h"
#include "system/path.h"

namespace marlowick {

// What a save takes: the file, its record, its rows, the name of the sim or pet, what of the record
// is written, and whether the old file is copied to the backups first.
struct UserFileSave {
    const Path& userFile;
    IffFile& record;
    const StrSegment& rows;
    const std::string& name;
    SavedParts parts;
    bool backupWanted;
};

// Puts the rows into the record and the record into the file's place, behind a backup if one is
// wanted. Sets CheckpointNumber to 3000 and 4000. Ends after any step that failed, raising its
// failure or, where the step has reported it, with false: the file then is as it was.
bool saveUserFile(const UserFileSave& save);

}  // namespace marlowick
