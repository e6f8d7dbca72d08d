#include "safety/kill_check.h"

#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <algorithm>
#include <csignal>

namespace marlowick::test {

void stopUntilWatched() {
#ifdef __linux__
    // Some systems let nobody but its parent watch a process that doesn't ask for it.
    ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY, 0, 0, 0);
#endif
    std::raise(SIGSTOP);
}

void prepareAnew(const TestedCommand& command, const Stage& stage) {
    stage.removeEverything();
    command.prepare(stage);
}

std::string faultsOfLeft(const TestedCommand& command, const Whole& whole, const Stage& stage) {
    std::string faults;
    const Contents left = contentsOf(command, stage);
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!command.isReport && left[i] != whole.old[i] && left[i] != whole.changed[i]) {
            faults += command.files[i] + " is neither the old one nor the new one\n";
        }
    }
    return faults + faultsOfKept(command, stage, whole.old);
}

std::string faultsOfSecondRun(const TestedCommand& command, const Whole& whole,
                              const Stage& stage) {
    std::string faults;
    if (contentsOf(command, stage) != whole.changed) {
        faults += "the command does something else the second time\n";
    }
    for (const std::string& name : leftovers(stage)) {
        faults += name + " is left over\n";
    }
    for (const std::string& name : namesOutsideHistory(stage)) {
        if (std::find(whole.names.begin(), whole.names.end(), name) == whole.names.end()) {
            faults += name + " is left over\n";
        }
    }
    return faults;
}

}  // namespace marlowick::test
