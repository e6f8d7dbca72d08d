#include "foundation/history.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "foundation/error_trap.h"
#include "foundation/history_folders.h"
#include "system/clock.h"
#include "system/files.h"

namespace marlowick {
namespace {

std::int64_t newestNumber(const Path& history) {
    const std::vector<HistoryFolder> folders = historyFolders(history);
    return folders.empty() ? 0 : folders.front().number;
}

}  // namespace

History::History(HistoryPlaces places, HistoryBounds bounds)
    : places_(std::move(places)), bounds_(bounds) {}

void History::setPlaces(HistoryPlaces places) {
    places_ = std::move(places);
}

void History::setBounds(HistoryBounds bounds) {
    bounds_ = bounds;
}

std::vector<HistoryEntry> History::entries() const {
    std::vector<HistoryEntry> entries;
    for (HistoryFolder& folder : historyFolders(places_.history)) {
        const Path path = places_.history.child(folder.name);
        std::optional<HistoryAbout> about = historyAbout(path);
        if (!about && !files().fileExists(path.child(kAboutName))) {
            continue;
        }
        HistoryEntry entry;
        entry.number = folder.number;
        entry.when = historyTime(folder.name);
        entry.folder = std::move(folder.name);
        entry.isReadable = about.has_value();
        entry.about = std::move(about).value_or(HistoryAbout{});
        entries.push_back(std::move(entry));
    }
    return entries;
}

Path History::keptFile(const HistoryEntry& entry, const HistoryRecord& record) const {
    return placeInEntry(places_.history.child(entry.folder), record.place.value());
}

bool History::isAboveBound(const Path& file) const {
    const std::optional<KeptPlace> place = keptPlaceOf(places_, file);
    return place && place->kind == KeptKind::Archive && files().fileExists(file) &&
           files().length(file) > bounds_.archives;
}

void History::prune() {
    pruner_.prune(places_.history, bounds_, open_);
}

// A listing that fails tells no names, and the command would get the number of the oldest. So after
// an empty one there is a second look, which must show the new folder and no other.
std::string History::openFolder(std::string_view command, std::string_view simName) {
    if (!files().folderExists(places_.history)) {
        files().makeFolder(places_.history);
    }
    const std::int64_t newest = newestNumber(places_.history);
    // Only a person's own folder has the last number, and mustn't be in the way.
    const std::int64_t number = std::min(newest + 1, kLastHistoryNumber);
    std::string folder = historyFolderName(number, localTime(), command, simName);
    const Path path = places_.history.child(folder);
    files().makeFolder(path);
    if (newest == 0 && historyFolders(places_.history).size() != 1) {
        ignoringErrors([&] { files().removeFolder(path); });
        throw RuntimeError(error::kPathFileAccess);
    }
    open_.insert(folder);
    return folder;
}

void History::closeFolder(const std::string& folder) {
    open_.erase(folder);
}

}  // namespace marlowick
