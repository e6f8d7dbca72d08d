#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/game_surroundings.h"
#include "roads.h"
#include "system/known_folders.h"
#include "system/processes.h"
#include "widgets/display_text.h"

namespace marlowick::tour {
namespace {

// The drive that the game and the player's folders lie on: of a Wine prefix in the tour's home, or
// on Windows one of the made-up machine.
constexpr const char* kDrive = "/home/Games/sims/drive_c";
constexpr const char* kSaves =
    "/home/Games/sims/drive_c/users/player/Saved Games/Electronic Arts/The Sims 25";

constexpr int kCell = 34;

const std::vector<Expected> kChanges = {{"/UserData/Characters/USER00035.IFF",
                                         "the sim that was dressed",
                                         {{28, "f201fafit_evening,BODY=f201fafitlgt_evening"},
                                          {32, "s100fafit_original,BODY=s100fafitlgt_original"}}}};

bool gameRuns = false;
bool classicIsInstalled = false;

GameSurroundings machine(const QString& tour) {
    GameSurroundings machine;
    // One of the two is empty on each system, as on a real machine.
    if (homeFolder().empty()) {
        machine.fixedDrives = {toPath(tour + kDrive)};
        machine.savedGames = toPath(tour + kDrive + "/users/player/Saved Games");
    } else {
        machine.home = toPath(tour + "/home");
        machine.login = "player";
    }
    machine.registry = [game = toPath(tour + "/game").text()](
                           RegistryHive, RegistryView, std::string_view key,
                           std::string_view) -> std::optional<std::string> {
        return classicIsInstalled && key.ends_with("The Sims") ? std::optional(game) : std::nullopt;
    };
    return machine;
}

void prepare(const QString& tour) {
    setGameSurroundings([tour] { return machine(tour); });
    setRunningPrograms([] {
        return gameRuns ? std::vector<RunningProgram>{{1, "Sims.exe"}}
                        : std::vector<RunningProgram>();
    });
}

// The action, behind what happens on the machine meanwhile.
std::function<void()> when(bool& happens, bool value, std::function<void()> action) {
    return [&happens, value, action = std::move(action)] {
        happens = value;
        action();
    };
}

// To another game, or back.
void addChangeSteps(Driver& driver, const QString& game, const QString& row) {
    driver.add("before-" + game, whenShown("frmMain"), chooseCommand("frmMain", "smenuSetPath"));
    driver.add("games-before-" + game, whenShown("frmSetPath"),
               clickRow("frmSetPath", "lstGames", row));
    driver.add("chosen-" + game, whenShown("frmSetPath"), clickOn("frmSetPath", "cmdOK"));
}

void addSaveSteps(Driver& driver) {
    driver.add("back-at-the-saves", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    driver.add("sims-of-the-saves", whenShown("frmMain"),
               clickAt("frmMain", "picThumbs", cellCentre(kCell)));
    driver.add("a-saved-sim", whenShown("frmMain"),
               when(gameRuns, true, clickOn("frmMain", "cmdSelect")));
    driver.add("game-runs", whenAsked("The Sims Is Running"), answer("OK"));
    driver.add("its-wardrobe", whenShown("frmEditSim"),
               openTab("frmEditSim", "tabSkins", "Swimsuit"));
    driver.add("its-swimsuit", whenShown("frmEditSim"),
               clickOn("frmEditSim", "cmdDefaultSwimsuit"));
    driver.add("swimsuit-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("other-swimsuit", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdSave"));
    driver.add("save-question-1", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("save-anyway", whenAsked("Confirm Action"), answer("No"));
    driver.add("not-saved", whenShown("frmEditSim"),
               when(gameRuns, false, clickOn("frmEditSim", "cmdSave")));
    driver.add("save-question-2", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("saved-among-the-saves", whenAsked("Success"), answer("OK"));
}

void addSteps(Driver& driver) {
    driver.add("title", whenShown("frmTitle"), clickOn("frmTitle", "cmdOK"));
    driver.add("found-game", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 08"));
    driver.add("players-own-neighborhood", whenShown("frmMain"),
               when(classicIsInstalled, true, pause()));
    addChangeSteps(driver, "the-classic-game", "The Sims (");
    addChangeSteps(driver, "the-legacy-collection", "The Sims Legacy Collection");
    addSaveSteps(driver);
    addEnd(driver);
}

}  // namespace

Road legacyRoad() {
    return {"/legacy", kSaves, kChanges, "/home", prepare, addSteps};
}

}  // namespace marlowick::tour
