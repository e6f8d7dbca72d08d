// The tools that work on every sim of a neighbourhood at once: two repairs of known
// damage in the wardrobes, and the export of the skins that the sims wear.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "foundation/history_command.h"
#include "foundation/list.h"
#include "iff/iff_file.h"
#include "system/path.h"

namespace marlowick {

// The sims that a tool goes through.
struct SimWalk {
    std::string userDataDir;
    const List<std::string>& simFiles;
    IffFile& iff;                     // each file is read into it; it ends up with the last one
    std::function<void()> afterFile;  // runs behind each file, so that a window can paint
};

// Each tool passes over a file that can't be read. It raises 9 for a table with too few rows and
// 5 for a row that can't be split, and that file, as those behind it, then is as it was.

// The program folder's "\headskins.txt" and "\bodyskins.txt".
Path headSkinsFile();
Path bodySkinsFile();

// Writes both lists anew: a line "file;name;skin" for each sim, ended by CR LF. A sim without a
// name keeps the name of the one before it. Needs 3 rows. What was written before a failure stays.
void exportSkinNames(const SimWalk& walk);

// How a repair treats the files that it rewrites.
struct RepairWork {
    HistoryCommand& history;  // keeps each of them before it is replaced
    // Asks whether to replace a file that somebody has changed since it was read.
    std::function<bool(const Path& file)> maySaveOver;
    // The names of the files that were left as they were, since what was written of them wasn't
    // what was meant: filled by the repair.
    std::vector<std::string> passedOver = {};
};

// The repairs rewrite files in place, without a backup in "\Backup". They end with the first file
// whose rewrite failed: either by raising what failed or, where it has been reported already or
// the person doesn't want to go on, with false.

// Gives each grown sim whose formal wear, swimsuit or pajamas are of another body type than its
// normal outfit the game's own of the right type. Only tables with more than 30 rows have these;
// such a file is rewritten even if nothing in it changes. Needs 33 rows then.
bool fixFitToSkinny(const SimWalk& walk, RepairWork& work);

// Takes the pink hands off each grown sim whose left formal hand has them: a woman gets the game's
// own formal hands, anybody else none. Rewrites those files alone. Needs 30 rows.
bool removePinkHands(const SimWalk& walk, RepairWork& work);

}  // namespace marlowick
