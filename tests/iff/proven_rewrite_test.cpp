#include "iff/proven_rewrite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "foundation/error_trap.h"
#include "foundation/history_restore.h"
#include "iff/safe_rewrite.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/quick_disk.h"
#include "support/sweep_step.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/shown_path.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::errorOf;
using test::FaultyFiles;

class ProvenRewriteTest : private test::QuickDisk, public ::testing::Test {
  protected:
    ProvenRewriteTest() { folder.write(kName, old); }

    // A whole save of a sim: read, change, write, prove, keep, replace. False if it ended early.
    bool save(const GoOnWithout& goOnWithout = {}) {
        HistoryCommand command(history, "Save", "Mara Quill", goOnWithout);
        gsResetIFF(record);
        if (!gfstrQuickReadIFF(record, file).empty()) {
            return false;
        }
        const IffFile loaded = record;
        StrSegment rows;
        if (!readWardrobeTable(record, rows)) {
            return false;
        }
        rows.Entries[31].Text = "f301fafit_rose,BODY=f301fafitlgt_rose";
        return writeWardrobeTable(record, rows) && writeUserTemp(record, SavedParts::All) &&
               replaceUserFileProven({file, loaded, {rows}, command, "Formal: a"});
    }

    std::vector<std::string> rowsNow() const { return test::rowsOfFile(folder.read(kName)); }
    std::size_t filesBeside() const {
        return searchFiles(folder.path("game\\UserData\\Characters"), "*").size();
    }

    static constexpr const char* kName = "game/UserData/Characters/user00001.iff";

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    const std::string old = test::simFile(test::simRows({}));
    const Path file = folder.path("game\\UserData\\Characters\\user00001.iff");
    History history{historyPlaces()};
    IffFile record;
};

TEST_F(ProvenRewriteTest, ASaveIsProvenAndKept) {
    CheckpointNumber = 4000;
    ASSERT_TRUE(save());
    EXPECT_EQ(rowsNow()[30], "f301fafit_rose,BODY=f301fafitlgt_rose");
    const std::vector<HistoryEntry> entries = history.entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].about.records.at(0).before, stateOf(old));
    EXPECT_EQ(entries[0].about.records.at(0).after, stateOf(folder.read(kName)));
    EXPECT_EQ(entries[0].about.records.at(0).changes, "Formal: a");
    EXPECT_EQ(readWholeFile(history.keptFile(entries[0], entries[0].about.records[0])), old);
    EXPECT_EQ(filesBeside(), 1U);
}

TEST_F(ProvenRewriteTest, AFileThatIsNotAsItWasMeantTakesNoName) {
    gsResetIFF(record);
    ASSERT_EQ(gfstrQuickReadIFF(record, file), "");
    const IffFile loaded = record;
    StrSegment rows;
    ASSERT_TRUE(readWardrobeTable(record, rows));
    record.Segments[1].Data += "x";
    ASSERT_TRUE(writeUserTemp(record, SavedParts::All));
    CheckpointNumber = 4000;
    try {
        HistoryCommand command(history, "Save", "", {});
        replaceUserFileProven({file, loaded, {rows}, command});
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 321);
        EXPECT_EQ(failure.description().substr(0, 19 + 2 + file.text().size() + 2),
                  "Invalid file format\r\n" + shownPath(file) + "\r\n");
        EXPECT_GT(failure.description().size(), 19 + 2 + file.text().size() + 2);
    }
    EXPECT_EQ(CheckpointNumber, 4000);
    EXPECT_TRUE(folder.read(kName) == old);
    EXPECT_EQ(filesBeside(), 1U);
    EXPECT_TRUE(history.entries().empty());
}

TEST_F(ProvenRewriteTest, ASimThatWasDeletedDoesNotComeBackAndAReadOnlyOneStays) {
    gsResetIFF(record);
    ASSERT_EQ(gfstrQuickReadIFF(record, file), "");
    const IffFile loaded = record;
    StrSegment rows;
    ASSERT_TRUE(readWardrobeTable(record, rows));
    ASSERT_TRUE(writeUserTemp(record, SavedParts::All));
    HistoryCommand command(history, "Save", "", {});
    folder.makeReadOnly(kName);
    EXPECT_EQ(errorOf([&] { replaceUserFileProven({file, loaded, {rows}, command}); }), 75);
    files().clearAttributes(file);
    std::filesystem::remove(folder.root() / kName);
    EXPECT_EQ(errorOf([&] { replaceUserFileProven({file, loaded, {rows}, command}); }), 53);
    EXPECT_FALSE(folder.exists(kName));
    EXPECT_TRUE(history.entries().empty());
}

TEST_F(ProvenRewriteTest, ATemplateOfALegacyGameStaysAndNothingIsKeptOfIt) {
    folder.write("game/Sims.exe", "MZ");
    folder.write("game/eadpsdk.json", "{}");
    EXPECT_EQ(errorOf([&] { save(); }), 75);
    EXPECT_EQ(folder.read(kName), old);
    EXPECT_TRUE(history.entries().empty());
}

TEST_F(ProvenRewriteTest, WhoDoesNotGoOnWithoutKeepingHasTheOldFile) {
    folder.write("program/History", "a file");
    EXPECT_FALSE(save([](const KeepResult&) { return false; }));
    EXPECT_TRUE(folder.read(kName) == old);
    EXPECT_TRUE(save([](const KeepResult&) { return true; }));
    EXPECT_EQ(rowsNow()[30], "f301fafit_rose,BODY=f301fafitlgt_rose");
}

TEST_F(ProvenRewriteTest, TellsWhetherTheDiskStillHoldsWhatWasLoaded) {
    std::string bytes = "of another file";
    gsResetIFF(record);
    ASSERT_EQ(gfstrQuickReadIFF(record, file, &bytes), "");
    EXPECT_TRUE(bytes == old);
    EXPECT_FALSE(isChangedSince(file, bytes));
    folder.write(kName, old + "x");
    EXPECT_TRUE(isChangedSince(file, bytes));
    ASSERT_TRUE(gsReadIFF(record, file, &bytes));
    EXPECT_FALSE(isChangedSince(file, bytes));
    // The replacement tells of these itself.
    std::filesystem::remove(folder.root() / kName);
    EXPECT_FALSE(isChangedSince(file, bytes));
    EXPECT_FALSE(isChangedSince(folder.path("none\\x"), bytes));
}

// Each operation of a whole save fails, with each error, and the machine stops at each.
TEST_F(ProvenRewriteTest, NothingIsLostWhereverASaveFails) {
    struct Case {
        FaultyFiles::Fault fault;
        int number;
    };
    constexpr Case kCases[] = {
        {FaultyFiles::Fault::Fail, 53}, {FaultyFiles::Fault::Fail, 57},
        {FaultyFiles::Fault::Fail, 61}, {FaultyFiles::Fault::Fail, 70},
        {FaultyFiles::Fault::Fail, 75}, {FaultyFiles::Fault::Stop, 57},
    };
    int points = 0;
    for (const Case& row : kCases) {
        for (int k = 1;; k += test::kSweepStep, ++points) {
            SCOPED_TRACE("operation " + std::to_string(k) + " fails with " +
                         std::to_string(row.number));
            std::filesystem::remove_all(folder.program() / "History");
            folder.write(kName, old);
            streams().closeAll();
            history = History(historyPlaces());
            bool isThrough = false;
            bool isSaved = false;
            {
                const FaultyFiles faulty(k, row.fault, row.number, FaultyFiles::Counted::All);
                ignoringErrors([&] { isSaved = save(); });
                isThrough = faulty.changes() < k;
            }
            const std::string content = folder.read(kName);
            const bool isOld = content == old;
            EXPECT_TRUE(isOld ||
                        (!history.entries().empty() &&
                         history.entries()[0].about.records.at(0).after == stateOf(content)));
            EXPECT_TRUE(!isSaved || !isOld);
            // What a second run clears: a machine that stopped has no handles any more.
            streams().closeAll();
            EXPECT_TRUE(save());
            EXPECT_EQ(rowsNow()[30], "f301fafit_rose,BODY=f301fafitlgt_rose");
            EXPECT_EQ(filesBeside(), 1U);
            // The step can be taken back.
            const std::vector<HistoryEntry> all = history.entries();
            const auto first = std::find_if(
                all.rbegin(), all.rend(),
                [](const HistoryEntry& entry) { return !entry.about.records.empty(); });
            ASSERT_NE(first, all.rend());
            const auto plan = restorePlan(history, *first, all, {}, false);
            HistoryCommand command(history, "Restore", "", {});
            EXPECT_TRUE(restoreFile(plan.at(0), {command}));
            EXPECT_TRUE(folder.read(kName) == old);
            ASSERT_FALSE(HasFailure());
            if (isThrough) {
                break;
            }
        }
    }
    std::cout << "[  POINTS  ] " << points << '\n';
    EXPECT_GT(points, 150 / test::kSweepStep);
}

}  // namespace
}  // namespace marlowick
