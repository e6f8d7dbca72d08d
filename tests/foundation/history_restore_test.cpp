#include "foundation/history_restore.h"

#include <map>
#include <set>

#include "history_test.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "system/shown_path.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::errorOf;

constexpr const char* kAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

class HistoryRestoreTest : public test::HistoryTest {
  protected:
    HistoryRestoreTest() {
        folder.write(simName(1), "first");
        folder.write(simName(2), "other first");
        std::filesystem::create_directories(folder.game() / "gamedata/textures");
        std::filesystem::create_directories(folder.program() / "ENS");
    }

    HistoryEntry entry(std::int64_t number) const {
        for (HistoryEntry& entry : history.entries()) {
            if (entry.number == number) {
                return entry;
            }
        }
        ADD_FAILURE() << "no command " << number;
        return {};
    }

    std::vector<RestoreItem> planOf(std::int64_t number, bool movedToo = false) const {
        return restorePlan(history, entry(number), history.entries(), {}, movedToo);
    }
    RestoreItem itemOf(std::int64_t number) const {
        const std::vector<RestoreItem> plan = planOf(number);
        EXPECT_EQ(plan.size(), 1U);
        return plan.empty() ? RestoreItem() : plan[0];
    }

    // Takes a whole command back, as a command; false if it ended early.
    bool restore(std::int64_t number, const GoOnWithout& goOnWithout = {}) {
        HistoryCommand command(history, "Restore", "", goOnWithout);
        for (const RestoreItem& item : planOf(number)) {
            if (!restoreFile(item, {command})) {
                return false;
            }
        }
        return true;
    }

    // A command's folder by another hand.
    void writeAbout(const std::string& name, const std::string& records,
                    const std::string& neighbourhoods, const std::string& game) {
        std::string about = "{\"version\":1,\"command\":\"Save\",\"game\":\"" + game +
                            "\",\"neighbourhoods\":\"" + neighbourhoods + "\",\"files\":[" +
                            records + "]}";
        folder.write("program/History/" + name + "/about.json", about);
    }
    void writeAbout(const std::string& name, const std::string& records) {
        writeAbout(name, records, withSlashes(folder.path("saves")),
                   withSlashes(folder.path("game")));
    }
    static std::string withSlashes(const Path& path) {
        std::string text = path.text();
        std::replace(text.begin(), text.end(), '\\', '/');
        return text;
    }
    static std::string abcRecord(const std::string& path) {
        return "{\"path\":\"" + path + "\",\"after\":null,\"before\":{\"size\":3,\"sha256\":\"" +
               kAbc + "\"}}";
    }

    // Every file and what it holds, but for those below "History".
    std::map<std::string, std::string> otherFiles() const {
        std::map<std::string, std::string> all;
        for (const auto& item : std::filesystem::recursive_directory_iterator(folder.root())) {
            const std::string name =
                std::filesystem::relative(item.path(), folder.root()).generic_string();
            if (item.is_regular_file() && !name.starts_with("program/History/")) {
                all[name] = folder.read(name);
            }
        }
        return all;
    }
};

TEST_F(HistoryRestoreTest, ASaveIsTakenBackAndTheTakingBackToo) {
    saveOver(simPath(1), "second");
    const RestoreItem item = itemOf(1);
    EXPECT_EQ(item.step, RestoreStep::PutBack);
    EXPECT_EQ(item.target, simPath(1));
    EXPECT_EQ(readWholeFile(item.kept), "first");
    EXPECT_FALSE(item.isChangedSince);
    EXPECT_TRUE(item.later.empty());
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_EQ(entry(2).about.command, "Restore");
    EXPECT_TRUE(restore(2));
    EXPECT_EQ(folder.read(simName(1)), "second");
}

TEST_F(HistoryRestoreTest, WhatIsAsBeforeAlreadyStaysAndIsNoCommand) {
    saveOver(simPath(1), "second");
    folder.write(simName(1), "first");
    EXPECT_EQ(itemOf(1).step, RestoreStep::Nothing);
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_EQ(history.entries().size(), 1U);
}

TEST_F(HistoryRestoreTest, TellsWhenTheGameChangedTheFileSince) {
    saveOver(simPath(1), "second");
    folder.write(simName(1), "played");
    EXPECT_TRUE(itemOf(1).isChangedSince);
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "first");
    // What the game wrote isn't lost.
    EXPECT_TRUE(restore(2));
    EXPECT_EQ(folder.read(simName(1)), "played");
}

TEST_F(HistoryRestoreTest, TellsWhichLaterCommandsGoBackWithIt) {
    saveOver(simPath(1), "second");
    saveOver(simPath(2), "other second");
    saveOver(simPath(1), "third");
    saveOver(simPath(1), "fourth");
    EXPECT_EQ(itemOf(1).later, (std::vector<std::int64_t>{4, 3}));
    EXPECT_FALSE(itemOf(1).isChangedSince);
    EXPECT_EQ(itemOf(3).later, std::vector<std::int64_t>{4});
    EXPECT_EQ(itemOf(4).later, std::vector<std::int64_t>{});
    EXPECT_EQ(itemOf(2).later, std::vector<std::int64_t>{});
    folder.write(simName(1), "second");
    EXPECT_TRUE(itemOf(1).isChangedSince);
}

TEST_F(HistoryRestoreTest, OneFileOfManyCanBeTakenBack) {
    {
        HistoryCommand repair(history, "Repair", "", {});
        EXPECT_TRUE(replaceKept(repair, simPath(1), "new"));
        EXPECT_TRUE(replaceKept(repair, simPath(2), "other new"));
    }
    const auto plan = restorePlan(history, entry(1), history.entries(), {1}, false);
    ASSERT_EQ(plan.size(), 1U);
    {
        HistoryCommand command(history, "Restore", "", {});
        EXPECT_TRUE(restoreFile(plan[0], {command}));
    }
    EXPECT_EQ(folder.read(simName(1)), "new");
    EXPECT_EQ(folder.read(simName(2)), "other first");
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_EQ(entry(3).about.records.size(), 1U);
}

TEST_F(HistoryRestoreTest, AFileThatIsGoneIsMadeAnewAndThatGoesAgainWhenTakenBack) {
    saveOver(simPath(1), "second");
    std::filesystem::remove(folder.root() / simName(1));
    EXPECT_EQ(itemOf(1).step, RestoreStep::MakeAnew);
    EXPECT_TRUE(itemOf(1).isChangedSince);
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_EQ(itemOf(2).step, RestoreStep::Remove);
    EXPECT_TRUE(restore(2));
    EXPECT_FALSE(folder.exists(simName(1)));
    EXPECT_TRUE(restore(3));
    EXPECT_EQ(folder.read(simName(1)), "first");
}

TEST_F(HistoryRestoreTest, ANewArchiveIsRemovedAndComesBack) {
    {
        HistoryCommand save(history, "Save archive", "", {});
        EXPECT_EQ(save.keep(archivePath("new.far"), stateOf("archive")).answer, KeepAnswer::Kept);
    }
    folder.write("game/gamedata/textures/new.far", "archive");
    EXPECT_EQ(itemOf(1).step, RestoreStep::Remove);
    EXPECT_FALSE(itemOf(1).isChangedSince);
    folder.makeReadOnly("game/gamedata/textures/new.far");
    EXPECT_TRUE(restore(1));
    EXPECT_FALSE(folder.exists("game/gamedata/textures/new.far"));
    EXPECT_EQ(itemOf(1).step, RestoreStep::Nothing);
    EXPECT_TRUE(restore(2));
    EXPECT_EQ(folder.read("game/gamedata/textures/new.far"), "archive");
}

TEST_F(HistoryRestoreTest, ADeletedEnsembleComesBack) {
    folder.write("program/ENS/x.ens", "lines");
    const Path ensemble = folder.path("program\\ENS\\x.ens");
    {
        HistoryCommand command(history, "Delete ensemble", "", {});
        EXPECT_EQ(command.keep(ensemble, std::nullopt).answer, KeepAnswer::Kept);
    }
    std::filesystem::remove(folder.program() / "ENS/x.ens");
    EXPECT_EQ(itemOf(1).step, RestoreStep::MakeAnew);
    EXPECT_FALSE(itemOf(1).isChangedSince);
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read("program/ENS/x.ens"), "lines");
}

TEST_F(HistoryRestoreTest, AReadOnlySimStaysAndAReadOnlyArchiveIsReplaced) {
    saveOver(simPath(1), "second");
    folder.makeReadOnly(simName(1));
    EXPECT_EQ(errorOf([&] { restore(1); }), 75);
    EXPECT_EQ(folder.read(simName(1)), "second");
    folder.write("game/gamedata/textures/x.far", "a");
    saveOver(archivePath("x.far"), "b");
    folder.makeReadOnly("game/gamedata/textures/x.far");
    EXPECT_TRUE(restore(2));
    EXPECT_EQ(folder.read("game/gamedata/textures/x.far"), "a");
}

TEST_F(HistoryRestoreTest, AReadOnlySimIsNotRemovedEither) {
    {
        HistoryCommand command(history, "Restore", "", {});
        EXPECT_EQ(command.keep(simPath(3), stateOf("made")).answer, KeepAnswer::Kept);
    }
    folder.write(simName(3), "made");
    folder.makeReadOnly(simName(3));
    EXPECT_EQ(errorOf([&] { restore(1); }), 75);
    EXPECT_EQ(folder.read(simName(3)), "made");
    EXPECT_EQ(history.entries().size(), 1U);
}

// A Legacy game may have come to lie where the neighbourhoods were.
TEST_F(HistoryRestoreTest, TemplatesOfALegacyGameStayAsTheyAre) {
    saveOver(simPath(1), "second");
    std::filesystem::remove(folder.root() / simName(2));
    saveOver(simPath(2), "made");
    folder.write("saves/Sims.exe", "MZ");
    folder.write("saves/eadpsdk.json", "{}");
    const auto before = otherFiles();
    for (const int number : {1, 2}) {
        EXPECT_EQ(errorOf([&] { restore(number); }), 75) << number;
    }
    EXPECT_TRUE(otherFiles() == before);
    std::filesystem::remove(folder.root() / "saves/eadpsdk.json");
    EXPECT_TRUE(restore(1));
    EXPECT_TRUE(restore(2));
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_FALSE(folder.exists(simName(2)));
}

TEST_F(HistoryRestoreTest, OldBytesThatAreOthersNowAreRefused) {
    saveOver(simPath(1), "second");
    const std::string kept =
        "program/History/" + entry(1).folder + "/UserData/Characters/user00001.iff";
    folder.write(kept, "fIrst");
    EXPECT_EQ(itemOf(1).step, RestoreStep::Refused);
    EXPECT_EQ(itemOf(1).reason, "Its old content isn't as it was kept.");
    folder.write(kept, "first and more");
    EXPECT_EQ(itemOf(1).reason, "Its old content isn't as it was kept.");
    std::filesystem::remove(folder.root() / kept);
    EXPECT_EQ(itemOf(1).reason, "Its old content is missing.");
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(folder.read(simName(1)), "second");
}

// What was looked at for the plan may be another file when the step is done.
TEST_F(HistoryRestoreTest, WhatTakesTheNameIsProvenToBeTheOldBytes) {
    saveOver(simPath(1), "second");
    const RestoreItem item = itemOf(1);
    folder.write("program/History/" + entry(1).folder + "/UserData/Characters/user00001.iff",
                 "fIrst");
    HistoryCommand command(history, "Restore", "", {});
    try {
        restoreFile(item, {command});
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 321);
        EXPECT_EQ(failure.description(), "Invalid file format\r\n" + shownPath(simPath(1)) +
                                             "\r\nThe content isn't as it was kept.");
    }
    EXPECT_EQ(folder.read(simName(1)), "second");
    EXPECT_EQ(history.entries().size(), 1U);
    EXPECT_EQ(otherFiles().size(), 2U);
}

TEST_F(HistoryRestoreTest, AFileThatCameOrWentSinceThePlanIsLeftAlone) {
    saveOver(simPath(1), "second");
    const RestoreItem there = itemOf(1);
    std::filesystem::remove(folder.root() / simName(1));
    const RestoreItem gone = itemOf(1);
    HistoryCommand command(history, "Restore", "", {});
    EXPECT_EQ(errorOf([&] { restoreFile(there, {command}); }), 53);
    EXPECT_FALSE(folder.exists(simName(1)));
    folder.write(simName(1), "come");
    EXPECT_EQ(errorOf([&] { restoreFile(gone, {command}); }), 58);
    EXPECT_EQ(folder.read(simName(1)), "come");
}

TEST_F(HistoryRestoreTest, AFileToBeRemovedMayHaveGoneSinceThePlan) {
    const Path archive = archivePath("new.far");
    {
        HistoryCommand save(history, "Save archive", "", {});
        EXPECT_EQ(save.keep(archive, stateOf("archive")).answer, KeepAnswer::Kept);
    }
    folder.write("game/gamedata/textures/new.far", "archive");
    const RestoreItem made = itemOf(1);
    std::filesystem::remove(folder.game() / "gamedata/textures/new.far");
    HistoryCommand command(history, "Restore", "", {});
    EXPECT_EQ(errorOf([&] { restoreFile(made, {command}); }), 53);
}

TEST_F(HistoryRestoreTest, WhoDoesNotWantToGoOnWithoutKeepingLosesNothing) {
    {
        HistoryCommand save(history, "Save archive", "", {});
        EXPECT_EQ(save.keep(archivePath("new.far"), stateOf("archive")).answer, KeepAnswer::Kept);
    }
    folder.write("game/gamedata/textures/new.far", "archive");
    folder.write("game/gamedata/textures/old.far", "a");
    saveOver(archivePath("old.far"), std::string(100, 'b'));
    history.setBounds({0, 5, 2});
    std::vector<KeepAnswer> asked;
    const auto no = [&](const KeepResult& result) {
        asked.push_back(result.answer);
        return false;
    };
    EXPECT_FALSE(restore(1, no));
    EXPECT_FALSE(restore(2, no));
    EXPECT_EQ(asked, (std::vector{KeepAnswer::AboveBound, KeepAnswer::AboveBound}));
    EXPECT_EQ(folder.read("game/gamedata/textures/new.far"), "archive");
    EXPECT_EQ(folder.read("game/gamedata/textures/old.far"), std::string(100, 'b'));
    EXPECT_TRUE(restore(2, [](const KeepResult&) { return true; }));
    EXPECT_EQ(folder.read("game/gamedata/textures/old.far"), "a");
}

TEST_F(HistoryRestoreTest, TheCallersOwnWayOfReplacingIsTaken) {
    saveOver(simPath(1), "second");
    std::vector<std::string> told;
    HistoryCommand command(history, "Restore", "", {});
    const auto replace = [&](const Path& kept, const Path& target, ReadOnlyTarget readOnly,
                             const BeforeRename& look) {
        told.push_back(kept.fileName() + " " + target.text());
        EXPECT_EQ(readOnly, ReadOnlyTarget::Refuse);
        return replaceFile(kept, target, readOnly, {}, look);
    };
    EXPECT_TRUE(restoreFile(itemOf(1), {command, "Formal: b", {}, replace}));
    EXPECT_EQ(told, std::vector<std::string>{"user00001.iff " + simPath(1).text()});
    EXPECT_EQ(folder.read(simName(1)), "first");
    EXPECT_EQ(entry(2).about.records.at(0).changes, "Formal: b");
}

TEST_F(HistoryRestoreTest, TheProgramsOwnHandleOnAFileThatGoesIsLetGo) {
    {
        HistoryCommand command(history, "Restore", "", {});
        EXPECT_EQ(command.keep(simPath(3), stateOf("made")).answer, KeepAnswer::Kept);
    }
    folder.write(simName(3), "made");
    streams().open(slot::kUserFile, simPath(3), OpenMode::Binary);
    EXPECT_TRUE(restore(1));
    EXPECT_FALSE(streams().isOpen(slot::kUserFile));
    EXPECT_FALSE(folder.exists(simName(3)));
}

TEST_F(HistoryRestoreTest, AFolderInTheWayOrMissingIsAReason) {
    saveOver(simPath(1), "second");
    std::filesystem::remove(folder.root() / simName(1));
    std::filesystem::create_directory(folder.root() / simName(1));
    EXPECT_EQ(itemOf(1).reason, "A folder has its name now.");
    std::filesystem::remove_all(folder.root() / "saves/UserData");
    EXPECT_EQ(itemOf(1).reason, "Its folder isn't there any more.");
}

TEST_F(HistoryRestoreTest, OfTwoRecordsOfOneFileTheFirstCounts) {
    writeAbout("000001 x", abcRecord("UserData/Characters/user00001.iff") + "," +
                               abcRecord("USERDATA/Characters/user00001.iff"));
    folder.write("program/History/000001 x/UserData/Characters/user00001.iff", "abc");
    const std::vector<RestoreItem> plan = planOf(1);
    ASSERT_EQ(plan.size(), 2U);
    EXPECT_EQ(plan[0].step, RestoreStep::PutBack);
    EXPECT_EQ(plan[1].reason, "It is listed twice.");
    const auto second = restorePlan(history, entry(1), history.entries(), {1}, false);
    EXPECT_EQ(second.at(0).reason, "It is listed twice.");
}

TEST_F(HistoryRestoreTest, FilesOfAnotherGameAreRefusedAndOfAMovedOneTakenOnWhenWanted) {
    folder.write("elsewhere/x", "");
    const std::string sim = abcRecord("UserData/Characters/user00001.iff");
    const std::string archive = abcRecord("gamedata/textures/x.far");
    const std::string ensemble = abcRecord("ENS/x.ens");
    const auto steps = [&](const std::string& neighbourhoods, const std::string& game,
                           bool movedToo) {
        writeAbout("000001 x", sim + "," + archive + "," + ensemble, neighbourhoods, game);
        for (const char* name :
             {"UserData/Characters/user00001.iff", "gamedata/textures/x.far", "ENS/x.ens"}) {
            folder.write("program/History/000001 x/" + std::string(name), "abc");
        }
        std::string text;
        for (const RestoreItem& item : planOf(1, movedToo)) {
            text += (text.empty() ? "" : ", ") + (item.reason.empty() ? "yes" : item.reason);
        }
        return text;
    };
    const std::string saves = withSlashes(folder.path("saves"));
    const std::string game = withSlashes(folder.path("game"));
    const std::string elsewhere = withSlashes(folder.path("elsewhere"));
    const std::string gone = withSlashes(folder.path("gone"));
    const std::string other = "It belongs to another game.";
    const std::string moved = "Its game was moved.";
    EXPECT_EQ(steps(saves, game, false), "yes, yes, yes");
    EXPECT_EQ(steps(saves + "/", elsewhere, false), "yes, " + other + ", yes");
    EXPECT_EQ(steps(elsewhere, game, true), other + ", yes, yes");
    EXPECT_EQ(steps(gone, gone, false), moved + ", " + moved + ", yes");
    EXPECT_EQ(steps(gone, gone, true), "yes, yes, yes");
    EXPECT_EQ(steps("", "saves", true), other + ", " + other + ", yes");
    EXPECT_EQ(steps("//server/share", "\\\\\\\\server\\\\share", true),
              other + ", " + other + ", yes");
}

// What was done where the game lies now is no change of the game's.
TEST_F(HistoryRestoreTest, OfAMovedGameTheLaterCommandsInItsNewPlaceCount) {
    const std::string gone = withSlashes(folder.path("gone"));
    writeAbout("000001 x", abcRecord("UserData/Characters/user00001.iff"), gone, gone);
    folder.write("program/History/000001 x/UserData/Characters/user00001.iff", "abc");
    saveOver(simPath(1), "second");
    const std::vector<RestoreItem> plan = planOf(1, true);
    ASSERT_EQ(plan.size(), 1U);
    EXPECT_EQ(plan[0].step, RestoreStep::PutBack);
    EXPECT_EQ(plan[0].later, std::vector<std::int64_t>{2});
    EXPECT_FALSE(plan[0].isChangedSince);
}

// A text may name another machine: that one isn't asked for anything.
class AskedFiles : public test::FaultyFiles {
  public:
    AskedFiles() : FaultyFiles(0, Fault::Fail) {}
    bool folderExists(const Path& path) override {
        asked.insert(path.text());
        return FaultyFiles::folderExists(path);
    }
    Path followLinks(const Path& path) override {
        asked.insert(path.text());
        return FaultyFiles::followLinks(path);
    }

    std::set<std::string> asked;
};

TEST_F(HistoryRestoreTest, NoOtherMachineIsAsked) {
    HistoryAbout about;
    for (const char* text :
         {"\\\\server\\share\\game", "//server/share", "\\/server", "relative", "", "\\"}) {
        AskedFiles asking;
        about.game = about.neighbourhoods = Path(text);
        for (const KeptKind kind : {KeptKind::UserFile, KeptKind::Archive}) {
            EXPECT_EQ(gameOfRecord(history.places(), about, kind), GameOfRecord::Other) << text;
        }
        EXPECT_TRUE(asking.asked.empty()) << text;
    }
}

#ifndef _WIN32
// The neighbourhood of nearly the same name is another one.
TEST_F(HistoryRestoreTest, ANeighbourhoodWhoseNameEndsInABlankOrADotHasAWayBack) {
    for (const std::string& name : {"UserData4 "s, "UserData4."s}) {
        const std::string sim = "saves/" + name + "/Characters/user00001.iff";
        folder.write("saves/UserData4/Characters/user00001.iff", "a neighbour's");
        folder.write(sim, "first");
        saveOver(folder.path(sim), "second");
        const std::int64_t number = history.entries().at(0).number;
        EXPECT_EQ(inHistory(entry(number).folder + "/" + name + "/Characters/user00001.iff"),
                  "first");
        EXPECT_EQ(itemOf(number).step, RestoreStep::PutBack);
        EXPECT_TRUE(restore(number));
        EXPECT_EQ(folder.read(sim), "first");
        EXPECT_EQ(folder.read("saves/UserData4/Characters/user00001.iff"), "a neighbour's");
    }
    history.setBounds({0, 0, 0});
    history.prune();
    EXPECT_EQ(folders().size(), 1U);
}

TEST_F(HistoryRestoreTest, AGameUnderAnotherNameIsTheSameGame) {
    std::filesystem::create_directory_symlink(folder.root() / "saves", folder.root() / "alias");
    HistoryAbout about;
    about.neighbourhoods = folder.path("alias");
    EXPECT_EQ(gameOfRecord(history.places(), about, KeptKind::UserFile), GameOfRecord::Open);
}
#endif

// Whatever path stands in a text, nothing is read from there and nothing written there.
TEST_F(HistoryRestoreTest, NothingIsEverWrittenElsewhere) {
    const std::string names[] = {
        "..",
        ".",
        "\\\\",
        ":",
        "CON",
        "con.iff",
        "aux.far.",
        "UserData/Characters/nul.iff",
        "UserData/Characters/user1.iff.",
        "UserData/Characters/user1.iff ",
        "UserData/Characters/../user1.iff",
        "../saves/UserData/Characters/user00001.iff",
        "UserData/../../../evil.iff",
        "/UserData/Characters/user00001.iff",
        "C:/UserData/Characters/user00001.iff",
        "//server/UserData/Characters/user00001.iff",
        "UserData/Characters/user\\u0000.iff",
        "UserData/Characters/user" + std::string(300, 'x') + ".iff",
        "UserData/Characters/user\\u00e9\\u4e2d.iff",
        "gamedata/textures/../../evil.far",
        "gamedata/textures/sub/x.far",
        "gamedata/textures/x.far:stream.far",
        "ENS/../evil.ens",
        "ENS/COM1.ens",
        "about.json",
        "Marlowick.exe",
        "History/000001/x",
        " ",
    };
    std::string records;
    for (const std::string& name : names) {
        records += (records.empty() ? "" : ",") + abcRecord(name);
    }
    writeAbout("000001 x", records);
    folder.write("program/evil.iff", "abc");
    const auto before = otherFiles();
    const std::vector<RestoreItem> plan = planOf(1, true);
    EXPECT_EQ(plan.size(), std::size(names));
    for (const RestoreItem& item : plan) {
        EXPECT_EQ(item.step, RestoreStep::Refused) << item.record.path;
        EXPECT_EQ(item.reason, "No sim, archive or ensemble can lie there.") << item.record.path;
        EXPECT_TRUE(item.target.empty()) << item.record.path;
    }
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(otherFiles(), before);
}

TEST_F(HistoryRestoreTest, AFileThatCannotBeReadIsRefusedWithTheReason) {
    saveOver(simPath(1), "second");
    const HistoryEntry saved = entry(1);
    const std::vector<HistoryEntry> all = history.entries();
    const test::FaultyFiles faulty(1, test::FaultyFiles::Fault::Stop, 70,
                                   test::FaultyFiles::Counted::All);
    const auto plan = restorePlan(history, saved, all, {}, false);
    ASSERT_EQ(plan.size(), 1U);
    EXPECT_EQ(plan[0].step, RestoreStep::Refused);
    EXPECT_EQ(plan[0].reason, "Error 70 - Permission denied");
}

}  // namespace
}  // namespace marlowick
