#include "safety/commands.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "far/far_directory.h"
#include "far/far_save.h"
#include "foundation/error_trap.h"
#include "foundation/file_state.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/history_prune.h"
#include "foundation/history_restore.h"
#include "support/archive_builder.h"
#include "support/user_file_builder.h"
#include "system/clock.h"
#include "system/files.h"
#include "system/streams.h"
#include "wardrobe/ensemble.h"
#include "wardrobe/user_file_save.h"

namespace marlowick::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSim = "game/UserData/Characters/user00001.iff";
constexpr const char* kOtherSim = "game/UserData/Characters/user00002.iff";
constexpr const char* kArchive = "game/gamedata/textures/a.far";
constexpr const char* kNewArchive = "game/gamedata/textures/new.far";
constexpr const char* kEnsemble = "program/ENS/x.ENS";

std::string textOf(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

Path programPath(const fs::path& path) {
    std::string text = textOf(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return Path(text);
}

std::tm noon() {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 21;
    time.tm_hour = 12;
    return time;
}

// Rows with clothes of another body type than the normal ones, and with pink hands.
std::string damagedSim(const std::string& name) {
    std::vector<std::string> rows = simRows({});
    rows[28] = "HfLO,HAND=guao_pinkg";
    rows[29] = "HfRO,HAND=guao_pinkg";
    rows[30] = "f001fafat_own,BODY=f001fafatlgt_own";
    return simFile(rows, name);
}

std::string pet() {
    std::vector<std::string> rows = simRows({.count = 13});
    rows[0] = "dog";
    rows[1] = "b001dog_01,BODY=b001dog_coat;collar";
    rows[12] = "dogmale";
    return simFile(rows, "Rex", "user00001 - Rex");
}

void putSims(const Stage& stage) {
    stage.write(kSim, damagedSim("Mara Quill"));
    stage.write(kOtherSim, damagedSim("Tom Quill"));
}

void putPet(const Stage& stage) {
    stage.write(kSim, pet());
}

void putArchive(const Stage& stage) {
    stage.write(kArchive, archiveFile({{"one.bmp", pattern(40000, 1)},
                                       {"skins\\two.bmp", pattern(300, 2)},
                                       {"three.bmp", pattern(70000, 3)}}));
    stage.write("program/add/four.bmp", pattern(33000, 4));
}

void putEnsemble(const Stage& stage) {
    stage.write(kEnsemble, "an old ensemble\r\n");
}

void loadSim(Stage& stage) {
    gsResetIFF(stage.record);
    gsReadIFF(stage.record, stage.path(kSim));
    readWardrobeTable(stage.record, stage.rows);
    stage.loaded = stage.record;
    stage.rows.Entries[2].Text = "b001fafit_new,BODY=b001fafitlgt_new_and_longer";
}

// The window of a sim cuts each label at its first zero byte and fills it with blanks.
void loadSimAsItsWindow(Stage& stage) {
    loadSim(stage);
    for (int i = 1; i <= stage.record.Segments.bound(); ++i) {
        std::string& label = stage.record.Segments[i].Label;
        label = padded(label.substr(0, label.find('\0')), label.size(), ' ');
    }
}

void loadNothing(Stage& /*stage*/) {}

bool save(Stage& stage, SavedParts parts, bool backup) {
    HistoryCommand command = stage.command("Save");
    const Path file = stage.path(kSim);
    const std::string name = "user00001 - Mara Quill";
    return saveUserFile(
        {file, stage.loaded, stage.record, stage.rows, name, parts, backup, command});
}

bool saveSim(Stage& stage) {
    return save(stage, SavedParts::All, false);
}

bool saveSimWithBackup(Stage& stage) {
    return save(stage, SavedParts::All, true);
}

bool savePet(Stage& stage) {
    return save(stage, SavedParts::WithoutBitmaps, true);
}

using Repair = bool (*)(const SimWalk& walk, RepairWork& work);

bool repair(Stage& stage, Repair tool) {
    HistoryCommand command = stage.command("Repair");
    List<std::string> sims;
    sims.append("user00001.iff");
    sims.append("user00002.iff");
    RepairWork work{command, [](const Path&) { return false; }};
    const bool isDone = tool({"UserData", sims, stage.record, [] {}}, work);
    if (!work.passedOver.empty()) {
        throw RuntimeError(error::kInvalidFormat);
    }
    return isDone;
}

bool fixFit(Stage& stage) {
    return repair(stage, fixFitToSkinny);
}

bool removePink(Stage& stage) {
    return repair(stage, removePinkHands);
}

void openArchive(Stage& stage) {
    stage.edit = {};
    stage.edit.mstrFarFile = stage.path(kArchive);
    gsReadFARdir(stage.edit.mudtFarDir, stage.edit.mstrFarFile);
    listEntries(stage.edit);
}

void loadEdited(Stage& stage) {
    openArchive(stage);
    deleteRows(stage.edit, {1});
    FarAdder(stage.edit, stage.path("program/add")).add("four.bmp");
}

void loadEmptied(Stage& stage) {
    openArchive(stage);
    deleteRows(stage.edit, {0, 1, 2});
}

void loadNew(Stage& stage) {
    stage.edit = {};
    FarAdder(stage.edit, stage.path("program/add")).add("four.bmp");
}

bool saveArchiveAs(Stage& stage, const Path& target) {
    HistoryCommand command = stage.command("Save Archive");
    return saveArchive(stage.edit, target, command, {[](int, int) {}, [] {}});
}

bool saveOpenArchive(Stage& stage) {
    return saveArchiveAs(stage, stage.path(kArchive));
}

bool saveNewArchive(Stage& stage) {
    return saveArchiveAs(stage, stage.path(kNewArchive));
}

bool extract(Stage& stage) {
    bool isDone = true;
    for (int number = 1; number <= 3 && isDone; ++number) {
        isDone = gsExtractFile(stage.path(kArchive), stage.path("program/meant"),
                               stage.edit.mudtFarDir, number);
    }
    return isDone;
}

void putArchiveToExtract(const Stage& stage) {
    putArchive(stage);
    fs::create_directories(stage.root() / "program/meant");
}

bool writeEnsemble(Stage& stage) {
    WardrobeFields fields;
    fields.txtNormalBody = "b001fafit_new";
    fields.txtFashionSkin = "h001fafitlgt_new";
    HistoryCommand command = stage.command("Save Ensemble");
    return saveEnsemble(stage.path(kEnsemble), fields, command);
}

bool removeEnsemble(Stage& stage) {
    // The window deletes what is there.
    if (!files().fileExists(stage.path(kEnsemble))) {
        return true;
    }
    HistoryCommand command = stage.command("Delete Ensemble");
    return deleteEnsemble(stage.path(kEnsemble), command);
}

bool exportNames(Stage& stage) {
    List<std::string> sims;
    sims.append("user00001.iff");
    sims.append("user00002.iff");
    exportSkinNames({"UserData", sims, stage.record, [] {}});
    return true;
}

// The old bytes of two sims and an archive, and others in their places.
void putVersions(const Stage& stage) {
    putSims(stage);
    putArchive(stage);
    History history(historyPlaces());
    HistoryCommand command(history, "Repair", "", {});
    for (const char* name : {kSim, kOtherSim, kArchive}) {
        const std::string after = pattern(50000, 9);
        command.keep(stage.path(name), stateOf(after));
        stage.write(name, after);
    }
}

bool restore(Stage& stage) {
    const std::vector<HistoryEntry> all = stage.history.entries();
    const auto first = std::find_if(all.begin(), all.end(),
                                    [](const HistoryEntry& entry) { return entry.number == 1; });
    if (first == all.end() || !first->isReadable) {
        throw RuntimeError(error::kFileNotFound);
    }
    HistoryCommand command = stage.command("Restore");
    bool isDone = true;
    for (const RestoreItem& item : restorePlan(stage.history, *first, all, {}, false)) {
        if (item.step == RestoreStep::Refused) {
            throw RuntimeError(error::kPathFileAccess, item.reason);
        }
        isDone = isDone && restoreFile(item, {command});
    }
    return isDone;
}

// More versions than are kept.
void putManyVersions(const Stage& stage) {
    putSims(stage);
    History history(historyPlaces());
    for (unsigned version = 1; version <= 4; ++version) {
        const std::string after = pattern(30000, version);
        HistoryCommand command(history, "Save", "", {});
        command.keep(stage.path(kSim), stateOf(after));
        stage.write(kSim, after);
    }
}

bool prune(Stage& stage) {
    stage.history.setBounds({70000, 70000, 2});
    stage.history.prune();
    return true;
}

std::vector<std::string> split(const std::string& path) {
    std::vector<std::string> pieces;
    std::istringstream text(path);
    for (std::string piece; std::getline(text, piece, '/');) {
        pieces.push_back(piece);
    }
    return pieces;
}

}  // namespace

Stage::Stage(fs::path root) : history({}), root_(std::move(root)) {
    fs::create_directories(root_ / "game/gamedata/textures");
    fs::create_directories(root_ / "program/temp");
    ProgramFolder = programPath(root_ / "program");
    SimsPath = programPath(root_ / "game");
    SimsKind = GameKind::Classic;
    NeighbourhoodsElsewhere = Path();
    history.setPlaces(historyPlaces());
    setClock(noon);
    setUniversalClock(noon);
    setErrorTrap([this] {
        told_ += gstrErrorModule + " " + gstrErrorProc + " " + std::to_string(glngErrorNumber) +
                 " " + gstrErrorDescription + "\n";
    });
}

Path Stage::path(const std::string& name) const {
    return programPath(root_ / name);
}

void Stage::write(const std::string& name, const std::string& content) const {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name, std::ios::binary | std::ios::trunc) << content;
}

std::optional<std::string> Stage::read(const std::string& name) const {
    std::ifstream file(root_ / name, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::map<std::string, std::string> Stage::everything() const {
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(root_)) {
        const std::string name = textOf(entry.path().lexically_relative(root_));
        found[name] = entry.is_regular_file() ? read(name).value_or("") : "";
    }
    return found;
}

void Stage::removeEverything() const {
    for (const char* name : {"game", "program"}) {
        fs::remove_all(root_ / name);
    }
    fs::create_directories(root_ / "game/gamedata/textures");
    fs::create_directories(root_ / "program/temp");
    fs::create_directories(root_ / "program/ENS");
}

HistoryCommand Stage::command(const std::string& name) {
    return {history, name, "", [this](const KeepResult& result) {
                told_ += "can't be kept: " + errorText(result.failure) + "\n";
                return false;
            }};
}

std::string Stage::takeTold() {
    return std::exchange(told_, {});
}

const std::vector<TestedCommand>& testedCommands() {
    static const std::vector<TestedCommand> kCommands = {
        {"save", putSims, loadSimAsItsWindow, saveSim, {kSim}},
        {"save-with-backup", putSims, loadSimAsItsWindow, saveSimWithBackup, {kSim}},
        {"pet", putPet, loadSim, savePet, {kSim}},
        {.name = "fit-repair",
         .prepare = putSims,
         .load = loadNothing,
         .run = fixFit,
         .files = {kSim, kOtherSim},
         .keepsSlots = true,
         .passesOver = true},
        {.name = "hands-repair",
         .prepare = putSims,
         .load = loadNothing,
         .run = removePink,
         .files = {kSim, kOtherSim},
         .keepsSlots = true,
         .passesOver = true},
        {.name = "archive-edited",
         .prepare = putArchive,
         .load = loadEdited,
         .run = saveOpenArchive,
         .files = {kArchive},
         .keepsSlots = true},
        {.name = "archive-emptied",
         .prepare = putArchive,
         .load = loadEmptied,
         .run = saveOpenArchive,
         .files = {kArchive},
         .keepsSlots = true},
        {.name = "archive-new",
         .prepare = putArchive,
         .load = loadNew,
         .run = saveNewArchive,
         .files = {kNewArchive},
         .keepsSlots = true},
        {.name = "extraction",
         .prepare = putArchiveToExtract,
         .load = openArchive,
         .run = extract,
         .files = {"program/meant/one.bmp", "program/meant/two.bmp", "program/meant/three.bmp"},
         .keepsSlots = true,
         .isReport = true},
        {"ensemble", putEnsemble, loadNothing, writeEnsemble, {kEnsemble}},
        {"ensemble-deleted", putEnsemble, loadNothing, removeEnsemble, {kEnsemble}},
        {.name = "export",
         .prepare = putSims,
         .load = loadNothing,
         .run = exportNames,
         .files = {"program/bodyskins.txt", "program/headskins.txt"},
         .passesOver = true,
         .isReport = true},
        {"restore", putVersions, loadNothing, restore, {kSim, kOtherSim, kArchive}},
        {"pruning", putManyVersions, loadNothing, prune, {}},
    };
    return kCommands;
}

const TestedCommand& testedCommand(const std::string& name) {
    for (const TestedCommand& command : testedCommands()) {
        if (command.name == name) {
            return command;
        }
    }
    throw std::invalid_argument("no command " + name);
}

Outcome runCommand(const TestedCommand& command, Stage& stage) {
    stage.takeTold();
    Outcome outcome;
    try {
        outcome.isDone = command.run(stage);
    } catch (const RuntimeError& failure) {
        outcome.told = errorText(failure);
    }
    outcome.told += stage.takeTold();
    return outcome;
}

Contents contentsOf(const TestedCommand& command, const Stage& stage) {
    Contents contents;
    for (const std::string& name : command.files) {
        contents.push_back(stage.read(name));
    }
    return contents;
}

std::string faultsOfKept(const TestedCommand& command, const Stage& stage, const Contents& old) {
    std::string faults;
    for (const HistoryEntry& entry : stage.history.entries()) {
        if (!entry.isReadable && !entry.about.records.empty()) {
            faults += entry.folder + " can't be read\n";
        }
        for (const HistoryRecord& record : entry.about.records) {
            if (!record.place) {
                faults += record.path + " has no place\n";
            } else if (record.before &&
                       stateOfFile(stage.history.keptFile(entry, record)) != record.before) {
                faults += record.path + " isn't kept as it was\n";
            }
        }
    }
    const Contents now = contentsOf(command, stage);
    for (const auto& [name, content] : stage.everything()) {
        if (name.starts_with("program/Backup/") && !name.ends_with(kNewFileEnding) &&
            content != old[0] && content != now[0]) {
            faults += name + " isn't whole\n";
        }
    }
    for (std::size_t i = 0; i < old.size(); ++i) {
        if (!command.isReport && old[i] && now[i] != old[i] &&
            !isKept(stage, command.files[i], *old[i])) {
            faults += command.files[i] + " was replaced, and nobody kept it\n";
        }
    }
    return faults;
}

bool isKept(const Stage& stage, const std::string& name, const std::string& content) {
    const std::optional<KeptPlace> place = keptPlaceOf(stage.history.places(), stage.path(name));
    for (const HistoryEntry& entry : stage.history.entries()) {
        for (const HistoryRecord& record : entry.about.records) {
            if (record.place && place && placeKey(*record.place) == placeKey(*place) &&
                record.before == stateOf(content) &&
                readWholeFile(stage.history.keptFile(entry, record)) == content) {
                return true;
            }
        }
    }
    return false;
}

std::string faultsOfTakingBack(Stage& stage) {
    std::string faults;
    // No version may go for the sake of those that come.
    HistoryBounds bounds;
    bounds.versionsOfAnArchive = 1000;
    stage.history.setBounds(bounds);
    const std::vector<HistoryEntry> all = stage.history.entries();
    for (const HistoryEntry& entry : all) {
        HistoryCommand command = stage.command("Restore");
        for (const RestoreItem& item : restorePlan(stage.history, entry, all, {}, false)) {
            if (item.step == RestoreStep::Refused || !restoreFile(item, {command})) {
                faults += item.record.path + " can't be put back: " + item.reason + "\n";
                continue;
            }
            const bool isThere = files().fileExists(item.target);
            if (item.record.before ? !isThere || stateOfFile(item.target) != item.record.before
                                   : isThere) {
                faults += item.record.path + " isn't what it was before its command\n";
            }
        }
    }
    return faults;
}

std::vector<std::string> namesOutsideHistory(const Stage& stage) {
    std::vector<std::string> names;
    for (const auto& [name, content] : stage.everything()) {
        if (!name.starts_with("program/History/")) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<std::string> leftovers(const Stage& stage) {
    std::vector<std::string> names;
    std::map<std::string, int> kept;
    for (const auto& [name, content] : stage.everything()) {
        const std::vector<std::string> pieces = split(name);
        if (name.ends_with(kNewFileEnding) || pieces.back() == "going.json") {
            names.push_back(name);
        }
        if (name.starts_with("program/History/")) {
            kept[pieces[2]] += pieces.back() == kAboutName ? 1 : 0;
        }
    }
    for (const auto& [folder, abouts] : kept) {
        if (abouts != 1) {
            names.push_back("program/History/" + folder);
        }
    }
    return names;
}

}  // namespace marlowick::test
