// The way a changed user file reaches the disk: a fresh file "\usertemp.iff" in
// the program folder first, then in one step in the old file's place.
#pragma once

#include "iff/iff_file.h"

namespace marlowick {

// What of a record goes into its new file.
enum class SavedParts {
    All,
    WithoutBitmaps,  // nor the map: so pets are saved
};

// Deletes an old "\usertemp.iff" and writes the record there. Raises what the deletion raises;
// false after a failure of the writer, which has reported it.
bool writeUserTemp(IffFile& iff, SavedParts parts);

// Puts "\usertemp.iff" in the place of the user file in one step. Raises 75 for a read-only user
// file and for one in a Legacy game's own templates, which stay as they are, and 53 for one that is
// gone: a sim that was deleted meanwhile doesn't come back.
void replaceUserFile(const Path& userFile);

}  // namespace marlowick
