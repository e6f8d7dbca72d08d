#include "safety/window_commands.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "start/startup.h"
#include "system/processes.h"
#include "widgets/display_text.h"
#include "widgets/form.h"
#include "widgets/settings.h"

namespace marlowick::test {
namespace {

using namespace tour;

constexpr const char* kAdded = "four.bmp";

// The action, right behind what is to come before the click.
std::function<void()> behind(const std::function<void()>& before, std::function<void()> action) {
    return [before, action = std::move(action)] {
        before();
        action();
    };
}

void addSaveSteps(Driver& driver, const QString& window, const std::function<void()>& before) {
    driver.add("save", whenShown(window), behind(before, clickOn(window, "cmdSave")));
    driver.add("save-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("saved", whenAsked("Success"), answer("OK"));
}

void addSimSteps(Driver& driver, const std::function<void()>& before, bool /*isDone*/) {
    driver.add("select", whenShown("frmMain"), clickOn("frmMain", "cmdSelect"));
    driver.add("wardrobe", whenShown("frmEditSim"), openTab("frmEditSim", "tabSkins", "Swimsuit"));
    driver.add("swimsuit", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdDefaultSwimsuit"));
    driver.add("swimsuit-question", whenAsked("Confirm Action"), answer("Yes"));
    addSaveSteps(driver, "frmEditSim", before);
}

// The first save of a pet always changes its file: pictures and map go.
void addPetSteps(Driver& driver, const std::function<void()>& before, bool /*isDone*/) {
    driver.add("select", whenShown("frmMain"), clickOn("frmMain", "cmdSelect"));
    addSaveSteps(driver, "frmEditPet", before);
}

void addRepairSteps(Driver& driver, const QString& command, const std::function<void()>& before) {
    driver.add("repair", whenShown("frmMain"), behind(before, chooseCommand("frmMain", command)));
    driver.add("repair-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("repaired", whenAsked("Success"), answer("OK"));
}

void addFitSteps(Driver& driver, const std::function<void()>& before, bool /*isDone*/) {
    addRepairSteps(driver, "smenuFix", before);
}

void addHandsSteps(Driver& driver, const std::function<void()>& before, bool /*isDone*/) {
    addRepairSteps(driver, "smenuPinkHands", before);
}

// One entry goes and a bitmap of the game's folder comes.
void addArchiveSteps(Driver& driver, const std::function<void()>& before, bool isDone) {
    const QString window = "frmManageFARs";
    driver.add("archives", whenShown("frmMain"), chooseCommand("frmMain", "menuFARs"));
    driver.add("archive-window", whenShown(window), clickOn(window, "cmdOpen"));
    driver.add("pick", whenShown("frmOpenFAR"), clickRow("frmOpenFAR", "lstFiles", "a.far"));
    driver.add("picked", whenShown("frmOpenFAR"), clickOn("frmOpenFAR", "cmdSelect"));
    if (isDone) {
        driver.add("added-before", whenShown(window), clickRow(window, "lstFiles", kAdded));
    } else {
        driver.add("entry", whenShown(window), clickRow(window, "lstFiles", "one.bmp"));
        driver.add("delete", whenShown(window), clickOn(window, "cmdDelete"));
        driver.add("bitmap", whenShown(window), clickRow(window, "lstBMPs", kAdded));
        driver.add("add", whenShown(window), clickOn(window, "cmdAddFile"));
        driver.add("save", whenShown(window), behind(before, clickOn(window, "cmdSave")));
        driver.add("saved", whenAsked("Success"), answer("OK"));
    }
    driver.add("close", whenShown(window), closeWindow(window));
}

void addRestoreSteps(Driver& driver, const std::function<void()>& before, bool isDone) {
    const QString window = "frmHistory";
    driver.add("versions", whenShown("frmMain"), chooseCommand("frmMain", "smenuHistory"));
    driver.add("entry", whenShown(window), clickRow(window, "lstEntries", "Repair"));
    driver.add("restore", whenShown(window), behind(before, clickOn(window, "cmdRestore")));
    if (isDone) {
        driver.add("nothing", whenAsked("Nothing To Restore"), answer("OK"));
    } else {
        driver.add("restore-question", whenAsked("Confirm Action"), answer("Yes"));
        driver.add("restored", whenAsked("Success"), answer("OK"));
    }
    driver.add("close", whenShown(window), clickOn(window, "cmdClose"));
}

QString settingsFile(const Stage& stage) {
    return QString::fromStdString(stage.root().string()) + QStringLiteral("-settings.ini");
}

}  // namespace

const std::vector<WindowCommand>& windowCommands() {
    static const std::vector<WindowCommand> kCommands = {
        {"window-save", testedCommand("save"), addSimSteps},
        {"window-pet", testedCommand("pet"), addPetSteps},
        {"window-fit-repair", testedCommand("fit-repair"), addFitSteps},
        {"window-hands-repair", testedCommand("hands-repair"), addHandsSteps},
        {"window-archive", testedCommand("archive-edited"), addArchiveSteps, true},
        {"window-restore", testedCommand("restore"), addRestoreSteps, true},
    };
    return kCommands;
}

const WindowCommand& windowCommand(const std::string& name) {
    for (const WindowCommand& command : windowCommands()) {
        if (command.name == name) {
            return command;
        }
    }
    throw std::invalid_argument("no command " + name);
}

void prepareWindows(const WindowCommand& command, const Stage& stage) {
    stage.removeEverything();
    command.files.prepare(stage);
    stage.write("game/Sims.exe", "stand-in");
    stage.write(std::string("game/") + kAdded, std::string(33000, 'x'));
    // A main window without a neighbourhood has no steps to take.
    stage.write("game/UserData/Characters/readme.txt", "");
    std::filesystem::remove(settingsFile(stage).toStdString());
}

void runInWindows(const WindowCommand& command, const Stage& stage,
                  const std::function<void()>& before, bool isDone) {
    setGameSurroundings([] { return GameSurroundings(); });
    setRunningPrograms([] { return std::vector<RunningProgram>(); });
    useSettingsFile(settingsFile(stage));
    writeSetting(setting::kSimsLocation, toDisplay(SimsPath));
    Driver driver{QString()};
    driver.add("title", whenShown("frmTitle"), clickOn("frmTitle", "cmdOK"));
    driver.add("neighborhood", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    command.addSteps(driver, before, isDone);
    driver.add("end", whenShown("frmMain"), closeWindow("frmMain"));
    driver.add("exit-question", whenAsked("Confirm Action"), answer("Yes"));

    prepareApplication();
    if (!isOnlyCopy()) {
        throw std::runtime_error("another copy runs");
    }
    driver.start();
    startProgram();
    QApplication::exec();
    setErrorTrap({});
    destroyWindows();
    if (!driver.isDone()) {
        throw std::runtime_error("the program ended before its steps did");
    }
}

}  // namespace marlowick::test
