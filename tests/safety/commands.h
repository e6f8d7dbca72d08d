// The commands that replace a player's files, each over files of its own, for proving what survives
// when the disk fails or the program is killed in the middle of them. No window, no Qt.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "far/far_edit.h"
#include "foundation/history.h"
#include "foundation/history_command.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "system/path.h"

namespace marlowick::test {

// How a command ended.
struct Outcome {
    bool isDone = false;
    std::string told;  // what a person is told of a failure; empty if there was nothing to tell
};

// A game and a program below one folder, and what a window holds while it is open on them.
class Stage {
  public:
    // root: a folder that exists; "game" and "program" below it are the stage's.
    explicit Stage(std::filesystem::path root);

    const std::filesystem::path& root() const { return root_; }
    // name: below root, with forward slashes.
    Path path(const std::string& name) const;
    void write(const std::string& name, const std::string& content) const;
    // Nothing if there is no such file.
    std::optional<std::string> read(const std::string& name) const;
    // All files and folders below root and what the files hold.
    std::map<std::string, std::string> everything() const;
    void removeEverything() const;

    // A command that keeps what it replaces; a question whether to go on without is answered No.
    HistoryCommand command(const std::string& name);
    // What has been told since the last call, a line each.
    std::string takeTold();

    History history;
    IffFile loaded;
    IffFile record;
    StrSegment rows;
    FarEdit edit;

  private:
    std::filesystem::path root_;
    std::string told_;
};

struct TestedCommand {
    std::string name;
    void (*prepare)(const Stage& stage);  // puts the old files there
    void (*load)(Stage& stage);           // what its window does before; not under test
    bool (*run)(Stage& stage);            // may raise
    // Below the root: the player's files that it changes.
    std::vector<std::string> files;
    // A failure keeps a stream slot taken until the program ends.
    bool keepsSlots = false;
    // A sim that can't be read is passed over without a word.
    bool passesOver = false;
    // What is written isn't a player's file: a failure leaves the beginning of it.
    bool isReport = false;
};

const std::vector<TestedCommand>& testedCommands();
// Raises invalid_argument if there is none of that name.
const TestedCommand& testedCommand(const std::string& name);

// For messages of GoogleTest.
inline void PrintTo(const TestedCommand& command, std::ostream* stream) {
    *stream << command.name;
}

// Runs the command; what it raises is told.
Outcome runCommand(const TestedCommand& command, Stage& stage);

// The command's files as they stand, in their order.
using Contents = std::vector<std::optional<std::string>>;
Contents contentsOf(const TestedCommand& command, const Stage& stage);

// What is wrong with the earlier versions and the backups, a line each: a command that can't be
// read, a record without its old bytes, a backup that isn't whole, a file that isn't the old one
// any more and whose old bytes nobody kept.
std::string faultsOfKept(const TestedCommand& command, const Stage& stage, const Contents& old);

// True if these old bytes of a file are kept.
bool isKept(const Stage& stage, const std::string& name, const std::string& content);

// Takes everything back that is kept, the newest command first, and says what goes wrong with it, a
// line each.
std::string faultsOfTakingBack(Stage& stage);

// The files below the root but those of the earlier versions.
std::vector<std::string> namesOutsideHistory(const Stage& stage);
// The leftovers of unfinished work anywhere.
std::vector<std::string> leftovers(const Stage& stage);

}  // namespace marlowick::test
