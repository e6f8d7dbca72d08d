#include "foundation/history_restore.h"

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "foundation/error_trap.h"
#include "foundation/open_game.h"
#include "foundation/proof.h"
#include "system/files.h"
#include "system/places.h"
#include "system/streams.h"

namespace marlowick {
namespace {

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

// True for a path that begins at a drive or at the root of this machine. A text could name another
// machine, and asking that one for a folder would tell it of the player.
bool isOnThisMachine(const Path& path) {
    const std::string& text = path.text();
    return text.size() >= 2 && (text[1] == ':' || (isSeparator(text[0]) && !isSeparator(text[1])));
}

const Path& folderOf(const HistoryAbout& about, KeptKind kind) {
    return kind == KeptKind::UserFile ? about.neighbourhoods : about.game;
}

const Path& folderOf(const HistoryPlaces& places, KeptKind kind) {
    return kind == KeptKind::UserFile ? places.neighbourhoods : places.game;
}

// Ensembles are the program's own, whichever game is open.
template <class Folders>
bool areOfOneGame(const HistoryAbout& left, const Folders& right, KeptKind kind) {
    return kind == KeptKind::Ensemble || isSameFolder(folderOf(left, kind), folderOf(right, kind));
}

std::optional<FileState> stateIfThere(const Path& file) {
    return files().fileExists(file) ? std::optional(stateOfFile(file)) : std::nullopt;
}

// Why a record can't be restored, apart from what its files hold; empty if it can.
std::string refusal(const HistoryPlaces& places, const HistoryAbout& about,
                    const HistoryRecord& record, bool movedToo) {
    if (!record.place) {
        return "No sim, archive or ensemble can lie there.";
    }
    const GameOfRecord game = gameOfRecord(places, about, record.place->kind);
    if (game == GameOfRecord::Other) {
        return "It belongs to another game.";
    }
    if (game == GameOfRecord::Moved && !movedToo) {
        return "Its game was moved.";
    }
    const Path target = placeInGame(places, *record.place);
    if (!files().folderExists(target.folder())) {
        return "Its folder isn't there any more.";
    }
    return files().folderExists(target) ? "A folder has its name now." : "";
}

std::string refusalOfKept(const RestoreItem& item) {
    if (!files().fileExists(item.kept)) {
        return "Its old content is missing.";
    }
    return stateOfFile(item.kept) == *item.record.before ? ""
                                                         : "Its old content isn't as it was kept.";
}

RestoreStep stepFor(const HistoryRecord& record, const std::optional<FileState>& present) {
    if (present == record.before) {
        return RestoreStep::Nothing;
    }
    if (!record.before) {
        return RestoreStep::Remove;
    }
    return present ? RestoreStep::PutBack : RestoreStep::MakeAnew;
}

// What the commands behind one left in each file.
class LaterChanges {
  public:
    LaterChanges(const HistoryPlaces& places, const HistoryEntry& entry,
                 const std::vector<HistoryEntry>& all) {
        for (const HistoryEntry& other : all) {
            if (other.number > entry.number) {
                add(other, places, entry.about);
            }
        }
    }

    // Notes their numbers. Gives what the last of all commands left there, that of the item
    // included.
    std::optional<FileState> noteIn(RestoreItem& item) const {
        const auto found = changes_.find(placeKey(*item.record.place));
        if (found == changes_.end()) {
            return item.record.after;
        }
        for (const Change& change : found->second) {
            item.later.push_back(change.number);
        }
        return found->second.front().after;
    }

  private:
    struct Change {
        std::int64_t number;
        std::optional<FileState> after;
    };

    // Of a game that was moved, a command before that or behind it.
    void add(const HistoryEntry& other, const HistoryPlaces& places, const HistoryAbout& about) {
        for (const HistoryRecord& record : other.about.records) {
            if (!record.place || !(areOfOneGame(other.about, about, record.place->kind) ||
                                   areOfOneGame(other.about, places, record.place->kind))) {
                continue;
            }
            std::vector<Change>& changes = changes_[placeKey(*record.place)];
            if (changes.empty() || changes.back().number != other.number) {
                changes.push_back({other.number, record.after});
            }
        }
    }

    std::map<std::u16string, std::vector<Change>> changes_;  // the newest first
};

void fillItem(RestoreItem& item, const History& history, const HistoryEntry& entry,
              const LaterChanges& later) {
    item.target = placeInGame(history.places(), *item.record.place);
    if (item.record.before) {
        item.kept = history.keptFile(entry, item.record);
        item.reason = refusalOfKept(item);
        if (!item.reason.empty()) {
            return;
        }
    }
    const std::optional<FileState> present = stateIfThere(item.target);
    item.isChangedSince = present != later.noteIn(item);
    item.step = stepFor(item.record, present);
}

bool putBack(const RestoreItem& item, const RestoreWork& work) {
    const bool isThere = files().fileExists(item.target);
    if (isThere != (item.step == RestoreStep::PutBack)) {
        throw RuntimeError(isThere ? error::kFileAlreadyExists : error::kFileNotFound);
    }
    const BeforeRename look = [&](const Path& beside) {
        if (stateOfFile(beside, work.afterBlock) != *item.record.before) {
            throw notProven(item.target, "The content isn't as it was kept.");
        }
        return work.command.keepOrAsk(item.target, item.record.before, work.changes,
                                      work.afterBlock);
    };
    const ReadOnlyTarget readOnly = item.record.place->kind == KeptKind::Archive
                                        ? ReadOnlyTarget::Replace
                                        : ReadOnlyTarget::Refuse;
    return work.replace ? work.replace(item.kept, item.target, readOnly, look)
                        : replaceFile(item.kept, item.target, readOnly, work.afterBlock, look);
}

bool removeMade(const RestoreItem& item, const RestoreWork& work) {
    const bool isArchive = item.record.place->kind == KeptKind::Archive;
    if (!files().fileExists(item.target)) {
        throw RuntimeError(error::kFileNotFound);
    }
    if (!isArchive && files().isReadOnly(item.target)) {
        throw RuntimeError(error::kPathFileAccess);
    }
    if (!work.command.keepOrAsk(item.target, std::nullopt, work.changes, work.afterBlock)) {
        return false;
    }
    streams().letGo(item.target);
    if (isArchive) {
        files().clearAttributes(item.target);
    }
    files().remove(item.target);
    return true;
}

}  // namespace

GameOfRecord gameOfRecord(const HistoryPlaces& places, const HistoryAbout& about, KeptKind kind) {
    const Path& theirs = folderOf(about, kind);
    const Path& ours = folderOf(places, kind);
    if (kind == KeptKind::Ensemble || isSameFolder(theirs, ours)) {
        return GameOfRecord::Open;
    }
    if (!isOnThisMachine(theirs)) {
        return GameOfRecord::Other;
    }
    if (!files().folderExists(theirs)) {
        return GameOfRecord::Moved;
    }
    return isSamePlace(theirs, ours) ? GameOfRecord::Open : GameOfRecord::Other;
}

std::vector<RestoreItem> restorePlan(const History& history, const HistoryEntry& entry,
                                     const std::vector<HistoryEntry>& all,
                                     const std::vector<std::size_t>& records, bool movedToo,
                                     const std::function<void()>& afterFile) {
    const LaterChanges later(history.places(), entry, all);
    const std::set<std::size_t> wanted(records.begin(), records.end());
    std::vector<RestoreItem> plan;
    std::set<std::u16string> seen;
    for (std::size_t i = 0; i < entry.about.records.size(); ++i) {
        const HistoryRecord& record = entry.about.records[i];
        // Of two records of one file the first has its old bytes.
        const bool isSecond = record.place && !seen.insert(placeKey(*record.place)).second;
        if (!wanted.empty() && !wanted.contains(i)) {
            continue;
        }
        RestoreItem item;
        item.record = record;
        try {
            item.reason = isSecond ? "It is listed twice."
                                   : refusal(history.places(), entry.about, record, movedToo);
            if (item.reason.empty()) {
                fillItem(item, history, entry, later);
            }
        } catch (...) {
            item.step = RestoreStep::Refused;
            item.reason = errorText(currentError());
        }
        plan.push_back(std::move(item));
        if (afterFile) {
            afterFile();
        }
    }
    return plan;
}

bool restoreFile(const RestoreItem& item, const RestoreWork& work) {
    if (item.step == RestoreStep::Nothing || item.step == RestoreStep::Refused) {
        return true;
    }
    refuseTemplate(item.target);
    return item.step == RestoreStep::Remove ? removeMade(item, work) : putBack(item, work);
}

}  // namespace marlowick
