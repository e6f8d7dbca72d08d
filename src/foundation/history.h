// The earlier versions of the player's files. Every command that replaces, makes or deletes files
// has a folder of its own in "History": a running number, the date and time, the command and, for
// one sim, its name. In it lie the old bytes of each file under its path below the game, and
// "about.json" (history_record.h). The number tells the order, whatever the clock did meanwhile.
//
// history_command.h fills such a folder, history_restore.h takes files out of it again. Nobody is
// trusted: a folder or a text in it may be a person's own, cut short, or made to do harm.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/history_places.h"
#include "foundation/history_prune.h"
#include "foundation/history_record.h"
#include "system/path.h"

namespace marlowick {

// One command, as its folder tells of it.
struct HistoryEntry {
    std::int64_t number = 0;
    std::string folder;       // its name in "History", a game text
    std::string when;         // local, "2026-11-21 14.15.33"; empty if the name doesn't tell
    bool isReadable = false;  // else about is empty
    HistoryAbout about;
};

class History {
  public:
    explicit History(HistoryPlaces places, HistoryBounds bounds = {});

    const HistoryPlaces& places() const { return places_; }
    const HistoryBounds& bounds() const { return bounds_; }
    // For another game that is opened, and for bounds that a person sets.
    void setPlaces(HistoryPlaces places);
    void setBounds(HistoryBounds bounds);

    // All commands, the newest first. Folders of other names or without "about.json" are no
    // commands.
    std::vector<HistoryEntry> entries() const;

    // Where the old bytes of one of the command's files lie. The record must have a place.
    Path keptFile(const HistoryEntry& entry, const HistoryRecord& record) const;

    // True if the file is an archive that is larger than all that is kept of archives: a save of it
    // can't be taken back.
    bool isAboveBound(const Path& file) const;

    // Takes away what is more than the bounds (HistoryPruner). Each command does it at its end.
    void prune();

    // Makes the folder of a new command, with a number above all others, and gives its name in
    // "History", which is made if it is missing. Raises what the file system raises. Pruning leaves
    // the folder alone until it is closed. For HistoryCommand.
    std::string openFolder(std::string_view command, std::string_view simName);
    void closeFolder(const std::string& folder);

  private:
    HistoryPlaces places_;
    HistoryBounds bounds_;
    HistoryPruner pruner_;
    std::set<std::string> open_;
};

}  // namespace marlowick
