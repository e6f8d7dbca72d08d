// The folder "/proc" of Linux.

#include <dirent.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <memory>
#include <optional>

#include "system/processes_system.h"

namespace marlowick {
namespace {

// Bytes of a command line that are read: as many as a path of Windows has at most.
constexpr std::size_t kLongest = 32767;

std::string startOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string start(kLongest, '\0');
    stream.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(stream.gcount()));
    return start;
}

std::optional<std::uint32_t> numberOf(std::string_view name) {
    std::uint32_t number = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
    return failure == std::errc() && end == name.data() + name.size() ? std::optional(number)
                                                                      : std::nullopt;
}

// A program that has ended and that nobody has asked about yet still has its name.
bool hasEnded(const std::string& folder) {
    const std::string line = startOf(folder + "/stat");
    const std::size_t name = line.rfind(')');
    return name != std::string::npos && line.compare(name, 3, ") Z") == 0;
}

}  // namespace

std::vector<RunningProgram> systemRunningPrograms() {
    std::vector<RunningProgram> programs;
    const std::unique_ptr<DIR, int (*)(DIR*)> handle(::opendir("/proc"), ::closedir);
    while (handle != nullptr) {
        const dirent* entry = ::readdir(handle.get());
        if (entry == nullptr) {
            break;
        }
        const std::optional<std::uint32_t> id = numberOf(entry->d_name);
        if (id) {
            const std::string folder = std::string("/proc/") + entry->d_name;
            const std::string commandLine = startOf(folder + "/cmdline");
            const bool hasName = !commandLine.empty() && commandLine.front() != '\0';
            if (!hasName && hasEnded(folder)) {
                continue;
            }
            programs.push_back(
                {*id, programName(commandLine, hasName ? "" : startOf(folder + "/comm"))});
        }
    }
    return programs;
}

}  // namespace marlowick
