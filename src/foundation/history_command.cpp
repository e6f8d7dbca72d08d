#include "foundation/history_command.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "foundation/error_trap.h"
#include "foundation/version.h"
#include "system/clock.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kBlock = 1U << 18U;

// A file up to this size is held whole; a larger one is read block by block, and twice where its
// size doesn't tell that it changes. User files are far smaller.
constexpr std::int64_t kLargestHeld = 1 << 20;  // bytes

// A failure of the keeping, as opposed to one of reading what is to be kept.
struct CantWrite {
    RuntimeError failure;
};

template <class Work>
void writing(Work work) {
    try {
        work();
    } catch (...) {
        throw CantWrite{currentError()};
    }
}

// The bytes that are to be kept.
class OldBytes {
  public:
    explicit OldBytes(const Path& path)
        : path_(path), file_(files().open(path, OpenMode::Input)), size_(file_->size()) {
        if (size_ <= kLargestHeld) {
            held_.resize(static_cast<std::size_t>(size_));
            held_.resize(file_->read(held_.data(), held_.size()));
            heldState_ = stateOf(held_);
        }
    }

    bool equal(const FileState& state) const {
        return heldState_ ? *heldState_ == state
                          : size_ == state.size && stateOfFile(path_) == state;
    }

    // Writes them and gives what was written.
    FileState copyTo(File& kept, const std::function<void()>& afterBlock) {
        if (heldState_) {
            writing([&] { kept.write(held_); });
            return *heldState_;
        }
        FileState state;
        Sha256Stream hash;
        std::string block(kBlock, '\0');
        for (;;) {
            const std::size_t count = file_->read(block.data(), block.size());
            if (count == 0) {
                state.hash = hash.finish();
                return state;
            }
            const std::string_view bytes = std::string_view(block).substr(0, count);
            writing([&] { kept.write(bytes); });
            hash.add(bytes);
            state.size += static_cast<std::int64_t>(count);
            if (afterBlock) {
                afterBlock();
            }
        }
    }

  private:
    Path path_;
    std::unique_ptr<File> file_;
    std::int64_t size_;
    std::string held_;
    std::optional<FileState> heldState_;  // nothing for a large file
};

std::string padded(std::string text, std::int64_t size) {
    text.resize(std::max(text.size(), static_cast<std::size_t>(size)), ' ');
    return text;
}

}  // namespace

HistoryCommand::HistoryCommand(History& history, std::string command, std::string simName,
                               GoOnWithout goOnWithout)
    : history_(history),
      command_(std::move(command)),
      simName_(std::move(simName)),
      goOnWithout_(std::move(goOnWithout)) {}

HistoryCommand::~HistoryCommand() {
    end();
}

KeepResult HistoryCommand::keep(const Path& file, const std::optional<FileState>& after,
                                std::string_view changes, const std::function<void()>& afterBlock) {
    const std::optional<KeptPlace> place = keptPlaceOf(history_.places(), file);
    if (!place) {
        return isUnkeepableSim(history_.places(), file)
                   ? KeepResult{KeepAnswer::CantWrite, RuntimeError(error::kBadFileName)}
                   : KeepResult{KeepAnswer::NoPlace};
    }
    if (broken_) {
        return {KeepAnswer::CantWrite, *broken_};
    }
    if (place->kind == KeptKind::Archive && history_.isAboveBound(file)) {
        return {KeepAnswer::AboveBound};
    }
    if (kept_.contains(placeKey(*place))) {
        return {KeepAnswer::Kept};
    }
    std::optional<OldBytes> old;
    if (files().fileExists(file)) {
        old.emplace(file);
    } else if (files().folderExists(file)) {
        throw RuntimeError(error::kPathFileAccess);
    }
    if (old && after ? old->equal(*after) : !old && !after) {
        return {KeepAnswer::Unchanged};
    }
    HistoryRecord record{place->path, place, utcText(universalTime()),
                         {},          after, std::string(changes)};
    std::optional<Path> made;
    try {
        writing([&] { openEntry(); });
        if (old) {
            const Path kept = placeInEntry(entry_, *place);
            std::unique_ptr<File> copy;
            writing([&] {
                makeFoldersOf(kept);
                copy = files().open(kept, OpenMode::CreateOwn);
                made = kept;
            });
            record.before = old->copyTo(*copy, afterBlock);
            writing([&] { copy->flush(); });
        }
        writing([&] { writeRecord(record); });
    } catch (const CantWrite& cant) {
        takeBack(made);
        return {KeepAnswer::CantWrite, cant.failure};
    } catch (...) {
        takeBack(made);
        throw;
    }
    kept_.insert(placeKey(*place));
    return {KeepAnswer::Kept};
}

bool HistoryCommand::keepOrAsk(const Path& file, const std::optional<FileState>& after,
                               std::string_view changes, const std::function<void()>& afterBlock) {
    if (isGoingOnWithout_) {
        return true;
    }
    const KeepResult result = keep(file, after, changes, afterBlock);
    if (result.answer == KeepAnswer::Kept || result.answer == KeepAnswer::Unchanged) {
        return true;
    }
    const bool goesOn = goOnWithout_ && goOnWithout_(result);
    isGoingOnWithout_ = goesOn && result.answer == KeepAnswer::CantWrite;
    return goesOn;
}

void HistoryCommand::end() {
    if (folder_.empty()) {
        return;
    }
    if (!broken_) {
        ignoringErrors([&] { writeEnd(aboutEnd(utcText(universalTime()))); });
    }
    about_.reset();
    history_.closeFolder(folder_);
    folder_.clear();
    history_.prune();
}

void HistoryCommand::openEntry() {
    if (!folder_.empty()) {
        return;
    }
    folder_ = history_.openFolder(command_, simName_);
    entry_ = history_.places().history.child(folder_);
    about_ = files().open(entry_.child(kAboutName), OpenMode::CreateOwn);
    const HistoryPlaces& places = history_.places();
    HistoryAbout about;
    about.program = std::string(kProgramTitle) + " " + kVersionText;
    about.command = gameTextToUtf8(command_);
    about.name = gameTextToUtf8(simName_);
    about.begun = utcText(universalTime());
    about.game = places.game;
    about.neighbourhoods = places.neighbourhoods;
    const std::string head = aboutHead(about);
    about_->write(head + std::string(kAboutOpenEnd));
    recordsEnd_ = static_cast<std::int64_t>(head.size());
    aboutSize_ = recordsEnd_ + static_cast<std::int64_t>(kAboutOpenEnd.size());
    hasRecords_ = false;
}

void HistoryCommand::makeFoldersOf(const Path& kept) {
    std::vector<Path> missing;
    for (Path folder = kept.folder(); folder != entry_ && !folder.empty();
         folder = folder.folder()) {
        if (std::find(folders_.begin(), folders_.end(), folder) == folders_.end()) {
            missing.push_back(folder);
        }
    }
    std::reverse(missing.begin(), missing.end());
    for (const Path& folder : missing) {
        if (!files().folderExists(folder)) {
            files().makeFolder(folder);
        }
        folders_.push_back(folder);
    }
}

void HistoryCommand::writeRecord(const HistoryRecord& record) {
    const std::string text = aboutRecord(record, !hasRecords_);
    const auto size = static_cast<std::int64_t>(text.size());
    const std::string whole = padded(text + std::string(kAboutOpenEnd), aboutSize_ - recordsEnd_);
    aboutSize_ = recordsEnd_ + static_cast<std::int64_t>(whole.size());
    about_->seek(recordsEnd_);
    about_->write(whole);
    about_->flush();
    recordsEnd_ += size;
    hasRecords_ = true;
}

void HistoryCommand::writeEnd(std::string end) {
    about_->seek(recordsEnd_);
    about_->write(padded(std::move(end), aboutSize_ - recordsEnd_));
}

void HistoryCommand::takeBack(const std::optional<Path>& made) {
    if (made) {
        ignoringErrors([&] { removeIfPresent(*made); });
    }
    if (folder_.empty()) {
        return;
    }
    if (!hasRecords_) {
        dropEntry();
        return;
    }
    try {
        writeEnd(std::string(kAboutOpenEnd));
    } catch (...) {
        broken_ = currentError();
    }
}

void HistoryCommand::dropEntry() {
    about_.reset();
    ignoringErrors([&] { removeIfPresent(entry_.child(kAboutName)); });
    for (; !folders_.empty(); folders_.pop_back()) {
        ignoringErrors([&] { files().removeFolder(folders_.back()); });
    }
    ignoringErrors([&] { files().removeFolder(entry_); });
    history_.closeFolder(folder_);
    folder_.clear();
}

}  // namespace marlowick
