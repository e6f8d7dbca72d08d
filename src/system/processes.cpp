#include "system/processes.h"

#include <utility>

#include "system/processes_system.h"

namespace marlowick {
namespace {

std::function<std::vector<RunningProgram>()>& listInUse() {
    static std::function<std::vector<RunningProgram>()> list;
    return list;
}

}  // namespace

std::vector<RunningProgram> runningPrograms() {
    return listInUse() ? listInUse()() : systemRunningPrograms();
}

void setRunningPrograms(std::function<std::vector<RunningProgram>()> list) {
    listInUse() = std::move(list);
}

std::string programName(std::string_view commandLine, std::string_view systemName) {
    std::string_view path = commandLine.substr(0, commandLine.find('\0'));
    if (path.empty()) {
        path = systemName.substr(0, systemName.find('\n'));
    }
    const std::size_t slash = path.find_last_of("/\\");
    return std::string(path.substr(slash == std::string_view::npos ? 0 : slash + 1));
}

}  // namespace marlowick
