#include "foundation/history_prune.h"

#include "history_test.h"

namespace marlowick {
namespace {

class HistoryPruneTest : public test::HistoryTest {
  protected:
    // The numbers of the commands that are kept, the newest first.
    std::vector<std::int64_t> numbers() const {
        std::vector<std::int64_t> numbers;
        for (const HistoryEntry& entry : history.entries()) {
            numbers.push_back(entry.number);
        }
        return numbers;
    }

    // Commands over the file, each of which keeps so many bytes.
    void save(const Path& file, const std::vector<std::size_t>& sizes) {
        HistoryPlaces places = history.places();
        History unbounded(places);
        for (const std::size_t size : sizes) {
            writeWholeFile(file, std::string(size, 'x'));
            HistoryCommand command(unbounded, "Save", "", {});
            EXPECT_EQ(command.keep(file, stateOf("new")).answer, KeepAnswer::Kept);
        }
    }

    void prune(const HistoryBounds& bounds) {
        history.setBounds(bounds);
        history.prune();
    }

    void makeGame() {
        folder.write(simName(1), "");
        std::filesystem::create_directories(folder.game() / "gamedata/textures");
        std::filesystem::create_directories(folder.program() / "ENS");
    }

    using Numbers = std::vector<std::int64_t>;
};

TEST_F(HistoryPruneTest, TheBoundsOfTheGameAreOneGibibyteEachAndTwoOfAnArchive) {
    EXPECT_EQ(history.bounds().files, 1073741824);
    EXPECT_EQ(history.bounds().archives, 1073741824);
    EXPECT_EQ(history.bounds().versionsOfAnArchive, 2);
}

TEST_F(HistoryPruneTest, TheOldestGoFirstAndWhatFitsStays) {
    makeGame();
    save(simPath(1), {100, 20, 30, 40});
    prune({190, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 2, 1}));
    prune({189, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 2}));
    prune({89, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{4, 3}));
    EXPECT_EQ(folders().size(), 2U);
}

// An old small one doesn't outlive a newer large one.
TEST_F(HistoryPruneTest, NothingOlderThanWhatGoesStays) {
    makeGame();
    save(simPath(1), {1, 100, 10});
    prune({50, 0, 0});
    EXPECT_EQ(numbers(), Numbers{3});
}

TEST_F(HistoryPruneTest, OnlyTheNewestMayBeLargerThanItsBound) {
    makeGame();
    save(simPath(1), {10, 500});
    prune({50, 0, 0});
    EXPECT_EQ(numbers(), Numbers{2});
    prune({0, 0, 0});
    EXPECT_EQ(numbers(), Numbers{2});
    save(simPath(1), {1});
    prune({50, 0, 0});
    EXPECT_EQ(numbers(), Numbers{3});
}

TEST_F(HistoryPruneTest, ArchivesHaveABoundOfTheirOwn) {
    makeGame();
    save(archivePath("a.far"), {100});
    save(simPath(1), {50});
    save(archivePath("b.far"), {100});
    save(folder.path("program\\ENS\\x.ens"), {50});
    prune({100, 200, 2});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 2, 1}));
    prune({99, 200, 2});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 1}));
    prune({99, 199, 2});
    EXPECT_EQ(numbers(), (Numbers{4, 3}));
}

TEST_F(HistoryPruneTest, OfEachArchiveTheNewestTwoStay) {
    makeGame();
    save(archivePath("a.far"), {1});
    save(archivePath("b.far"), {1});
    save(archivePath("A.FAR"), {1, 1});
    prune({1000, 1000, 2});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 2}));
}

TEST_F(HistoryPruneTest, AnArchiveOfAnotherGameIsAnotherArchive) {
    makeGame();
    save(archivePath("a.far"), {1, 1});
    HistoryPlaces other = history.places();
    other.game = folder.path("other");
    folder.write("other/gamedata/textures/a.far", "x");
    {
        History there(other, {1000, 1000, 2});
        HistoryCommand command(there, "Save archive", "", {});
        EXPECT_EQ(
            command.keep(folder.path("other\\gamedata\\textures\\a.far"), stateOf("new")).answer,
            KeepAnswer::Kept);
    }
    prune({1000, 1000, 2});
    EXPECT_EQ(numbers(), (Numbers{3, 2, 1}));
}

TEST_F(HistoryPruneTest, EachCommandPrunesAtItsEnd) {
    makeGame();
    history.setBounds({25, 0, 0});
    for (int i = 0; i < 5; ++i) {
        folder.write(simName(1), std::string(10, 'x'));
        saveOver(simPath(1), "new");
    }
    EXPECT_EQ(numbers(), (Numbers{5, 4}));
}

TEST_F(HistoryPruneTest, ACommandThatRunsIsNotTakenAway) {
    makeGame();
    history.setBounds({0, 0, 0});
    folder.write(simName(1), "1");
    folder.write(simName(2), "2");
    HistoryCommand first(history, "Repair", "", {});
    EXPECT_TRUE(replaceKept(first, simPath(1), "new"));
    saveOver(simPath(2), "new");
    EXPECT_EQ(numbers(), (Numbers{2, 1}));
    first.end();
    EXPECT_EQ(numbers(), Numbers{2});
}

// Were it for the texts alone, a lie would drive out all that is older.
TEST_F(HistoryPruneTest, NothingGoesBecauseOfWhatATextSays) {
    makeGame();
    save(simPath(1), {10, 10});
    const std::string lie =
        "{\"version\":1,\"files\":[{\"path\":\"UserData\\\\Characters\\\\user00001.iff\","
        "\"after\":null,\"before\":{\"size\":9223372036854775807,\"sha256\":"
        "\"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad\"}},"
        "{\"path\":\"UserData\\\\Characters\\\\user00002.iff\","
        "\"after\":null,\"before\":{\"size\":9223372036854775807,\"sha256\":"
        "\"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad\"}}]}";
    folder.write("program/History/000003 lie/about.json", lie);
    folder.write("program/History/000004 lie/about.json", lie);
    prune({100, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{4, 3, 2, 1}));
}

// What a person put there stays, with the folder that it lies in.
TEST_F(HistoryPruneTest, WhatIsNotOfThisProgramsMakingStays) {
    makeGame();
    save(simPath(1), {10, 10});
    const std::string first = "program/History/" + folders().at(0) + "/";
    folder.write(first + "notes.txt", "mine");
    folder.write(first + "UserData/Characters/house00.iff", "mine");
    folder.write(first + "UserData/Characters/more/user00001.iff", "mine");
    folder.write("program/History/000000 x/about.json", "{\"version\":1}");
    folder.write("program/History/mine/user00001.iff", "mine");
    prune({0, 0, 0});
    history.prune();
    EXPECT_EQ(numbers(), Numbers{2});
    EXPECT_FALSE(folder.exists(first + "UserData/Characters/user00001.iff"));
    EXPECT_EQ(folder.read(first + "notes.txt"), "mine");
    EXPECT_EQ(folder.read(first + "UserData/Characters/house00.iff"), "mine");
    EXPECT_EQ(folder.read(first + "UserData/Characters/more/user00001.iff"), "mine");
    EXPECT_TRUE(folder.exists("program/History/000000 x/about.json"));
    EXPECT_TRUE(folder.exists("program/History/mine/user00001.iff"));
}

TEST_F(HistoryPruneTest, ACommandThatCannotBeReadStaysWithAllItsBytes) {
    makeGame();
    folder.write("program/History/000001 broken/about.json", "{\"version\":1,");
    folder.write("program/History/000001 broken/UserData/Characters/user00001.iff", "precious");
    folder.write("program/History/000002 broken/about.json", "rubbish");
    folder.write("program/History/000002 broken/UserData/Characters/user00001.iff", "precious");
    folder.write("program/History/000003 none/UserData/Characters/user00001.iff", "precious");
    folder.write("program/History/000004 none/about.json", "");
    folder.write("program/History/000004 none/ENS/x.ens", "precious");
    save(simPath(1), {10});
    prune({1000, 1000, 2});
    for (const char* name :
         {"000001 broken/UserData/Characters/user00001.iff",
          "000002 broken/UserData/Characters/user00001.iff",
          "000003 none/UserData/Characters/user00001.iff", "000004 none/ENS/x.ens"}) {
        EXPECT_EQ(inHistory(name), "precious") << name;
    }
}

// A machine that stops may leave an empty file, and a disk that fails anything.
TEST_F(HistoryPruneTest, ACommandThatCannotBeReadGoesWhenItIsTheOldest) {
    makeGame();
    folder.write("program/History/000001 empty/about.json", "");
    folder.write("program/History/000001 empty/UserData/Characters/user00001.iff", "0123456789");
    folder.write("program/History/000002 broken/about.json", "rubbish");
    folder.write("program/History/000002 broken/ENS/x.ens", "0123456789");
    folder.write("program/History/000003 none/ENS/x.ens", "a person's");
    save(simPath(1), {10, 10});
    prune({40, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{5, 4, 2, 1}));
    prune({39, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{5, 4, 2}));
    EXPECT_FALSE(folder.exists("program/History/000001 empty"));
    prune({29, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{5, 4}));
    EXPECT_FALSE(folder.exists("program/History/000002 broken"));
    prune({0, 0, 0});
    EXPECT_EQ(numbers(), Numbers{5});
    EXPECT_EQ(inHistory("000003 none/ENS/x.ens"), "a person's");
}

TEST_F(HistoryPruneTest, ACommandThatCannotBeReadIsNeverAllThatStays) {
    makeGame();
    save(simPath(1), {10, 10});
    folder.write("program/History/000003 empty/about.json", "");
    folder.write("program/History/000003 empty/UserData/Characters/user00001.iff",
                 std::string(500, 'x'));
    prune({50, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{3, 2}));
    save(simPath(1), {10});
    prune({50, 0, 0});
    EXPECT_EQ(numbers(), Numbers{4});
}

TEST_F(HistoryPruneTest, AnArchivesCommandThatCannotBeReadCountsAmongArchives) {
    makeGame();
    save(simPath(1), {10, 10});
    save(archivePath("a.far"), {50});
    for (const std::string name : {"000004 empty", "000005 empty", "000006 empty"}) {
        folder.write("program/History/" + name + "/about.json", "");
        folder.write("program/History/" + name + "/gamedata/textures/a.far", std::string(100, 'x'));
    }
    prune({20, 350, 3});
    EXPECT_EQ(numbers(), (Numbers{6, 5, 4, 3, 2, 1}));
    prune({20, 350, 2});
    EXPECT_EQ(numbers(), (Numbers{6, 5, 3, 2, 1}));
    prune({20, 199, 2});
    EXPECT_EQ(numbers(), (Numbers{6, 3, 2, 1}));
    EXPECT_EQ(folders().size(), 4U);
}

// A kill between the steps of a command's beginning leaves these.
TEST_F(HistoryPruneTest, TheBeginningsOfACommandThatKeptNothingGo) {
    makeGame();
    std::filesystem::create_directories(folder.program() / "History/000001 bare");
    folder.write("program/History/000002 created/about.json", "");
    folder.write("program/History/000003 begun/about.json",
                 "{\"version\":1,\"command\":\"Save\",\n\"files\":[\n]}\n");
    folder.write("program/History/000003 begun/UserData/Characters/user00001.iff", "half");
    folder.write("program/History/000004 cut/about.json",
                 "{\"version\":1,\"command\":\"Save\",\"name\":\"Mara");
    save(simPath(1), {10});
    prune({1000, 0, 0});
    EXPECT_EQ(folders(), std::vector<std::string>{"000005 2026-11-21 14.15.33 Save"});
}

TEST_F(HistoryPruneTest, WhatACommandKeptBeforeItsRecordWasCutCountsAndGoes) {
    makeGame();
    folder.write("program/History/000001 cut/about.json",
                 "{\"version\":1,\"command\":\"Save\",\n\"files\":[\n{\"path\":\"UserDa");
    folder.write("program/History/000001 cut/UserData/Characters/user00001.iff", "0123456789");
    save(simPath(1), {10});
    prune({20, 0, 0});
    EXPECT_EQ(numbers(), (Numbers{2, 1}));
    prune({19, 0, 0});
    EXPECT_EQ(numbers(), Numbers{2});
    EXPECT_EQ(folders().size(), 1U);
}

#ifndef _WIN32
// What it kept is the way back of a step that isn't done yet.
TEST_F(HistoryPruneTest, ACommandThatRunsIsNotTakenAwayEvenIfItCannotBeRead) {
    makeGame();
    history.setBounds({0, 0, 0});
    folder.write(simName(1), "old");
    HistoryCommand running(history, "Repair", "", {});
    EXPECT_EQ(running.keep(simPath(1), stateOf("new")).answer, KeepAnswer::Kept);
    folder.write("program/History/" + folders().at(0) + "/about.json", "");
    folder.write(simName(2), "old");
    saveOver(simPath(2), "new");
    EXPECT_EQ(inHistory(folders().at(0) + "/UserData/Characters/user00001.iff"), "old");
    running.end();
    EXPECT_EQ(numbers(), Numbers{2});
}

TEST_F(HistoryPruneTest, HistoryItselfMayBeKeptOnAnotherDiskThroughALink) {
    makeGame();
    std::filesystem::create_directory(folder.root() / "elsewhere");
    std::filesystem::create_directory_symlink(folder.root() / "elsewhere",
                                              folder.program() / "History");
    save(simPath(1), {10, 10});
    prune({0, 0, 0});
    EXPECT_EQ(numbers(), Numbers{2});
    EXPECT_EQ(folders().size(), 1U);
}

// Through a link the player's own files would be deleted.
TEST_F(HistoryPruneTest, NoLinkIsFollowed) {
    namespace fs = std::filesystem;
    makeGame();
    folder.write(simName(1), "the player's");
    folder.write("elsewhere/UserData/Characters/user00002.iff", "the player's");
    folder.write("elsewhere/about.json", "{\"version\":1,\"files\":[]}");
    const std::string about = "{\"version\":1,\"files\":[]}";
    folder.write("program/History/000001 link/about.json", about);
    fs::create_directory_symlink(folder.root() / "saves/UserData",
                                 folder.program() / "History/000001 link/UserData");
    folder.write("program/History/000002 link/about.json", about);
    fs::create_directory(folder.program() / "History/000002 link/UserData");
    fs::create_directory_symlink(folder.root() / "saves/UserData/Characters",
                                 folder.program() / "History/000002 link/UserData/Characters");
    fs::create_directory_symlink(folder.root() / "elsewhere",
                                 folder.program() / "History/000003 link");
    folder.write("program/History/000004 link/about.json", about);
    fs::create_directories(folder.program() / "History/000004 link/UserData/Characters");
    fs::create_symlink(folder.root() / simName(1),
                       folder.program() / "History/000004 link/UserData/Characters/user00001.iff");
    prune({0, 0, 0});
    EXPECT_EQ(folder.read(simName(1)), "the player's");
    EXPECT_EQ(folder.read("elsewhere/UserData/Characters/user00002.iff"), "the player's");
    EXPECT_TRUE(folder.exists("elsewhere/about.json"));
}
#endif

}  // namespace
}  // namespace marlowick
