// "about.json", which tells of the folder of one command what the command was and which files it
// replaced. docs/file-formats.md draws it. It grows by a record for each file: what comes behind
// the last record is so short that it is written anew with each, so that the file is whole JSON
// after every record, and a thousandth record costs no more than the first.
#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/file_state.h"
#include "foundation/history_places.h"
#include "system/path.h"

namespace marlowick {

inline constexpr std::string_view kAboutName = "about.json";

// A larger one isn't read: it would be of a hundred thousand files.
inline constexpr std::int64_t kLargestAbout = 32 << 20;  // bytes

// One file that a command was about to replace, make or delete.
struct HistoryRecord {
    std::string path;                 // UTF-8, as it is written
    std::optional<KeptPlace> place;   // what path means; nothing if it means no file of the three
                                      // kinds, and then nobody may write there
    std::string time;                 // UTC, "2026-11-21T13:15:33Z"
    std::optional<FileState> before;  // nothing: there was no such file before
    std::optional<FileState> after;   // nothing: the command deleted it
    std::string changes;              // in words, UTF-8, a line each; may be empty
};

struct HistoryAbout {
    std::string program;  // "Marlowick 3.0.5"
    std::string command;
    std::string name;   // of the sim, pet, archive or ensemble, UTF-8; empty for a repair
    std::string begun;  // UTC, as a record's time
    std::string ended;  // empty if the command's end was never written
    Path game;
    Path neighbourhoods;
    std::vector<HistoryRecord> records;  // in the order of the replacements
    bool isWhole = false;  // the text was read to its end; else records may be missing
};

// "2026-11-21T13:15:33Z".
std::string utcText(const std::tm& time);

// What is written: the head, then each record, and behind the last of them the open end, over which
// the next record is written, or the end of a command that has come to its own.
std::string aboutHead(const HistoryAbout& about);
std::string aboutRecord(const HistoryRecord& record, bool isFirst);
inline constexpr std::string_view kAboutOpenEnd = "\n]}\n";
std::string aboutEnd(std::string_view ended);

// What the text tells, which may be anybody's, or end anywhere: every record that is whole, with
// texts cut where they are longer than any that the program writes. Nothing if it isn't such a
// file.
std::optional<HistoryAbout> readAbout(std::string_view text);

}  // namespace marlowick
