// The earlier versions of the player's files as the windows reach them, and what a person is asked
// where something can't be kept.
#pragma once

#include "foundation/history.h"
#include "foundation/history_command.h"
#include "system/path.h"

namespace marlowick {

// Those of the game that is open now, with the bounds in the settings. Valid until another game is
// opened.
History& earlierVersions();

// The bounds, which a person sets in whole MiB and versions. What isn't stored, or makes no sense,
// is the program's own.
HistoryBounds storedBounds();
void storeBounds(const HistoryBounds& bounds);

// What a command that can't keep the old file goes by (GoOnWithout). Asks where the disk is full or
// can't be written, and Enter means No. What no place is kept for goes on: where something would be
// lost, mayBeOverwritten has asked.
bool mayGoOnWithout(const KeepResult& result);

// True if what an archive holds can be kept, or if there is no such archive, or if the person wants
// it to be replaced all the same; Enter means No. To be asked before the first write.
bool mayBeOverwritten(const Path& archive);

// Asks whether a user file is to be replaced that somebody has changed since it was read; Enter
// means No.
bool maySaveOver(const Path& userFile);

}  // namespace marlowick
