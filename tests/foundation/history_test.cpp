#include "foundation/history.h"

#include "foundation/history_folders.h"
#include "history_test.h"
#include "support/error_recorder.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::timeOf;

using HistoryTest = test::HistoryTest;

constexpr const char* kFirst = "000001 2026-11-21 14.15.33 Save";

TEST(HistoryFolderNameTest, HasNumberTimeCommandAndName) {
    EXPECT_EQ(historyFolderName(123, timeOf(21, 14), "Save", "Mara Quill"),
              "000123 2026-11-21 14.15.33 Save Mara Quill");
    EXPECT_EQ(historyFolderName(7, timeOf(1, 0), "Save", ""), "000007 2026-11-01 00.15.33 Save");
    EXPECT_EQ(historyFolderName(999999, timeOf(21, 14), "", ""), "999999 2026-11-21 14.15.33");
    EXPECT_EQ(historyFolderName(1000000000, timeOf(21, 14), "", ""),
              "1000000000 2026-11-21 14.15.33");
}

// Whatever a sim is called, the name is one that any system takes for a folder's.
TEST(HistoryFolderNameTest, TakesOfANameWhatAFolderMayBeCalled) {
    struct Row {
        std::string name;
        const char* taken;
    };
    const Row rows[] = {
        {"..", ""},
        {"/", ""},
        {"\\", ""},
        {"C:\\x", " Cx"},
        {"a/../../b", " ab"},
        {"CON", " CON"},
        {"nul.txt", " nultxt"},
        {"trailing. . ", " trailing"},
        {"  two   blanks ", " two blanks"},
        {"zero\0byte"s, " zerobyte"},
        {"tab\tand\nline", " tabandline"},
        {std::string(300, 'x'), " xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {std::string(39, 'x') + " y", " xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {"Zo\xEB \x8Amid\x9F", " Zo\xEB \x8Amid\x9F"},
        {"\xD7\xF7\xA9\x80\xFF", " \xFF"},
        {"Ann-Marie_2", " Ann-Marie_2"},
        {"", ""},
    };
    for (const Row& row : rows) {
        const std::string name = historyFolderName(1, timeOf(21, 14), "Save", row.name);
        EXPECT_EQ(name, kFirst + std::string(row.taken)) << row.name;
        EXPECT_TRUE(isFileName(name));
        EXPECT_EQ(historyNumber(name), 1);
        EXPECT_EQ(historyTime(name), "2026-11-21 14.15.33");
    }
}

TEST(HistoryFolderNameTest, OnlySuchAFolderIsACommands) {
    EXPECT_EQ(historyNumber("000123 x"), 123);
    EXPECT_EQ(historyNumber("0000000123 x"), 123);
    EXPECT_EQ(historyNumber("1000000000 x"), 1000000000);
    EXPECT_EQ(historyNumber("999999999999999999 x"), 999999999999999999);
    for (const char* name : {"", "123 x", "00012 x", "000123", "000123x", "1000000000000000000 x",
                             "00000000000000000123 x", "99999999999999999999 x", "x000123 y",
                             " 000123 y", "-00123 y", "000000 x", "000123 x?", "000123 x:y"}) {
        EXPECT_EQ(historyNumber(name), 0) << name;
    }
    EXPECT_EQ(historyTime("000123 2026-11-21 14.15.33"), "2026-11-21 14.15.33");
    for (const char* name : {"", "000123", "000123 2026-11-21 14.15.3",
                             "000123 2026-11-21 14:15:33", "000123 my own folder with a name"}) {
        EXPECT_EQ(historyTime(name), "") << name;
    }
}

TEST_F(HistoryTest, ASaveKeepsTheOldBytesUnderTheirPathAndTellsOfThem) {
    folder.write(simName(1), "abc");
    {
        HistoryCommand save(history, "Save", "Mara Quill", {});
        EXPECT_TRUE(replaceKept(save, simPath(1), "", "Formal: a \xE2\x86\x92 b"));
    }
    EXPECT_EQ(folder.read(simName(1)), "");
    const std::string name = "000001 2026-11-21 14.15.33 Save Mara Quill";
    EXPECT_EQ(folders(), std::vector<std::string>{name});
    EXPECT_EQ(inHistory(name + "/UserData/Characters/user00001.iff"), "abc");
    const auto escaped = [](std::string text) {
        for (std::size_t i = 0; (i = text.find('\\', i)) != std::string::npos; i += 2) {
            text.insert(i, 1, '\\');
        }
        return text;
    };
    EXPECT_EQ(inHistory(name + "/about.json"),
              "{\"version\":1,\"program\":\"Marlowick 3.0.5\",\"command\":\"Save\","
              "\"name\":\"Mara Quill\",\n"
              "\"begun\":\"2026-11-21T13:15:33Z\",\n"
              "\"game\":\"" +
                  escaped(folder.path("game").text()) +
                  "\",\n"
                  "\"neighbourhoods\":\"" +
                  escaped(folder.path("saves").text()) +
                  "\",\n"
                  "\"files\":[\n"
                  "{\"path\":\"UserData\\\\Characters\\\\user00001.iff\","
                  "\"time\":\"2026-11-21T13:15:33Z\",\n"
                  " \"before\":{\"size\":3,\"sha256\":"
                  "\"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad\"},\n"
                  " \"after\":{\"size\":0,\"sha256\":"
                  "\"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855\"},\n"
                  " \"changes\":[\"Formal: a \xE2\x86\x92 b\"]}\n"
                  "],\n"
                  "\"ended\":\"2026-11-21T13:15:33Z\"}\n");
}

TEST_F(HistoryTest, ArchivesAndEnsemblesLieUnderTheirOwnPaths) {
    folder.write("game/gamedata/textures/My.far", "archive");
    folder.write("program/ENS/Sunday.ENS", "ensemble");
    HistoryCommand command(history, "Restore", "", {});
    EXPECT_EQ(command.keep(archivePath("My.far"), stateOf("x")).answer, KeepAnswer::Kept);
    EXPECT_EQ(command.keep(folder.path("program\\ENS\\Sunday.ENS"), std::nullopt).answer,
              KeepAnswer::Kept);
    const std::string name = "000001 2026-11-21 14.15.33 Restore/";
    EXPECT_EQ(inHistory(name + "gamedata/textures/My.far"), "archive");
    EXPECT_EQ(inHistory(name + "ENS/Sunday.ENS"), "ensemble");
}

// The new name, the record and the old bytes come one after the other, file by file, so that a kill
// anywhere finds a whole "about.json" whose every record has its bytes.
TEST_F(HistoryTest, ACommandGrowsFileByFileAndIsWholeAllTheTime) {
    HistoryCommand repair(history, "Fix fit to skinny", "", {});
    for (int i = 1; i <= 5; ++i) {
        folder.write(simName(i), "old " + std::to_string(i));
        EXPECT_TRUE(replaceKept(repair, simPath(i), "new"));
        const std::vector<HistoryEntry> entries = history.entries();
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_TRUE(entries[0].isReadable);
        EXPECT_TRUE(entries[0].about.isWhole);
        EXPECT_EQ(entries[0].about.ended, "");
        ASSERT_EQ(entries[0].about.records.size(), static_cast<std::size_t>(i));
        const HistoryRecord& last = entries[0].about.records.back();
        EXPECT_EQ(last.before, stateOf("old " + std::to_string(i)));
        EXPECT_EQ(last.after, stateOf("new"));
        EXPECT_EQ(stateOfFile(history.keptFile(entries[0], last)), last.before);
    }
    repair.end();
    EXPECT_EQ(history.entries()[0].about.ended, "2026-11-21T13:15:33Z");
    EXPECT_EQ(history.entries()[0].about.records.size(), 5U);
}

TEST_F(HistoryTest, TheNumberTellsTheOrderWhateverTheClockDoes) {
    folder.write(simName(1), "1");
    saveOver(simPath(1), "2");
    setClock([] { return timeOf(3, 1); });
    saveOver(simPath(1), "3");
    setClock([] { return timeOf(21, 14); });
    saveOver(simPath(1), "4");
    std::vector<std::string> told;
    for (const HistoryEntry& entry : history.entries()) {
        told.push_back(
            std::to_string(entry.number) + " " + entry.when + " " +
            folder.read("program/History/" + entry.folder + "/UserData/Characters/user00001.iff"));
    }
    EXPECT_EQ(told, (std::vector<std::string>{"3 2026-11-21 14.15.33 3", "2 2026-11-03 01.15.33 2",
                                              "1 2026-11-21 14.15.33 1"}));
}

TEST_F(HistoryTest, ANewCommandComesBehindTheHighestNumberThatIsThere) {
    folder.write("program/History/000041 mine/about.json", "{}");
    folder.write("program/History/000099/x", "no command's");
    folder.write("program/History/000100 a file", "no folder");
    folder.write(simName(1), "1");
    saveOver(simPath(1), "2");
    EXPECT_TRUE(folder.exists("program/History/000042 2026-11-21 14.15.33 Save/about.json"));
}

// By the number alone, however many digits it has.
TEST_F(HistoryTest, TheNumberGrowsBeyondItsDigits) {
    folder.write("program/History/999999 mine/about.json", "{}");
    folder.write("program/History/999999999 mine/about.json", "{}");
    folder.write(simName(1), "1");
    saveOver(simPath(1), "2");
    saveOver(simPath(1), "3");
    std::vector<std::string> told;
    for (const HistoryEntry& entry : history.entries()) {
        told.push_back(entry.folder);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"1000000001 2026-11-21 14.15.33 Save",
                                              "1000000000 2026-11-21 14.15.33 Save",
                                              "999999999 mine", "999999 mine"}));
    EXPECT_EQ(history.entries().at(0).when, "2026-11-21 14.15.33");
    history.setBounds({1, 0, 0});
    history.prune();
    EXPECT_EQ(folders(), std::vector<std::string>{"1000000001 2026-11-21 14.15.33 Save"});
}

// A person's own folders; whatever they are called, saves are kept.
TEST_F(HistoryTest, AbsurdNumbersAreNotInTheWay) {
    folder.write("program/History/99999999999999999999 x/about.json", "{}");
    folder.write(simName(1), "1");
    saveOver(simPath(1), "2");
    EXPECT_TRUE(folder.exists("program/History/000001 2026-11-21 14.15.33 Save/about.json"));
    folder.write("program/History/999999999999999999 mine/about.json", "{}");
    setClock([] { return timeOf(21, 15); });
    saveOver(simPath(1), "3");
    setClock([] { return timeOf(21, 16); });
    saveOver(simPath(1), "4");
    std::vector<std::string> told;
    for (const HistoryEntry& entry : history.entries()) {
        told.push_back(entry.folder);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"999999999999999999 mine",
                                              "999999999999999999 2026-11-21 16.15.33 Save",
                                              "999999999999999999 2026-11-21 15.15.33 Save",
                                              "000001 2026-11-21 14.15.33 Save"}));
}

TEST_F(HistoryTest, WhatDoesNotChangeIsNotKept) {
    folder.write(simName(1), "same");
    {
        HistoryCommand save(history, "Save", "", {});
        EXPECT_EQ(save.keep(simPath(1), stateOf("same")).answer, KeepAnswer::Unchanged);
        EXPECT_EQ(save.keep(simPath(2), std::nullopt).answer, KeepAnswer::Unchanged);
    }
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryTest, ALargeFileIsKeptInBlocksAndComparedWhereItsSizeIsTheSame) {
    std::string content(3 << 19, 'a');
    folder.write("game/gamedata/textures/large.far", content);
    {
        HistoryCommand save(history, "Save archive", "", {});
        EXPECT_EQ(save.keep(archivePath("large.far"), stateOf(content)).answer,
                  KeepAnswer::Unchanged);
    }
    EXPECT_FALSE(folder.exists("program/History"));
    content.back() = 'b';
    int blocks = 0;
    HistoryCommand save(history, "Save archive", "", {});
    EXPECT_EQ(save.keep(archivePath("large.far"), stateOf(content), {}, [&] { ++blocks; }).answer,
              KeepAnswer::Kept);
    EXPECT_EQ(blocks, 6);
    const HistoryEntry entry = history.entries().at(0);
    content.back() = 'a';
    EXPECT_EQ(entry.about.records.at(0).before, stateOf(content));
    EXPECT_TRUE(inHistory(entry.folder + "/gamedata/textures/large.far") == content);
}

TEST_F(HistoryTest, AFileThatIsMadeHasNothingBefore) {
    HistoryCommand save(history, "Save archive", "", {});
    EXPECT_EQ(save.keep(archivePath("new.far"), stateOf("new")).answer, KeepAnswer::Kept);
    const HistoryRecord record = history.entries().at(0).about.records.at(0);
    EXPECT_EQ(record.before, std::nullopt);
    EXPECT_EQ(record.after, stateOf("new"));
    EXPECT_FALSE(folder.exists("program/History/000001 2026-11-21 14.15.33 Save archive/gamedata"));
}

TEST_F(HistoryTest, OfAFileThatACommandReplacesTwiceTheFirstBytesStay) {
    folder.write(simName(1), "first");
    HistoryCommand save(history, "Save", "", {});
    EXPECT_TRUE(replaceKept(save, simPath(1), "second"));
    EXPECT_TRUE(replaceKept(save, simPath(1), "third"));
    EXPECT_EQ(inHistory(kFirst + "/UserData/Characters/user00001.iff"s), "first");
    EXPECT_EQ(history.entries().at(0).about.records.size(), 1U);
}

TEST_F(HistoryTest, AFileThatLiesElsewhereIsNotKept) {
    folder.write("game/UserData/Characters/user00001.iff", "a template of the game");
    folder.write("game/ExpansionPack/x.far", "an archive that is never saved");
    HistoryCommand save(history, "Save", "", {});
    EXPECT_EQ(
        save.keep(folder.path("game\\UserData\\Characters\\user00001.iff"), stateOf("x")).answer,
        KeepAnswer::NoPlace);
    EXPECT_EQ(save.keep(folder.path("game\\ExpansionPack\\x.far"), stateOf("x")).answer,
              KeepAnswer::NoPlace);
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryTest, AnArchiveAboveItsBoundIsNotKept) {
    folder.write("game/gamedata/textures/x.far", "12345678901");
    folder.write(simName(1), "12345678901");
    history.setBounds({10, 10, 2});
    EXPECT_TRUE(history.isAboveBound(archivePath("x.far")));
    EXPECT_FALSE(history.isAboveBound(simPath(1)));
    EXPECT_FALSE(history.isAboveBound(archivePath("none.far")));
    HistoryCommand save(history, "Save archive", "", {});
    EXPECT_EQ(save.keep(archivePath("x.far"), stateOf("x")).answer, KeepAnswer::AboveBound);
    EXPECT_EQ(save.keep(simPath(1), stateOf("x")).answer, KeepAnswer::Kept);
    history.setBounds({10, 11, 2});
    EXPECT_FALSE(history.isAboveBound(archivePath("x.far")));
    EXPECT_EQ(save.keep(archivePath("x.far"), stateOf("x")).answer, KeepAnswer::Kept);
}

TEST_F(HistoryTest, AFolderThatCannotBeWrittenIsAnAnswerAndNoFailure) {
    folder.write("program/History", "a file");
    folder.write(simName(1), "old");
    HistoryCommand save(history, "Save", "", {});
    const KeepResult result = save.keep(simPath(1), stateOf("new"));
    EXPECT_EQ(result.answer, KeepAnswer::CantWrite);
    EXPECT_EQ(result.failure.number(), 75);
    std::filesystem::remove(folder.program() / "History");
    EXPECT_EQ(save.keep(simPath(1), stateOf("new")).answer, KeepAnswer::Kept);
}

TEST_F(HistoryTest, AFileThatCannotBeReadIsAFailureOfTheCommand) {
    std::filesystem::create_directories(folder.root() / simName(1));
    HistoryCommand save(history, "Save", "", {});
    EXPECT_EQ(test::errorOf([&] { save.keep(simPath(1), stateOf("new")); }), 75);
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryTest, APersonIsAskedAndAYesToAFullDiskHoldsForTheWholeCommand) {
    folder.write("program/History", "a file");
    std::vector<KeepAnswer> asked;
    bool reply = false;
    HistoryCommand repair(history, "Repair", "", [&](const KeepResult& result) {
        asked.push_back(result.answer);
        return reply;
    });
    for (int i = 1; i <= 3; ++i) {
        folder.write(simName(i), "old");
    }
    EXPECT_FALSE(replaceKept(repair, simPath(1), "new"));
    EXPECT_EQ(folder.read(simName(1)), "old");
    reply = true;
    EXPECT_TRUE(replaceKept(repair, simPath(1), "new"));
    EXPECT_TRUE(replaceKept(repair, simPath(2), "new"));
    EXPECT_EQ(asked, (std::vector{KeepAnswer::CantWrite, KeepAnswer::CantWrite}));
    EXPECT_EQ(folder.read(simName(2)), "new");
    EXPECT_EQ(folder.read("program/History"), "a file");
}

TEST_F(HistoryTest, AYesToAFileWithoutAPlaceHoldsForThatFileAlone) {
    std::vector<KeepAnswer> asked;
    HistoryCommand save(history, "Save", "", [&](const KeepResult& result) {
        asked.push_back(result.answer);
        return true;
    });
    EXPECT_TRUE(save.keepOrAsk(folder.path("elsewhere.iff"), stateOf("x")));
    EXPECT_TRUE(save.keepOrAsk(folder.path("elsewhere.iff"), stateOf("x")));
    EXPECT_EQ(asked, (std::vector{KeepAnswer::NoPlace, KeepAnswer::NoPlace}));
    folder.write(simName(1), "old");
    EXPECT_TRUE(replaceKept(save, simPath(1), "new"));
    EXPECT_EQ(history.entries().size(), 1U);
}

// A step on a sim is never without a way back unless the person says so, once for the command.
TEST_F(HistoryTest, ASimWhoseNameCannotBeKeptIsAskedFor) {
    std::vector<KeepResult> asked;
    bool reply = false;
    HistoryCommand repair(history, "Repair", "", [&](const KeepResult& result) {
        asked.push_back(result);
        return reply;
    });
    const Path saves = folder.path("saves");
    EXPECT_FALSE(repair.keepOrAsk(saves + "\\UserData?\\Characters\\user1.iff", stateOf("x")));
    reply = true;
    EXPECT_TRUE(repair.keepOrAsk(saves + "\\UserData?\\Characters\\user1.iff", stateOf("x")));
    EXPECT_TRUE(repair.keepOrAsk(saves + "\\UserData?\\Characters\\user2.iff", stateOf("x")));
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(asked[0].answer, KeepAnswer::CantWrite);
    EXPECT_EQ(asked[0].failure.number(), 52);
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryTest, WithoutAnybodyToAskTheCommandEnds) {
    HistoryCommand save(history, "Save", "", {});
    EXPECT_FALSE(save.keepOrAsk(folder.path("elsewhere.iff"), stateOf("x")));
}

// Folders that a person made, texts that nobody wrote so: they are listed or passed over, and never
// in the way.
TEST_F(HistoryTest, WhateverLiesInHistoryIsSurvived) {
    folder.write("program/History/000001 good/about.json",
                 "{\"version\":1,\"command\":\"Save\",\"files\":[]}");
    folder.write("program/History/000002 broken/about.json", "not at all");
    folder.write("program/History/000003 no text/x", "x");
    folder.write("program/History/000004 future/about.json", "{\"version\":2}");
    folder.write("program/History/notes.txt", "a person's");
    folder.write("program/History/mine/about.json", "{\"version\":1}");
    std::filesystem::create_directories(folder.program() / "History/000005 folder/about.json");
    std::vector<std::string> told;
    for (const HistoryEntry& entry : history.entries()) {
        told.push_back(entry.folder + (entry.isReadable ? " is" : " isn't"));
    }
    EXPECT_EQ(told, (std::vector<std::string>{"000004 future isn't", "000002 broken isn't",
                                              "000001 good is"}));
}

TEST_F(HistoryTest, WithoutAnyCommandThereIsNothingToList) {
    EXPECT_TRUE(history.entries().empty());
    history.prune();
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryTest, AnotherGameThatIsOpenedHasItsOwnFiles) {
    folder.write("other/UserData/Characters/user00001.iff", "old");
    const Path file = folder.path("other\\UserData\\Characters\\user00001.iff");
    {
        HistoryCommand save(history, "Save", "", {});
        EXPECT_EQ(save.keep(file, stateOf("new")).answer, KeepAnswer::NoPlace);
    }
    HistoryPlaces places = history.places();
    places.neighbourhoods = folder.path("other");
    history.setPlaces(places);
    HistoryCommand save(history, "Save", "", {});
    EXPECT_EQ(save.keep(file, stateOf("new")).answer, KeepAnswer::Kept);
    EXPECT_EQ(history.entries().at(0).about.neighbourhoods, folder.path("other"));
}

}  // namespace
}  // namespace marlowick
