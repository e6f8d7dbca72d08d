#include "foundation/running_game.h"

#include <algorithm>
#include <utility>

#include "system/game_text.h"
#include "system/processes.h"

namespace marlowick {
namespace {

std::vector<std::uint32_t> runsOfTheGame() {
    std::vector<std::uint32_t> runs;
    for (const RunningProgram& program : runningPrograms()) {
        if (equalsIgnoringCase(program.name, "Sims.exe")) {
            runs.push_back(program.id);
        }
    }
    return runs;
}

}  // namespace

bool isGameRunning() {
    return !runsOfTheGame().empty();
}

bool RunningGameNotice::isDue() {
    std::vector<std::uint32_t> runs = runsOfTheGame();
    const bool isNew = std::any_of(runs.begin(), runs.end(), [this](std::uint32_t run) {
        return std::find(told_.begin(), told_.end(), run) == told_.end();
    });
    told_ = std::move(runs);
    return isNew;
}

}  // namespace marlowick
