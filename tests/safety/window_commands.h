// Commands of the window program that replace a player's files, step by step from its start to its
// end, over the files of the commands of the same kind.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "safety/commands.h"
#include "tour/driver.h"

namespace marlowick::test {

struct WindowCommand {
    std::string name;
    TestedCommand files;  // whose files it works on
    // What a person does between the main window's coming up and its closing. before runs right
    // before the click that begins the command. isDone: everything has been done before, and
    // that is all there is to see.
    void (*addSteps)(tour::Driver& driver, const std::function<void()>& before, bool isDone);
    // It can't be done twice.
    bool onlyOnce = false;
};

const std::vector<WindowCommand>& windowCommands();
// Raises invalid_argument if there is none of that name.
const WindowCommand& windowCommand(const std::string& name);

// The old files, the game around them and the settings, for the program's next start. The settings
// lie beside the stage's folder.
void prepareWindows(const WindowCommand& command, const Stage& stage);

// Starts the program as its own main does, on the stage's folder, does the command in its windows
// and ends it. Needs a QApplication. Ends the process with an error if a step doesn't come.
void runInWindows(const WindowCommand& command, const Stage& stage,
                  const std::function<void()>& before, bool isDone);

}  // namespace marlowick::test
