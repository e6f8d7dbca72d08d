// The programs that run on this machine.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace marlowick {

struct RunningProgram {
    std::uint32_t id = 0;  // of the process
    std::string name;      // of the program's file, without its folder; UTF-8
};

// Every program that runs and that the system tells of; Windows programs that run under Wine go by
// their own names.
std::vector<RunningProgram> runningPrograms();

// Puts another list in the place of the system's, for tests; an empty function is the system's
// again.
void setRunningPrograms(std::function<std::vector<RunningProgram>()> list);

// The program's name: what stands behind the last "/" or "\" of the first argument of its command
// line, whose arguments end in a zero byte each, or, if that is empty, of the name that the system
// has for it.
std::string programName(std::string_view commandLine, std::string_view systemName);

}  // namespace marlowick
