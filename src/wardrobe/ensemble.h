// Ensemble files: a wardrobe as plain lines of text, to be put on another sim. A
// line's meaning is its number alone; docs/file-formats.md has the table.
#pragma once

#include "foundation/history_command.h"
#include "system/path.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

// Puts the lines into the fields as they come. Files of earlier generations have 18 or 20 lines:
// the fields of the missing ones stay as they are. A line ends at CR LF, CR or LF, the last one
// also at the end of the file; what stands behind a zero byte in it is passed over. Raises 62 for a
// file that ends before, with the fields filled as far as it went, and what opening raises; the
// stream then stays open.
void loadEnsemble(const Path& path, WardrobeFields& fields);

// Writes all 22 lines, each ended by CR LF, in the place of what stands at path, which history
// keeps before. False if that can't be kept and the person doesn't want to go on. Raises 75 for a
// read-only file and for one that a link puts into a Legacy game's templates, and what writing
// raises; an old file is then as it was.
bool saveEnsemble(const Path& path, const WardrobeFields& fields, HistoryCommand& history);

// Deletes the file, which history keeps before; false as above. Raises 75 for one in a folder that
// a link puts into a Legacy game's templates, and what the deletion raises.
bool deleteEnsemble(const Path& path, HistoryCommand& history);

}  // namespace marlowick
