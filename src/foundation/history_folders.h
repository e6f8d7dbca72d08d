// The folders of the commands in "History": what they are called, and what lies in them.
#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/history_places.h"
#include "foundation/history_record.h"
#include "system/path.h"

namespace marlowick {

struct HistoryFolder {
    std::int64_t number = 0;  // from 1
    std::string name;         // a game text
};

// "000123 2026-11-21 14.15.33 Save Mara Quill". Of the command and the sim's name (game texts)
// letters, digits, blanks, "-" and "_" are taken, 40 of each at most.
std::string historyFolderName(std::int64_t number, const std::tm& time, std::string_view command,
                              std::string_view simName);

// The number that a folder's name begins with, six to eighteen digits and a blank; 0 if it is no
// command's folder.
std::int64_t historyNumber(std::string_view folder);
inline constexpr std::int64_t kLastHistoryNumber = 999'999'999'999'999'999;

// "2026-11-21 14.15.33" out of a folder's name; empty if it doesn't stand there.
std::string historyTime(std::string_view folder);

// The folders of commands, the newest first: the one with the highest number, and of several with
// the last of all numbers the one whose name comes last.
std::vector<HistoryFolder> historyFolders(const Path& history);

// What a command's "about.json" tells; nothing if there is none that can be read.
std::optional<HistoryAbout> historyAbout(const Path& entry);

// True if the folder lies where it seems to, and isn't a link: behind one lie the player's own
// files.
bool isRealFolder(const Path& folder);

// Runs work for every file in a command's folder that lies where old bytes are put, whether its
// "about.json" knows it or not, and afterFolder for every folder of such files behind them. No link
// below the command's folder is followed.
void forEachKeptFile(const Path& entry, const std::function<void(const Path& file)>& work,
                     const std::function<void(const Path& folder)>& afterFolder);

}  // namespace marlowick
