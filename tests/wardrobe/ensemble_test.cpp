#include "wardrobe/ensemble.h"

#include <gtest/gtest.h>

#include "foundation/folders.h"
#include "iff/iff_file.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/keeping.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using F = WardrobeFields;

// The table of the format, written down a second time.
const Field kTable[] = {
    &F::txtNormalBody,     &F::txtNormalSkin,      &F::txtSwimsuitBody,   &F::txtSwimsuitSkin,
    &F::txtFormalBody,     &F::txtFormalSkin,      &F::txtPajamasBody,    &F::txtPajamasSkin,
    &F::txtNudeBody,       &F::txtNudeSkin,        &F::txtHandFormalLeft, &F::txtHandFormalRight,
    &F::txtHandClosedLeft, &F::txtHandClosedRight, &F::txtHandOpenLeft,   &F::txtHandOpenRight,
    &F::txtHandPointLeft,  &F::txtHandPointRight,  &F::txtWinterBody,     &F::txtWinterSkin,
    &F::txtFashionBody,    &F::txtFashionSkin,
};

std::string lines(int count, const std::string& end = "\r\n") {
    std::string text;
    for (int i = 1; i <= count; ++i) {
        text += "line " + std::to_string(i) + end;
    }
    return text;
}

class EnsembleTest : public ::testing::Test {
  protected:
    bool save(const Path& path) {
        test::Keeping keeping;
        return saveEnsemble(path, fields, keeping.command);
    }

    // Loads a file into fields that read "old"; how many were filled, in the order of the table.
    int filled(const std::string& content, int expectedError = 0) {
        folder.write("program/ENS/x.ENS", content);
        fields = {};
        for (const Field field : kTable) {
            fields.*field = "old";
        }
        int number = 0;
        try {
            loadEnsemble(ensembleFolder().child("x.ENS"), fields);
        } catch (const RuntimeError& failure) {
            number = failure.number();
        }
        EXPECT_EQ(number, expectedError);
        streams().closeAll();
        int count = 0;
        for (const Field field : kTable) {
            if (fields.*field == "old") {
                break;
            }
            EXPECT_EQ(fields.*field, "line " + std::to_string(++count));
        }
        for (std::size_t i = static_cast<std::size_t>(count); i < std::size(kTable); ++i) {
            EXPECT_EQ(fields.*kTable[i], "old");
        }
        return count;
    }

    test::TestFolder folder;
    WardrobeFields fields;
};

TEST_F(EnsembleTest, EachLineHasItsField) {
    EXPECT_EQ(filled(lines(22)), 22);
    EXPECT_EQ(filled(lines(30)), 22);
}

TEST_F(EnsembleTest, FilesOfEarlierGenerationsLeaveTheLaterClothes) {
    EXPECT_EQ(filled(lines(18)), 18);
    EXPECT_EQ(filled(lines(20)), 20);
}

TEST_F(EnsembleTest, AFileThatEndsElsewhereFailsWhereItEnds) {
    EXPECT_EQ(filled(lines(17), 62), 17);
    EXPECT_EQ(filled(lines(19), 62), 19);
    EXPECT_EQ(filled(lines(21), 62), 21);
    EXPECT_EQ(filled("", 62), 0);
}

TEST_F(EnsembleTest, ATrailingEmptyLineIsTheNextField) {
    folder.write("program/ENS/x.ENS", lines(18) + "\r\n");
    fields.txtWinterBody = "old";
    fields.txtWinterSkin = "old";
    try {
        loadEnsemble(ensembleFolder().child("x.ENS"), fields);
        FAIL();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 62);
    }
    EXPECT_EQ(fields.txtWinterBody, "");
    EXPECT_EQ(fields.txtWinterSkin, "old");
}

TEST_F(EnsembleTest, ALineEndsInAnyOfThreeWaysAndTheLastMayLackItsEnd) {
    EXPECT_EQ(filled(lines(22, "\n")), 22);
    EXPECT_EQ(filled(lines(22, "\r")), 22);
    const std::string whole = lines(22);
    EXPECT_EQ(filled(whole.substr(0, whole.size() - 2)), 22);
    const std::string eighteen = lines(18, "\n");
    EXPECT_EQ(filled(eighteen.substr(0, eighteen.size() - 1)), 18);
}

// No name of the game holds a zero byte: in its string tables it is the end of a text.
TEST_F(EnsembleTest, ALineEndsAtItsFirstZeroByte) {
    using std::string_literals::operator""s;
    folder.write("program/ENS/x.ENS", "body\0more\0\r\n\0\r\n"s + lines(20));
    loadEnsemble(ensembleFolder().child("x.ENS"), fields);
    EXPECT_EQ(fields.txtNormalBody, "body");
    EXPECT_EQ(fields.txtNormalSkin, "");
    EXPECT_EQ(fields.txtSwimsuitBody, "line 1");
    EXPECT_EQ(fields.txtFashionSkin, "line 20");
}

TEST_F(EnsembleTest, AMissingFileAndAFolderFail) {
    for (const auto& [path, number] :
         {std::pair{ensembleFolder().child("none.ENS"), 53}, std::pair{ensembleFolder(), 75}}) {
        std::filesystem::create_directories(folder.program() / "ENS");
        try {
            loadEnsemble(path, fields);
            FAIL();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), number);
        }
    }
}

TEST_F(EnsembleTest, WritesAllLinesAsTheyStand) {
    folder.write("program/ENS/x.ENS", std::string(5000, 'z'));
    std::string expected;
    int number = 0;
    for (const Field field : kTable) {
        fields.*field = "Name \xE9 " + std::to_string(++number);
        expected += "Name \xE9 " + std::to_string(number) + "\r\n";
    }
    fields.txtFormalBody = "*** ADULT SIMS ONLY ***";
    fields.txtFormalSkin.clear();
    expected.replace(expected.find("Name \xE9 5\r\nName \xE9 6\r\n"), 20,
                     "*** ADULT SIMS ONLY ***\r\n\r\n");
    save(ensembleFolder().child("x.ENS"));
    EXPECT_EQ(folder.read("program/ENS/x.ENS"), expected);
    save(ensembleFolder().child("new.ENS"));
    EXPECT_EQ(folder.read("program/ENS/new.ENS"), expected);
}

TEST_F(EnsembleTest, ASaveThatStopsAnywhereLeavesTheOldFileOrTheNewOne) {
    std::string expected;
    for (int i = 0; i < 22; ++i) {
        expected += "\r\n";
    }
    int steps = 0;
    {
        folder.write("program/ENS/x.ENS", "old");
        test::FaultyFiles counting(0, test::FaultyFiles::Fault::Fail);
        save(ensembleFolder().child("x.ENS"));
        steps = counting.changes();
    }
    ASSERT_GT(steps, 2);
    for (int step = 1; step <= steps; ++step) {
        folder.write("program/ENS/x.ENS", "old");
        const test::FaultyFiles stopping(step, test::FaultyFiles::Fault::Stop);
        try {
            save(ensembleFolder().child("x.ENS"));
        } catch (const RuntimeError&) {
        }
        const std::string left = folder.read("program/ENS/x.ENS");
        EXPECT_TRUE(left == "old" || left == expected) << step;
    }
}

TEST_F(EnsembleTest, AReadOnlyEnsembleStays) {
    folder.write("program/ENS/x.ENS", "old");
    folder.makeReadOnly("program/ENS/x.ENS");
    EXPECT_THROW(save(ensembleFolder().child("x.ENS")), RuntimeError);
    EXPECT_EQ(folder.read("program/ENS/x.ENS"), "old");
}

TEST_F(EnsembleTest, WhatASaveReplacesIsKept) {
    const Path path = ensembleFolder().child("x.ENS");
    const History history(historyPlaces());
    std::filesystem::create_directories(folder.program() / "ENS");
    fields.txtFormalBody = "f100fafit_original";
    EXPECT_TRUE(save(path));
    const std::string first = folder.read("program/ENS/x.ENS");
    EXPECT_TRUE(save(path));
    fields.txtFormalBody = "f301fafit_rose";
    fields.txtHandOpenLeft = "huaolgt";
    EXPECT_TRUE(save(path));
    // The one in the middle changed nothing.
    const std::vector<HistoryEntry> entries = history.entries();
    ASSERT_EQ(entries.size(), 2U);
    const HistoryRecord& last = entries[0].about.records.at(0);
    EXPECT_EQ(readWholeFile(history.keptFile(entries[0], last)), first);
    EXPECT_EQ(last.after, stateOf(folder.read("program/ENS/x.ENS")));
    EXPECT_EQ(last.changes,
              "Formal: f100fafit_original \xE2\x86\x92 f301fafit_rose\n"
              "Left open hand: nothing \xE2\x86\x92 huaolgt");
    EXPECT_EQ(entries[1].about.records.at(0).before, std::nullopt);
}

TEST_F(EnsembleTest, WhatADeletionTakesIsKept) {
    const Path path = ensembleFolder().child("x.ENS");
    folder.write("program/ENS/x.ENS", "old");
    folder.write("program/History", "a file");
    {
        test::Keeping keeping(false);
        EXPECT_FALSE(deleteEnsemble(path, keeping.command));
        EXPECT_EQ(keeping.questions, 1);
        EXPECT_FALSE(saveEnsemble(path, fields, keeping.command));
    }
    EXPECT_EQ(folder.read("program/ENS/x.ENS"), "old");
    std::filesystem::remove(folder.program() / "History");
    test::Keeping keeping;
    EXPECT_TRUE(deleteEnsemble(path, keeping.command));
    EXPECT_FALSE(folder.exists("program/ENS/x.ENS"));
    const std::vector<HistoryEntry> entries = keeping.history.entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(readWholeFile(keeping.history.keptFile(entries[0], entries[0].about.records.at(0))),
              "old");
    EXPECT_EQ(entries[0].about.records[0].after, std::nullopt);
}

// Each of them keeps a number, and the sims have one of their own.
TEST_F(EnsembleTest, DamagedOnesNeverKeepASimFromBeingRead) {
    const test::ErrorRecorder recorder;
    folder.write("program/ENS/bad.ENS", lines(5));
    folder.write("game/user00001.iff", test::simFile(test::simRows({})));
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(test::errorOf([&] { loadEnsemble(ensembleFolder().child("bad.ENS"), fields); }),
                  62);
    }
    IffFile iff;
    EXPECT_TRUE(gsReadIFF(iff, folder.path("game\\user00001.iff")));
    EXPECT_TRUE(recorder.reports().empty());
}

}  // namespace
}  // namespace marlowick
