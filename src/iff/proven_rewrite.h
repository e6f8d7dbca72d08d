// The last step of every command that replaces a user file: what was written is proven, the old
// file is kept, and only then the new one takes its name.
#pragma once

#include <string>
#include <string_view>

#include "foundation/history_command.h"
#include "iff/iff_file.h"
#include "iff/user_file_proof.h"
#include "system/path.h"

namespace marlowick {

struct ProvenRewrite {
    const Path& userFile;
    const IffFile& loaded;  // as the reader gave it, before anything was changed in it
    UserFileChange change;
    HistoryCommand& history;
    std::string_view words = {};  // what changes, for the record; UTF-8, a line each
};

// Puts "\usertemp.iff" in the place of the user file in one step. False if nothing can be kept of
// the old file and the person doesn't want to go on so. Raises 321 with the path and what differs
// if the new file isn't as it was meant, 75 for a read-only user file and for a Legacy game's
// template, 53 for one that is gone, and what a step raises. The user file then is as it was.
// CheckpointNumber stays.
bool replaceUserFileProven(const ProvenRewrite& rewrite);

// True if the file holds other bytes than it was loaded from: the game, or somebody, has saved it
// meanwhile. False for a file that is gone or can't be read, whose replacement fails for that.
bool isChangedSince(const Path& userFile, const std::string& loaded);

}  // namespace marlowick
