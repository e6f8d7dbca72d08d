// The window program itself, doing one command that replaces a player's files, in a process that
// can be killed; and the look at what is left of them. kill_sweep.sh starts it.
//
//   kill_windows list                   the names of the commands
//   kill_windows prepare ROOT COMMAND   puts the old files below an empty folder; beside it, those
//                                       of ROOT-old and those that the command makes of them,
//                                       ROOT-whole
//   kill_windows run ROOT COMMAND       does the command
//   kill_windows held ROOT COMMAND      the same, but stops itself, by SIGSTOP, right before the
//                                       click that begins it
//   kill_windows check ROOT COMMAND     0 if nothing is lost and the command works again; makes the
//                                       files anew for the next run
#include <QApplication>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "safety/kill_check.h"
#include "safety/window_commands.h"
#include "system/streams.h"

namespace {

namespace fs = std::filesystem;
using namespace marlowick;
using namespace marlowick::test;

void goOn() {}

void prepare(const WindowCommand& command, const fs::path& root) {
    for (const char* end : {"-old", "-whole", ""}) {
        prepareWindows(command, Stage(root.string() + end));
    }
    runInWindows(command, Stage(root.string() + "-whole"), goOn, false);
    if (contentsOf(command.files, Stage(root.string() + "-old")) ==
        contentsOf(command.files, Stage(root.string() + "-whole"))) {
        throw std::runtime_error("the command changes nothing");
    }
}

Whole wholeRun(const WindowCommand& command, const fs::path& root) {
    const Stage old(root.string() + "-old");
    const Stage changed(root.string() + "-whole");
    return {contentsOf(command.files, old), contentsOf(command.files, changed),
            namesOutsideHistory(changed)};
}

int check(const WindowCommand& command, const fs::path& root) {
    const Whole whole = wholeRun(command, root);
    Stage stage(root);
    std::string faults = faultsOfLeft(command.files, whole, stage);
    const bool isDone = command.onlyOnce && contentsOf(command.files, stage) == whole.changed;
    runInWindows(command, stage, goOn, isDone);
    if (!isDone) {
        faults += faultsOfSecondRun(command.files, whole, stage);
    }
    streams().closeAll();
    faults += faultsOfTakingBack(stage);
    std::cout << faults;
    prepareWindows(command, stage);
    return faults.empty() ? 0 : 1;
}

int act(const std::vector<std::string>& arguments) {
    const std::string& what = arguments.at(0);
    if (what == "list") {
        for (const WindowCommand& command : windowCommands()) {
            std::cout << command.name << '\n';
        }
        return 0;
    }
    const fs::path root = arguments.at(1);
    const WindowCommand& command = windowCommand(arguments.at(2));
    if (what == "check") {
        return check(command, root);
    }
    if (what == "prepare") {
        prepare(command, root);
        return 0;
    }
    runInWindows(command, Stage(root), what == "held" ? stopUntilWatched : goOn, false);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::setenv("QT_LOGGING_RULES", "*=false", 0);
    const QApplication application(argc, argv);
    try {
        return act({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}
