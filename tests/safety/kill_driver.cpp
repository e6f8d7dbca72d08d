// One command that replaces a player's files, over files of its own, in a process that can be
// killed; and the look at what is left of them. kill_sweep.sh starts it.
//
//   kill_driver list                     the names of the commands
//   kill_driver prepare ROOT COMMAND     puts the old files below an empty folder
//   kill_driver idle ROOT                does what comes before a command
//   kill_driver run ROOT COMMAND         does the command
//   kill_driver check ROOT COMMAND       0 if nothing is lost and the command works again; makes
//                                        the files anew for the next run
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "safety/commands.h"
#include "system/streams.h"

namespace {

namespace fs = std::filesystem;
using namespace marlowick;
using namespace marlowick::test;

const TestedCommand& commandOf(const std::string& name) {
    for (const TestedCommand& command : testedCommands()) {
        if (command.name == name) {
            return command;
        }
    }
    throw std::invalid_argument("no command " + name);
}

void prepare(const TestedCommand& command, const Stage& stage) {
    stage.removeEverything();
    command.prepare(stage);
}

int run(const TestedCommand& command, Stage& stage) {
    command.load(stage);
    const Outcome outcome = runCommand(command, stage);
    std::cout << outcome.told;
    return outcome.isDone ? 0 : 1;
}

// The command's files before it and behind it, on a disk that works, and all names behind it.
struct Whole {
    Contents old;
    Contents changed;
    std::vector<std::string> names;
};

Whole wholeRun(const TestedCommand& command, const fs::path& root) {
    Stage stage(root);
    prepare(command, stage);
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
    std::string faults;
    const Contents left = contentsOf(command, stage);
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!command.isReport && left[i] != whole.old[i] && left[i] != whole.changed[i]) {
            faults += command.files[i] + " is neither the old one nor the new one\n";
        }
    }
    faults += faultsOfKept(command, stage, whole.old);
    // The next run of the program. What is all done already needs no other.
    if (!command.files.empty() && left == whole.changed && command.keepsSlots) {
        return faults;
    }
    if (run(command, stage) != 0) {
        faults += "the command doesn't work again\n";
    }
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

int check(const TestedCommand& command, const fs::path& root) {
    const fs::path model = root.string() + "-whole";
    fs::create_directories(model);
    const Whole whole = wholeRun(command, model);
    streams().closeAll();
    Stage stage(root);
    const std::string faults = faultsAfterKill(command, whole, stage);
    std::cout << faults;
    prepare(command, stage);
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
    if (what == "idle") {
        const Stage stage(root);
        return 0;
    }
    const TestedCommand& command = commandOf(arguments.at(2));
    if (what == "check") {
        return check(command, root);
    }
    Stage stage(root);
    if (what == "prepare") {
        prepare(command, stage);
        return 0;
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
