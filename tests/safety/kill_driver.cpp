// One command that replaces a player's files, over files of its own, in a process that can be
// killed; and the look at what is left of them. kill_sweep.sh starts it.
//
//   kill_driver list                     the names of the commands
//   kill_driver prepare ROOT COMMAND     puts the old files below an empty folder
//   kill_driver run ROOT COMMAND         does the command
//   kill_driver held ROOT COMMAND        the same, but stops itself, by SIGSTOP, right before it
//   kill_driver check ROOT COMMAND       0 if nothing is lost and the command works again; makes
//                                        the files anew for the next run
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "safety/commands.h"
#include "safety/kill_check.h"
#include "system/streams.h"

namespace {

namespace fs = std::filesystem;
using namespace marlowick;
using namespace marlowick::test;

int run(const TestedCommand& command, Stage& stage) {
    command.load(stage);
    const Outcome outcome = runCommand(command, stage);
    std::cout << outcome.told;
    return outcome.isDone ? 0 : 1;
}

Whole wholeRun(const TestedCommand& command, const fs::path& root) {
    Stage stage(root);
    prepareAnew(command, stage);
    Whole whole;
    whole.old = contentsOf(command, stage);
    if (run(command, stage) != 0) {
        throw std::runtime_error("the command fails without being killed");
    }
    whole.changed = contentsOf(command, stage);
    whole.names = namesOutsideHistory(stage);
    return whole;
}

std::string faultsAfterKill(const TestedCommand& command, const Whole& whole, Stage& stage) {
    std::string faults = faultsOfLeft(command, whole, stage);
    // The next run of the program. What is all done already needs no other, where it can't be done
    // twice.
    const bool isDone = contentsOf(command, stage) == whole.changed;
    if (command.files.empty() || !isDone || !command.keepsSlots) {
        if (run(command, stage) != 0) {
            faults += "the command doesn't work again\n";
        }
        faults += faultsOfSecondRun(command, whole, stage);
    }
    streams().closeAll();
    return faults + faultsOfTakingBack(stage);
}

int check(const TestedCommand& command, const fs::path& root) {
    const fs::path model = root.string() + "-whole";
    fs::create_directories(model);
    const Whole whole = wholeRun(command, model);
    streams().closeAll();
    Stage stage(root);
    const std::string faults = faultsAfterKill(command, whole, stage);
    std::cout << faults;
    prepareAnew(command, stage);
    return faults.empty() ? 0 : 1;
}

int act(const std::vector<std::string>& arguments) {
    const std::string& what = arguments.at(0);
    if (what == "list") {
        for (const TestedCommand& command : testedCommands()) {
            std::cout << command.name << '\n';
        }
        return 0;
    }
    const fs::path root = arguments.at(1);
    const TestedCommand& command = testedCommand(arguments.at(2));
    if (what == "check") {
        return check(command, root);
    }
    Stage stage(root);
    if (what == "prepare") {
        prepareAnew(command, stage);
        return 0;
    }
    if (what == "held") {
        stopUntilWatched();
    }
    return run(command, stage);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return act({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}
