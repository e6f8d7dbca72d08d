#include "foundation/error_trap.h"

#include <utility>

#include "foundation/game.h"
#include "foundation/version.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

std::function<void()>& shownReport() {
    static std::function<void()> show;
    return show;
}

}  // namespace

void setErrorTrap(std::function<void()> show) {
    shownReport() = std::move(show);
}

void gfErrorTrap() {
    if (shownReport()) {
        shownReport()();
    }
}

bool trapped(const char* module, const char* procedure, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (...) {
        const RuntimeError failure = currentError();
        glngErrorNumber = failure.number();
        gstrErrorDescription = failure.description();
    }
    gstrErrorModule = module;
    gstrErrorProc = procedure;
    gfErrorTrap();
    return false;
}

bool ignoringErrors(const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (...) {
        return false;
    }
}

std::string errorText(const RuntimeError& failure) {
    return "Error " + std::to_string(failure.number()) + " - " + failure.description();
}

std::string firstFailure(std::initializer_list<std::function<bool()>> steps) {
    std::string first;
    for (const std::function<bool()>& step : steps) {
        if (!step() && first.empty()) {
            first = errorText(RuntimeError(glngErrorNumber, gstrErrorDescription));
        }
    }
    return first;
}

std::string errorReport() {
    const std::string lines[] = {
        std::string(kProgramTitle) + " - Version " + kVersionText,
        "",
        "Error: " + std::to_string(glngErrorNumber),
        gstrErrorDescription,
        "",
        "Module: " + gstrErrorModule,
        "Procedure: " + gstrErrorProc,
        "Location: " + std::to_string(CheckpointNumber),
        "",
        "Install Path: " + shownPath(ProgramFolder),
        "Sims Path: " + shownPath(SimsPath),
        "Neighborhoods Path: " + shownPath(neighbourhoodsPath()),
    };
    std::string report;
    for (const std::string& line : lines) {
        report += line + "\r\n";
    }
    return report;
}

}  // namespace marlowick
