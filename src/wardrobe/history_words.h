// What the window of earlier versions says: of commands, of their files, and before it restores
// any. All texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/history.h"
#include "foundation/history_restore.h"

namespace marlowick {

// "Save Mara Quill", "Fix fit to skinny"; of a command whose "about.json" can't be read, its
// folder.
std::string titleOf(const HistoryEntry& entry);

// "2026-11-21 14:15:33", with the neighbourhood of a sim's or pet's command, ", UserData2", or the
// number of the files of a command over several, ", 12 files".
std::string detailsOf(const HistoryEntry& entry);

// What a command changed in a file: its words, or that it made, deleted or changed it. At most so
// many lines, with the number of those left out behind them.
std::string changesOf(const HistoryRecord& record, int mostLines);

// True if every word of the filter stands in the command, its name, its time or the path of one of
// its files, blind to letter case; "/" counts as "\".
bool fitsFilter(const HistoryEntry& entry, std::string_view filter);

// Whose game's files a command changed: the open one's if any of them is its, else a moved one's if
// any is that.
GameOfRecord gameOfEntry(const HistoryPlaces& places, const HistoryEntry& entry);

// The question before a plan is done: which files go back, are made anew or removed, which of them
// changed since, what of later commands would go back with them, and which can't be restored.
// Empty if no file would change. all are all commands.
std::string restoreQuestion(const HistoryEntry& entry, const std::vector<RestoreItem>& plan,
                            const std::vector<HistoryEntry>& all);

// Why nothing of a plan would be done: all is as it was then, or nothing can be restored.
std::string nothingToRestore(const std::vector<RestoreItem>& plan);

}  // namespace marlowick
