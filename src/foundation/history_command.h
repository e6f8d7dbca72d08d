// One command as the earlier versions see it. For each file, right before it is replaced, made or
// deleted, the command says so: the old bytes are copied and flushed to the disk, and then a record
// of them is. So whatever ends the program in between, every file that was replaced has its old
// bytes and its record, and every record has its old bytes.
//
// Two flushes a file are the least: the bytes must lie on the disk before the record that vouches
// for them, and the record before the file is replaced. Nothing is flushed at the command's end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/file_state.h"
#include "foundation/history.h"
#include "system/files.h"
#include "system/path.h"
#include "system/runtime_error.h"

namespace marlowick {

enum class KeepAnswer {
    Kept,        // the old bytes and their record lie on the disk
    Unchanged,   // the new bytes are the old ones: there is nothing to keep
    AboveBound,  // an archive that is larger than all that is kept of archives
    NoPlace,     // a file anywhere else than the three kinds lie
    CantWrite,   // the disk is full, the folder can't be written, or the sim's path can't be there
};

struct KeepResult {
    KeepAnswer answer = KeepAnswer::Kept;
    RuntimeError failure = RuntimeError(0, {});  // of CantWrite
};

// Asks a person whether to go on where nothing can be kept (AboveBound, NoPlace, CantWrite).
using GoOnWithout = std::function<bool(const KeepResult& result)>;

class HistoryCommand {
  public:
    // command and simName are game texts; simName is empty for a command over many files. Nothing
    // is made before the first file.
    HistoryCommand(History& history, std::string command, std::string simName,
                   GoOnWithout goOnWithout);
    // Ends the command.
    ~HistoryCommand();
    HistoryCommand(const HistoryCommand&) = delete;
    HistoryCommand& operator=(const HistoryCommand&) = delete;

    // Keeps what the file holds now, if anything, before it gets the content of after, or goes if
    // that is nothing. changes tells in words what changes, UTF-8, a line each. Only the first old
    // bytes of a file are kept. afterBlock runs behind each block of a large file. Raises what
    // reading the file raises; a failure of the keeping itself is an answer, and leaves as little
    // behind as it can.
    KeepResult keep(const Path& file, const std::optional<FileState>& after,
                    std::string_view changes = {}, const std::function<void()>& afterBlock = {});

    // The same, and asks if nothing can be kept: false if the command is to end there. A yes to
    // CantWrite holds for all files of the command.
    bool keepOrAsk(const Path& file, const std::optional<FileState>& after,
                   std::string_view changes = {}, const std::function<void()>& afterBlock = {});

    // Writes that the command has come to its end, and prunes. Raises nothing.
    void end();

  private:
    void openEntry();
    void makeFoldersOf(const Path& kept);
    void writeRecord(const HistoryRecord& record);
    // Writes what comes behind the last record, over all that stands there.
    void writeEnd(std::string end);
    // After a failure: removes the file of old bytes that was made, and the beginnings of a record.
    void takeBack(const std::optional<Path>& made);
    void dropEntry();

    History& history_;
    std::string command_;
    std::string simName_;
    GoOnWithout goOnWithout_;
    bool isGoingOnWithout_ = false;

    std::string folder_;  // in "History"; empty before the first file
    Path entry_;
    std::unique_ptr<File> about_;
    std::int64_t recordsEnd_ = 0;  // of "about.json", bytes from 0
    std::int64_t aboutSize_ = 0;
    bool hasRecords_ = false;
    std::optional<RuntimeError> broken_;  // "about.json" can't be written any more
    std::set<std::u16string> kept_;
    std::vector<Path> folders_;  // made for old bytes, upper ones first
};

}  // namespace marlowick
