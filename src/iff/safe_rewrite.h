// The first half of the way on which a changed user file reaches the disk: a fresh file
// "\usertemp.iff" in the program folder. proven_rewrite.h has the other half.
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

}  // namespace marlowick
