// Taking a command back: what would be done to each of its files, and the doing of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/history.h"
#include "foundation/history_command.h"
#include "system/path.h"
#include "system/replace_file.h"

namespace marlowick {

// Whose files a record tells of.
enum class GameOfRecord {
    Open,   // the open game's; ensembles are always
    Moved,  // of a game that no longer lies where it lay: it may be the open one
    Other,  // of a game elsewhere
};
GameOfRecord gameOfRecord(const HistoryPlaces& places, const HistoryAbout& about, KeptKind kind);

enum class RestoreStep {
    PutBack,   // the old bytes take the place of those that are there
    MakeAnew,  // the same where no file is any more
    Remove,    // there was no file before the command: the one that is there goes
    Nothing,   // all is as before the command already
    Refused,   // it can't be restored
};

struct RestoreItem {
    HistoryRecord record;
    RestoreStep step = RestoreStep::Refused;
    std::string reason;  // of Refused, in words
    Path kept;           // the old bytes, if there are any
    Path target;         // the player's file; empty if the record names none
    // The file holds something that no command left there: the game changed it since, or somebody.
    bool isChangedSince = false;
    // The numbers of the later commands that changed the file, the newest first: what they did goes
    // back too.
    std::vector<std::int64_t> later;
};

// What taking back the files of some records (indexes into the entry's, all of them for an empty
// list) would do. all are all commands, the newest first. movedToo: also records of a game that was
// moved. Reads the kept files and the player's whole; afterFile runs behind each. Changes nothing;
// what can't be read is refused.
std::vector<RestoreItem> restorePlan(const History& history, const HistoryEntry& entry,
                                     const std::vector<HistoryEntry>& all,
                                     const std::vector<std::size_t>& records, bool movedToo,
                                     const std::function<void()>& afterFile = {});

// Gives target the content of kept in one step, with beforeRename run before that, as replaceFile
// does; false if that gave false.
using ReplaceByKept =
    std::function<bool(const Path& kept, const Path& target, ReadOnlyTarget readOnly,
                       const BeforeRename& beforeRename)>;

// How one item is done.
struct RestoreWork {
    HistoryCommand& command;        // keeps what is there now
    std::string_view changes = {};  // in words, for the record; UTF-8, a line each
    std::function<void()> afterBlock = {};
    ReplaceByKept replace = {};  // replaceFile if it is empty
};

// Does one item's step, and nothing for Nothing and Refused. The new file is proven to hold the old
// bytes before it takes the name, and what it replaces is kept, so that this step can be taken back
// too. False if the present file can't be kept and the person doesn't want to go on so. Raises 321
// with the path and what differs if the kept bytes aren't those of the record; 53 for a file that
// is gone since the plan, 58 for one that has come; 75 for a read-only user file or ensemble
// and for a Legacy game's template; and what the file system raises. The player's file then is as
// it was.
bool restoreFile(const RestoreItem& item, const RestoreWork& work);

}  // namespace marlowick
