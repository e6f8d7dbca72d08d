#include "foundation/history_prune.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "foundation/error_trap.h"
#include "foundation/history_folders.h"
#include "system/files.h"
#include "system/folder_order.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

// "about.json" of a command that is being taken away. In one step it is no command any more, and
// whatever ends the work behind that, the next pruning goes on with it.
constexpr std::string_view kGoingName = "going.json";

std::int64_t aboutSize(const Path& entry) {
    std::int64_t size = -1;
    ignoringErrors([&] { size = files().length(entry.child(kAboutName)); });
    return size;
}

// Nothing if it can't be told now.
std::optional<std::int64_t> sizeOnDisk(const Path& file) {
    std::int64_t size = 0;
    const bool isTold =
        !files().fileExists(file) || ignoringErrors([&] { size = files().length(file); });
    return isTold ? std::optional(size) : std::nullopt;
}

// Never beyond the largest number, whatever a text told.
std::int64_t sum(std::int64_t left, std::int64_t right) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return right > kMost - left ? kMost : left + right;
}

// Taken from the newest command to the oldest. The newest stays, and so does the newest that can be
// read: what can't be must not be all that is left.
class Bound {
  public:
    explicit Bound(std::int64_t bytes) : bytes_(bytes) {}

    // Whether the next command is too much; those behind it are then too.
    bool isTooMuch(std::int64_t bytes, bool isReadable) {
        total_ = sum(total_, bytes);
        const bool stays = isNewest_ || (isReadable && isNewestReadable_);
        isNewest_ = false;
        isNewestReadable_ = isNewestReadable_ && !isReadable;
        return !stays && total_ > bytes_;
    }

  private:
    std::int64_t bytes_;
    std::int64_t total_ = 0;
    bool isNewest_ = true;
    bool isNewestReadable_ = true;
};

void removeEntry(const Path& entry) {
    if (!isRealFolder(entry)) {
        return;
    }
    const Path about = entry.child(kAboutName);
    const Path going = entry.child(kGoingName);
    if (files().fileExists(about)) {
        files().rename(about, going);
    }
    forEachKeptFile(
        entry, [](const Path& file) { ignoringErrors([&] { files().remove(file); }); },
        [](const Path& folder) { ignoringErrors([&] { files().removeFolder(folder); }); });
    // A listing that fails shows nothing. One that shows this file was one, and without a folder
    // beside it everything has gone.
    const std::vector<FolderEntry> left = files().list(entry);
    const auto isFolder = [](const FolderEntry& item) { return item.isFolder; };
    if (!left.empty() && std::none_of(left.begin(), left.end(), isFolder)) {
        removeIfPresent(going);
        ignoringErrors([&] { files().removeFolder(entry); });
    }
}

bool hasKeptFiles(const Path& entry) {
    bool has = false;
    forEachKeptFile(
        entry, [&](const Path& /*file*/) { has = true; }, [](const Path& /*folder*/) {});
    return has;
}

// A folder without "about.json", or with an empty one, is what an end in the middle of making or
// taking away left. One without it that holds anything else may be a person's, and stays.
void clearLeftover(const Path& entry) {
    if (!isRealFolder(entry)) {
        return;
    }
    if (files().fileExists(entry.child(kGoingName))) {
        removeEntry(entry);
        return;
    }
    const std::int64_t size = aboutSize(entry);
    if (size > 0 || hasKeptFiles(entry)) {
        return;
    }
    if (size == 0) {
        files().remove(entry.child(kAboutName));
    }
    files().removeFolder(entry);
}

}  // namespace

// Of a command that ended in the middle of its first record, it replaced nothing, and of one whose
// "about.json" can't be read, perhaps since the machine stopped: what it kept counts like any other
// old bytes, and goes when it is the oldest.
void HistoryPruner::weighKeptFiles(const Path& entry, const Path& game, Weight& weight) {
    const auto weighFile = [&](const Path& file) {
        weight.bytes = sum(weight.bytes, sizeOnDisk(file).value_or(0));
        const std::string name = file.text().substr(entry.text().size());
        const std::optional<KeptPlace> place = keptPlace(name.substr(1));
        if (place && place->kind == KeptKind::Archive) {
            weight.archives.push_back(upperCase(utf8ToGameText(game.text() + name)));
        }
    };
    forEachKeptFile(entry, weighFile, [](const Path& /*folder*/) {});
}

HistoryPruner::Weight HistoryPruner::weigh(const Path& history, const std::string& folder,
                                           bool measure) {
    const Path entry = history.child(folder);
    Weight weight;
    weight.folder = folder;
    weight.aboutSize = aboutSize(entry);
    weight.isMeasured = measure;
    const std::optional<HistoryAbout> about = historyAbout(entry);
    weight.isReadable = about.has_value();
    if (!about) {
        weighKeptFiles(entry, {}, weight);
        return weight;
    }
    weight.isEmpty = about->records.empty() && (about->isWhole || !hasKeptFiles(entry));
    if (about->records.empty() && !weight.isEmpty) {
        weighKeptFiles(entry, about->game, weight);
    }
    for (const HistoryRecord& record : about->records) {
        if (!record.place) {
            continue;
        }
        if (record.place->kind == KeptKind::Archive) {
            weight.archives.push_back(
                upperCase(utf8ToGameText(about->game.text() + "\\" + record.place->path)));
        }
        if (record.before) {
            const std::optional<std::int64_t> size =
                measure ? sizeOnDisk(placeInEntry(entry, *record.place)) : record.before->size;
            weight.bytes = sum(weight.bytes, size.value_or(0));
            weight.isMeasured = weight.isMeasured && size;
        }
    }
    return weight;
}

std::vector<HistoryPruner::Weight> HistoryPruner::weighed(const Path& history,
                                                          const std::set<std::string>& open,
                                                          bool measure) {
    std::vector<Weight> weights;
    std::map<std::string, Weight> known;
    for (const HistoryFolder& folder : historyFolders(history)) {
        if (open.contains(folder.name)) {
            continue;
        }
        const auto found = known_.find(folder.name);
        const bool holds = found != known_.end() &&
                           found->second.aboutSize == aboutSize(history.child(folder.name)) &&
                           (found->second.isMeasured || !measure);
        weights.push_back(holds ? found->second : weigh(history, folder.name, measure));
        // What a failure has left out is asked again.
        if (weights.back().isReadable && weights.back().isMeasured >= measure) {
            known.emplace(folder.name, weights.back());
        }
    }
    known_ = std::move(known);
    return weights;
}

void HistoryPruner::prune(const Path& history, const HistoryBounds& bounds,
                          const std::set<std::string>& open) {
    const auto tooMuch = [&](const std::vector<Weight>& weights) {
        Bound ofFiles(bounds.files);
        Bound ofArchives(bounds.archives);
        std::map<std::string, int> versions;
        std::vector<std::string> folders;
        for (const Weight& weight : weights) {
            bool isOld = !weight.archives.empty();
            for (const std::string& archive : weight.archives) {
                isOld = ++versions[archive] > bounds.versionsOfAnArchive && isOld;
            }
            Bound& bound = weight.archives.empty() ? ofFiles : ofArchives;
            if (weight.aboutSize >= 0 &&
                (weight.isEmpty || isOld || bound.isTooMuch(weight.bytes, weight.isReadable))) {
                folders.push_back(weight.folder);
            }
        }
        return folders;
    };
    ignoringErrors([&] {
        std::vector<Weight> weights = weighed(history, open, false);
        if (!tooMuch(weights).empty()) {
            // Nothing goes because of what a text says.
            weights = weighed(history, open, true);
        }
        std::vector<std::string> going = tooMuch(weights);
        std::reverse(going.begin(), going.end());
        for (const std::string& folder : going) {
            ignoringErrors([&] { removeEntry(history.child(folder)); });
        }
        for (const Weight& weight : weights) {
            if (!weight.isReadable) {
                ignoringErrors([&] { clearLeftover(history.child(weight.folder)); });
            }
        }
    });
}

}  // namespace marlowick
