#include "browser/neighbourhood_tools.h"

#include <gtest/gtest.h>

#include "browser/neighbourhoods.h"
#include "browser/sim_files.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/runtime_error.h"
#include "system/streams.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::FaultyFiles;
using test::segment;
using test::simFile;
using test::simPlace;
using test::simRows;
using test::stringTable;
using test::unreadableFile;

using Rows = std::vector<std::string>;
using Tool = bool (*)(const SimWalk&, RepairWork&);

// A user file with nothing but the given names, each a name table of its own, and a wardrobe.
std::string fileWith(const Rows& names, const Rows& rows) {
    std::string file = test::fileHead(0);
    for (const std::string& name : names) {
        file += segment("CTSS", 2000, 16, "", stringTable({name}));
    }
    return file + segment("STR#", 200, 16, "", stringTable(rows));
}

class ToolsTest : public ::testing::Test {
  protected:
    void put(int number, const std::string& content) { folder.write(simPlace(number), content); }
    std::string sim(int number) const { return folder.read(simPlace(number)); }

    // A file that stays as it is: a repair that wants to write it fails.
    void putReadOnly(int number, const std::string& content) {
        put(number, content);
        folder.makeReadOnly(simPlace(number));
    }

    SimWalk walk() {
        sims = findSimFiles("UserData");
        return {"UserData", sims, iff, [this] { ++filesDone; }};
    }

    // What a tool raises; 0 for nothing.
    int raisedBy(Tool tool) {
        return test::errorOf([&] { repair(tool); });
    }

    int raisedByExport() {
        return test::errorOf([&] { exportSkinNames(walk()); });
    }

    // A whole repair; what it passed over is in passedOver then.
    bool repair(Tool tool) {
        HistoryCommand command(history, "Repair", "", [this](const KeepResult&) {
            ++questions;
            return goesOnWithout;
        });
        RepairWork work{command, [this](const Path& file) {
                            changed.push_back(file.fileName());
                            return savesOver;
                        }};
        const bool done = tool(walk(), work);
        passedOver = work.passedOver;
        return done;
    }

    test::TestFolder folder;
    List<std::string> sims;
    IffFile iff;
    int filesDone = 0;
    History history{historyPlaces()};
    bool goesOnWithout = false;
    bool savesOver = false;
    int questions = 0;
    std::vector<std::string> changed;
    Rows passedOver;
};

// The export.

class ExportTest : public ToolsTest {
  protected:
    std::string bodies() const { return folder.read("program/bodyskins.txt"); }
    std::string heads() const { return folder.read("program/headskins.txt"); }
};

TEST_F(ExportTest, WritesALineForEachSim) {
    put(1, fileWith({"Ann"}, {"adult", "b001fafit_01,BODY=b001fafitlgt_01;kept", "c1,HEAD=c1lgt"}));
    put(2, fileWith({"Bj\xF6rn"}, {"child", "no equals", ""}));
    folder.write("program/bodyskins.txt", std::string(500, 'x'));
    folder.write("program/headskins.txt", std::string(500, 'x'));
    exportSkinNames(walk());
    EXPECT_EQ(bodies(),
              "user00001.iff;Ann;b001fafitlgt_01;kept\r\n"
              "user00002.iff;Bj\xF6rn;no equals\r\n");
    EXPECT_EQ(heads(),
              "user00001.iff;Ann;c1lgt\r\n"
              "user00002.iff;Bj\xF6rn;\r\n");
    EXPECT_EQ(filesDone, 2);
}

TEST_F(ExportTest, TextsBeginBehindTheFirstEqualsSign) {
    put(1, fileWith({"A;B"}, {"", "a=b=c", "=d=e"}));
    exportSkinNames(walk());
    EXPECT_EQ(bodies(), "user00001.iff;A;B;b=c\r\n");
    EXPECT_EQ(heads(), "user00001.iff;A;B;d=e\r\n");
}

TEST_F(ExportTest, TheLastNameCountsAndANamelessSimHasTheNameOfTheOneBefore) {
    const Rows rows = {"adult", "x=body", "x=head"};
    put(1, fileWith({}, rows));
    put(2, fileWith({"First", "Last"}, rows));
    put(3, fileWith({}, rows));
    put(4, fileWith({""}, rows));
    exportSkinNames(walk());
    EXPECT_EQ(bodies(),
              "user00001.iff;;body\r\nuser00002.iff;Last;body\r\n"
              "user00003.iff;Last;body\r\nuser00004.iff;;body\r\n");
    EXPECT_EQ(heads(),
              "user00001.iff;;head\r\nuser00002.iff;Last;head\r\n"
              "user00003.iff;Last;head\r\nuser00004.iff;;head\r\n");
}

TEST_F(ExportTest, AFileThatCantBeReadIsPassedOverInSilence) {
    const test::ErrorRecorder recorder;
    put(1, fileWith({"Ann"}, {"", "x=1", "x=2"}));
    put(2, unreadableFile());
    put(3, fileWith({}, {"", "x=3", "x=4"}));
    exportSkinNames(walk());
    EXPECT_EQ(bodies(), "user00001.iff;Ann;1\r\nuser00003.iff;Ann;3\r\n");
    EXPECT_EQ(heads(), "user00001.iff;Ann;2\r\nuser00003.iff;Ann;4\r\n");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ExportTest, TooFewRowsEndItAndWhatWasWrittenStays) {
    put(1, fileWith({"Ann"}, {"", "x=1", "x=2"}));
    put(2, fileWith({"Bob"}, {"", "x=3"}));
    put(3, fileWith({"Cay"}, {"", "x=5", "x=6"}));
    EXPECT_EQ(raisedByExport(), 9);
    EXPECT_EQ(bodies(), "user00001.iff;Ann;1\r\nuser00002.iff;Bob;3\r\n");
    EXPECT_EQ(heads(), "user00001.iff;Ann;2\r\n");
    // Nothing stays open: the next export works.
    put(2, fileWith({"Bob"}, {"", "x=3", "x=4"}));
    EXPECT_EQ(raisedByExport(), 0);
    EXPECT_EQ(heads(), "user00001.iff;Ann;2\r\nuser00002.iff;Bob;4\r\nuser00003.iff;Cay;6\r\n");
}

TEST_F(ExportTest, AFileWithoutAWardrobeEndsItToo) {
    put(1, test::fileHead(0) + segment("CTSS", 2000, 16, "", stringTable({"Ann"})));
    EXPECT_EQ(raisedByExport(), 9);
    EXPECT_EQ(bodies(), "");
}

TEST_F(ExportTest, LeavesTheSimsAlone) {
    putReadOnly(1, simFile(simRows({})));
    exportSkinNames(walk());
    EXPECT_TRUE(sim(1) == simFile(simRows({})));
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(ExportTest, AListThatCantBeWrittenIsAnError) {
    put(1, simFile(simRows({})));
    folder.write("program/bodyskins.txt", "old");
    folder.makeReadOnly("program/bodyskins.txt");
    EXPECT_EQ(raisedByExport(), 75);
    EXPECT_EQ(bodies(), "old");
}

// Fit to skinny.

class FixTest : public ToolsTest {};

TEST_F(FixTest, TwoAdultsAndAChild) {
    Rows skinny = simRows({.bodyType = "skn"});
    skinny[30] = "f001fafit_own,BODY=f001fafitlgt_own";
    put(1, simFile(simRows({})));
    put(2, simFile(skinny));
    Rows child = simRows({.age = "child", .bodyType = "chd"});
    child[31] = "s001fafit_own,BODY=s001fafitlgt_own";
    putReadOnly(3, simFile(child));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_TRUE(sim(1) == simFile(simRows({})));
    skinny[30] = "f100faSKN_original,BODY=f100faSKNlgt_original";
    EXPECT_TRUE(sim(2) == simFile(skinny));
    EXPECT_TRUE(sim(3) == simFile(child));
    EXPECT_EQ(filesDone, 3);
    // The last file that was read is the child's.
    EXPECT_EQ(iff.Segments[3].Data, stringTable(child));
    // The last one that was written stays behind.
    EXPECT_TRUE(folder.read("program/usertemp.iff") == simFile(skinny));
}

TEST_F(FixTest, RewritesAFileInWhichNothingChanges) {
    putReadOnly(1, simFile(simRows({})));
    EXPECT_EQ(raisedBy(fixFitToSkinny), 75);
    EXPECT_TRUE(sim(1) == simFile(simRows({})));
    EXPECT_TRUE(folder.read("program/usertemp.iff") == simFile(simRows({})));
}

TEST_F(FixTest, EachRowHasAStemForEachGender) {
    struct Case {
        const char* gender;
        const char* type;
        Rows fixed;
    };
    // Only "female" is a woman.
    const Case cases[] = {
        {"female",
         "fat",
         {"f100faFAT_original,BODY=f100faFATdrk_original",
          "s100faFAT_original,BODY=s100faFATdrk_original",
          "l100faFAT_original,BODY=l100faFATdrk_original"}},
        {"male",
         "fIt",
         {"f100maFIT_original,BODY=f100maFITdrk_original",
          "s100maFIT_original,BODY=s100maFITdrk_original",
          "l100maFIT_original,BODY=l100maFITdrk_original"}},
        {"Female",
         "skn",
         {"f100maSKN_original,BODY=f100maSKNdrk_original",
          "s100maSKN_original,BODY=s100maSKNdrk_original",
          "l100maSKN_original,BODY=l100maSKNdrk_original"}},
    };
    for (const Case& c : cases) {
        Rows rows = simRows({.gender = c.gender, .tone = "drk", .bodyType = c.type});
        rows[30] = rows[31] = rows[32] = "x001xaodd_own,BODY=anything";
        put(1, simFile(rows));
        EXPECT_TRUE(repair(fixFitToSkinny));
        std::copy(c.fixed.begin(), c.fixed.end(), rows.begin() + 30);
        EXPECT_TRUE(sim(1) == simFile(rows)) << c.gender;
    }
}

TEST_F(FixTest, TheTypeIsComparedWithoutRegardToCase) {
    Rows rows = simRows({.bodyType = "Skn"});
    rows[30] = "f001fasKN_own,BODY=own";
    put(1, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(FixTest, ANameThatIsTooShortHasAShortType) {
    Rows rows = simRows({});
    rows[1] = "short,BODY=x";
    rows[30] = "six_aa,BODY=x";
    rows[31] = "seven_a,BODY=x";
    rows[32] = ",BODY=";
    put(1, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    rows[31] = "s100fa_original,BODY=s100falgt_original";
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(FixTest, TheToneIsTakenAsItStands) {
    Rows rows = simRows({.tone = "green"});
    rows[32] = "l001faskn_own,BODY=own";
    put(1, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    rows[32] = "l100faFIT_original,BODY=l100faFITgreen_original";
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(FixTest, ThirtyRowsArePassedOver) {
    Rows rows = simRows({.count = 30});
    rows[1] = "no comma here";
    putReadOnly(1, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_TRUE(sim(1) == simFile(rows));
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(FixTest, OnlyChildIsAChild) {
    Rows rows = simRows({.age = "Child", .gender = "male"});
    rows[30] = "f001mafat_own,BODY=own";
    put(1, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    rows[30] = "f100maFIT_original,BODY=f100maFITlgt_original";
    rows[31] = simRows({.age = "Child", .gender = "male"})[31];
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(FixTest, AnUnreadableFileIsPassedOverInSilence) {
    const test::ErrorRecorder recorder;
    Rows rows = simRows({});
    rows[30] = "f001faskn_own,BODY=own";
    put(1, unreadableFile());
    put(2, simFile(rows));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_TRUE(sim(1) == unreadableFile());
    rows[30] = "f100faFIT_original,BODY=f100faFITlgt_original";
    EXPECT_TRUE(sim(2) == simFile(rows));
    EXPECT_TRUE(recorder.reports().empty());
}

// What can't be repaired ends the walk; files done so far stay done.
TEST_F(FixTest, RowsThatAreMissingOrCantBeSplitEndTheWalk) {
    struct Case {
        int count;
        std::size_t row;  // the one that can't be split; 0 for none
        int error;
    };
    for (const Case& c : {Case{31, 0, 9}, Case{32, 0, 9}, Case{35, 2, 5}, Case{35, 31, 5},
                          Case{35, 32, 5}, Case{35, 33, 5}}) {
        Rows skinny = simRows({});
        skinny[31] = "s001faskn_own,BODY=own";
        put(1, simFile(skinny));
        Rows bad = simRows({.count = c.count});
        bad[30] = "f001faskn_own,BODY=own";
        if (c.row > 0) {
            bad[c.row - 1] = "";
        }
        put(2, simFile(bad));
        put(3, simFile(skinny));
        EXPECT_EQ(raisedBy(fixFitToSkinny), c.error) << c.count << " rows, row " << c.row;
        EXPECT_TRUE(sim(2) == simFile(bad)) << c.row;
        EXPECT_TRUE(sim(3) == simFile(skinny)) << c.row;
        skinny[31] = "s100faFIT_original,BODY=s100faFITlgt_original";
        EXPECT_TRUE(sim(1) == simFile(skinny)) << c.row;
    }
}

TEST_F(FixTest, AFileWithoutAWardrobeEndsTheWalk) {
    put(1, test::fileHead(0) + segment("OBJD", 1, 1, "user1", "x"));
    EXPECT_EQ(raisedBy(fixFitToSkinny), 9);
}

// The count of the table promises more rows than a counter can hold: it isn't read, it isn't
// written.
TEST_F(FixTest, ATableThatCantBeReadEndsTheWalkUntouched) {
    const test::ErrorRecorder recorder;
    std::string table = stringTable(simRows({}));
    table.replace(2, 2, test::little16(0x8000));
    const std::string file = test::fileHead(0) + segment("STR#", 200, 16, "", table);
    put(1, file);
    put(2, simFile(simRows({})));
    EXPECT_FALSE(repair(fixFitToSkinny));
    EXPECT_EQ(filesDone, 0);
    EXPECT_TRUE(sim(1) == file);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 6);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadSTRSegment");
}

TEST_F(FixTest, MakesNoBackupWhateverTheSettingSays) {
    writeSetting(setting::kBackupSavedFile, "1");
    put(1, simFile(simRows({})));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_FALSE(folder.exists("program/Backup"));
}

TEST_F(FixTest, TheTemporaryFileIsMadeAfresh) {
    folder.write("program/usertemp.iff", std::string(100000, 'x'));
    put(1, simFile(simRows({})));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_TRUE(folder.read("program/usertemp.iff") == simFile(simRows({})));
    EXPECT_TRUE(sim(1) == simFile(simRows({})));
}

TEST_F(FixTest, ATemporaryFileThatCantBeDeletedEndsTheWalk) {
    folder.write("program/usertemp.iff", "old");
    folder.makeReadOnly("program/usertemp.iff");
    put(1, simFile(simRows({})));
    EXPECT_EQ(raisedBy(fixFitToSkinny), 75);
    EXPECT_TRUE(sim(1) == simFile(simRows({})));
}

TEST_F(FixTest, EachWardrobeTableOfAFileTakesTheRows) {
    Rows rows = simRows({});
    const std::string second = segment("STR#", 200, 16, "second", stringTable({"other"}));
    rows[31] = "s001faskn_own,BODY=own";
    const std::string head = test::fileHead(0);
    put(1, head + segment("STR#", 200, 16, "", stringTable(rows, "tail")) + second);
    EXPECT_TRUE(repair(fixFitToSkinny));
    rows[31] = "s100faFIT_original,BODY=s100faFITlgt_original";
    const std::string table = stringTable(rows, "tail");
    EXPECT_TRUE(sim(1) == head + segment("STR#", 200, 16, "", table) +
                              segment("STR#", 200, 16, "second", table));
}

// Whatever step fails: every file is the old one or the new one, and none behind the failure is
// touched.
TEST_F(FixTest, AFailedRewriteIsTheLastOne) {
    Rows skinny = simRows({});
    skinny[30] = "f001faskn_own,BODY=own";
    Rows fixed = skinny;
    fixed[30] = "f100faFIT_original,BODY=f100faFITlgt_original";
    for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Stop}) {
        int fault_free = 0;
        for (int failAt = 1; fault_free == 0; ++failAt) {
            for (int number = 1; number <= 3; ++number) {
                put(number, simFile(skinny));
            }
            const test::ErrorRecorder recorder;
            bool ended = false;
            questions = 0;
            std::filesystem::remove_all(folder.program() / "History");
            {
                FaultyFiles faulty(failAt, fault);
                try {
                    ended = !repair(fixFitToSkinny);
                    // A failure was reported, or nothing could be kept and the person said no; one
                    // behind the last file harms nobody.
                    EXPECT_EQ(recorder.reports().size() + static_cast<unsigned>(questions),
                              ended ? 1U : 0U)
                        << failAt;
                } catch (const RuntimeError& failure) {
                    ended = true;
                    EXPECT_EQ(failure.number(), 57) << failAt;
                }
                fault_free = faulty.changes() < failAt ? failAt : 0;
            }
            EXPECT_TRUE(!ended || fault_free == 0) << failAt;
            int done = 0;
            while (done < 3 && sim(done + 1) == simFile(fixed)) {
                ++done;
            }
            for (int number = done + 1; number <= 3; ++number) {
                EXPECT_TRUE(sim(number) == simFile(skinny)) << failAt << " " << number;
            }
            EXPECT_EQ(done == 3, !ended) << failAt;
            streams().closeAll();
        }
        EXPECT_GT(fault_free, 9);
    }
}

TEST_F(FixTest, AReadOnlySimEndsTheWalkAndStays) {
    Rows skinny = simRows({});
    skinny[30] = "f001faskn_own,BODY=own";
    putReadOnly(1, simFile(skinny));
    put(2, simFile(skinny));
    EXPECT_EQ(raisedBy(fixFitToSkinny), 75);
    EXPECT_TRUE(sim(1) == simFile(skinny));
    EXPECT_TRUE(sim(2) == simFile(skinny));
}

// What the repairs prove and keep.

class RepairTest : public ToolsTest {
  protected:
    RepairTest() {
        skinny[30] = "f001faskn_own,BODY=own";
        fixed[30] = "f100faFIT_original,BODY=f100faFITlgt_original";
    }

    // Such a file is read well, and its rewrite holds the map of the sim before.
    std::string withoutItsMap() const {
        return test::fileHead(64) + segment("STR#", 200, 16, "", stringTable(skinny));
    }

    Rows skinny = simRows({});
    Rows fixed = simRows({});
};

TEST_F(RepairTest, AFileThatCannotBeProvenIsPassedOverAndTheOthersAreRepaired) {
    const test::ErrorRecorder recorder;
    put(1, withoutItsMap());
    put(2, simFile(skinny));
    put(3, withoutItsMap());
    put(4, simFile(skinny));
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_EQ(passedOver, (Rows{"user00001.iff", "user00003.iff"}));
    EXPECT_TRUE(sim(1) == withoutItsMap());
    EXPECT_TRUE(sim(2) == simFile(fixed));
    EXPECT_TRUE(sim(3) == withoutItsMap());
    EXPECT_TRUE(sim(4) == simFile(fixed));
    EXPECT_EQ(filesDone, 4);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(RepairTest, WhatARepairReplacesIsKeptInOneEntry) {
    put(1, simFile(skinny));
    put(2, simFile(fixed));
    put(3, simFile(skinny));
    EXPECT_TRUE(repair(fixFitToSkinny));
    const std::vector<HistoryEntry> entries = history.entries();
    ASSERT_EQ(entries.size(), 1U);
    const std::vector<HistoryRecord>& records = entries[0].about.records;
    // The one in the middle was rewritten as it was.
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].path, "UserData\\characters\\user00001.iff");
    EXPECT_EQ(records[1].path, "UserData\\characters\\user00003.iff");
    for (const HistoryRecord& record : records) {
        EXPECT_EQ(readWholeFile(history.keptFile(entries[0], record)), simFile(skinny));
        EXPECT_EQ(record.after, stateOf(simFile(fixed)));
        EXPECT_EQ(record.changes, "Formal: f001faskn_own \xE2\x86\x92 f100faFIT_original");
    }
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_EQ(history.entries().size(), 1U);
}

TEST_F(RepairTest, WithoutKeepingItGoesOnOnlyIfThePersonWantsTo) {
    folder.write("program/History", "a file");
    put(1, simFile(skinny));
    put(2, simFile(skinny));
    EXPECT_FALSE(repair(fixFitToSkinny));
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(sim(1) == simFile(skinny));
    goesOnWithout = true;
    EXPECT_TRUE(repair(fixFitToSkinny));
    EXPECT_EQ(questions, 2);
    EXPECT_TRUE(sim(2) == simFile(fixed));
}

// Right before the file is looked at again the game saves it.
class SavedMeanwhile : public FaultyFiles {
  public:
    SavedMeanwhile(const test::TestFolder& folder, std::string content)
        : FaultyFiles(0, Fault::Fail), folder_(folder), content_(std::move(content)) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (path.fileName() == "user00001.iff" && mode == OpenMode::Input && !isDone_) {
            isDone_ = true;
            folder_.write(simPlace(1), content_);
        }
        return FaultyFiles::open(path, mode);
    }

  private:
    const test::TestFolder& folder_;
    std::string content_;
    bool isDone_ = false;
};

TEST_F(RepairTest, AFileThatWasSavedMeanwhileIsAskedAboutAndKeptAsItIsThen) {
    Rows played = skinny;
    played[3] = "played";
    for (const bool yes : {false, true}) {
        savesOver = yes;
        changed.clear();
        put(1, simFile(skinny));
        put(2, simFile(skinny));
        {
            const SavedMeanwhile files(folder, simFile(played));
            EXPECT_TRUE(repair(fixFitToSkinny));
        }
        EXPECT_EQ(changed, Rows{"user00001.iff"});
        EXPECT_TRUE(sim(1) == (yes ? simFile(fixed) : simFile(played)));
        EXPECT_TRUE(sim(2) == simFile(fixed));
    }
    const HistoryEntry newest = history.entries().at(0);
    EXPECT_EQ(readWholeFile(history.keptFile(newest, newest.about.records.at(0))), simFile(played));
}

// Pink hands.

class PinkHandsTest : public ToolsTest {
  protected:
    static Rows pink(const std::string& gender) {
        Rows rows = simRows({.gender = gender});
        rows[28] = "HmLO,HAND=guao_pinkg";
        rows[29] = "HmRO,HAND=guao_pinkg";
        return rows;
    }
};

TEST_F(PinkHandsTest, AManLosesThemAndHisFileGrowsShorter) {
    put(1, simFile(pink("male")));
    EXPECT_TRUE(repair(removePinkHands));
    Rows rows = pink("male");
    rows[28] = rows[29] = "";
    // The builder writes its map with the offsets of the shorter file.
    EXPECT_TRUE(sim(1) == simFile(rows));
    EXPECT_EQ(sim(1).size() + 40, simFile(pink("male")).size());
    EXPECT_TRUE(folder.read("program/usertemp.iff") == sim(1));
    EXPECT_FALSE(folder.exists("program/Backup"));
}

TEST_F(PinkHandsTest, AWomanGetsTheGamesOwn) {
    put(1, simFile(pink("female")));
    EXPECT_TRUE(repair(removePinkHands));
    Rows rows = pink("female");
    rows[28] = "HfLO,HAND=gfao_bride";
    rows[29] = "HfRO,HAND=gfao_bride";
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(PinkHandsTest, OnlyTheLeftHandDecides) {
    Rows left = pink("neither");
    left[28] = "guao_pinkg";
    left[29] = "HmRO,HAND=own";
    put(1, simFile(left));
    Rows right = pink("male");
    right[28] = "HmLO,HAND=own";
    putReadOnly(2, simFile(right));
    EXPECT_TRUE(repair(removePinkHands));
    left[28] = left[29] = "";
    EXPECT_TRUE(sim(1) == simFile(left));
    EXPECT_TRUE(sim(2) == simFile(right));
}

TEST_F(PinkHandsTest, TheNameMustBeTheSameWholeAndInCase) {
    int number = 0;
    for (const char* hand : {"HmLO,HAND=Guao_pinkg", "HmLO,HAND=guao_pinkg2", "HmLO,HAND=guao_pink",
                             "HmLO,HAND==guao_pinkg", "guao_pinkg=", ""}) {
        Rows rows = pink("male");
        rows[28] = hand;
        putReadOnly(++number, simFile(rows));
    }
    EXPECT_TRUE(repair(removePinkHands));
    EXPECT_EQ(filesDone, 6);
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(PinkHandsTest, AChildsFileIsNotTouched) {
    Rows rows = pink("male");
    rows[0] = "child";
    putReadOnly(1, simFile(rows));
    putReadOnly(2, simFile({"child"}));
    EXPECT_TRUE(repair(removePinkHands));
    EXPECT_TRUE(sim(1) == simFile(rows));
}

TEST_F(PinkHandsTest, AnUnreadableFileIsPassedOverInSilence) {
    const test::ErrorRecorder recorder;
    put(1, unreadableFile());
    put(2, simFile(pink("male")));
    EXPECT_TRUE(repair(removePinkHands));
    EXPECT_TRUE(sim(1) == unreadableFile());
    EXPECT_EQ(test::rowsOfFile(sim(2))[28], "");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(PinkHandsTest, ThirtyRowsAreEnoughAndFewerEndTheWalk) {
    Rows thirty = pink("male");
    thirty.resize(30);
    put(1, simFile(thirty));
    Rows fewer = thirty;
    fewer.resize(29);
    put(2, simFile(fewer));
    put(3, simFile(thirty));
    EXPECT_EQ(raisedBy(removePinkHands), 9);
    EXPECT_TRUE(sim(2) == simFile(fewer));
    EXPECT_TRUE(sim(3) == simFile(thirty));
    thirty[28] = thirty[29] = "";
    EXPECT_TRUE(sim(1) == simFile(thirty));
}

TEST_F(PinkHandsTest, AReadOnlySimEndsTheWalkAndStays) {
    putReadOnly(1, simFile(pink("male")));
    put(2, simFile(pink("male")));
    EXPECT_EQ(raisedBy(removePinkHands), 75);
    EXPECT_TRUE(sim(1) == simFile(pink("male")));
    EXPECT_TRUE(sim(2) == simFile(pink("male")));
}

TEST_F(PinkHandsTest, AFailedRewriteIsTheLastOne) {
    const test::ErrorRecorder recorder;
    put(1, simFile(pink("male")));
    put(2, simFile(pink("male")));
    {
        const FaultyFiles faulty(1, FaultyFiles::Fault::Fail);  // the writing of the temporary file
        EXPECT_FALSE(repair(removePinkHands));
    }
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsWriteIFF");
    EXPECT_TRUE(sim(1) == simFile(pink("male")));
    EXPECT_TRUE(sim(2) == simFile(pink("male")));
}

// A name that was listed with "?" has no file.
TEST_F(ToolsTest, ANameWithoutAPathIsPassedOver) {
    put(1, fileWith({"Ann"}, {"", "x=1", "x=2"}));
    sims.append("user?.iff");
    sims.append("user00001.iff");
    exportSkinNames({"UserData", sims, iff, [] {}});
    EXPECT_EQ(folder.read("program/bodyskins.txt"), "user00001.iff;Ann;1\r\n");
}

}  // namespace
}  // namespace marlowick
