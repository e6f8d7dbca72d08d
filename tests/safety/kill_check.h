// What is wrong with the files of a command that was killed in the middle of its work.
#pragma once

#include <string>
#include <vector>

#include "safety/commands.h"

namespace marlowick::test {

// The command's files before it and behind it, on a disk that works, and all names behind it.
struct Whole {
    Contents old;
    Contents changed;
    std::vector<std::string> names;
};

// Stops this process, by SIGSTOP, for somebody who watches what it does from here on, and lets it
// go on then.
void stopUntilWatched();

// The old files anew.
void prepareAnew(const TestedCommand& command, const Stage& stage);

// What the kill has left: a line for each file that is neither old nor new, and for each that was
// replaced and can't be brought back.
std::string faultsOfLeft(const TestedCommand& command, const Whole& whole, const Stage& stage);

// What is wrong when the same command was run again: something isn't done, or is left over.
std::string faultsOfSecondRun(const TestedCommand& command, const Whole& whole, const Stage& stage);

}  // namespace marlowick::test
