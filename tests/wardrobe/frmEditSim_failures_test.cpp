// What is left of a sim when loading or saving it fails and the report is closed by its frame.
#include <gtest/gtest.h>

#include <cstdlib>

#include "system/runtime_error.h"
#include "wardrobe/edit_sim_test.h"

namespace marlowick {
namespace {

using test::click;
using test::EditSimTest;
using test::FaultyFiles;
using test::inWords;
using test::kFile;
using test::Report;
using test::simRows;
using test::textOf;

class EditSimFailuresTest : public EditSimTest {
  protected:
    // Opens the window, presses Save, closes it: the window tells the first failure of the load as
    // the reason, asks nothing, and nothing changes.
    std::vector<std::string> reportsOfALoadThatNeverSaves() {
        const std::string before = folder.read(kFile);
        const std::size_t messages = script.messages().size();
        std::vector<std::string> reports;
        {
            const test::ErrorRecorder recorder;
            open([&](QWidget& window) {
                for (const Report& report : recorder.reports()) {
                    reports.push_back(inWords(report));
                }
                script.answer();
                click(window, "cmdSave");
                EXPECT_TRUE(script.isDone());
                EXPECT_TRUE(window.isVisible());
                click(window, "cmdCancel");
            });
        }
        if (script.messages().size() != messages + 1 || reports.empty()) {
            ADD_FAILURE() << "no failure, or no message";
            return reports;
        }
        const test::SeenMessage& told = script.messages().back();
        EXPECT_EQ(told.title, "File Not Saved");
        EXPECT_EQ(told.icon, QMessageBox::Warning);
        EXPECT_FALSE(told.yesNo);
        const int number = std::atoi(reports.front().c_str());
        EXPECT_EQ(told.text.toStdString(),
                  "The file user00001.iff can not be saved.\nIt could not be loaded:\nError " +
                      std::to_string(number) + " - " + errorDescription(number));
        EXPECT_TRUE(folder.read(kFile) == before);
        EXPECT_FALSE(folder.exists("program/usertemp.iff"));
        return reports;
    }
};

using Reports = std::vector<std::string>;

TEST_F(EditSimFailuresTest, EachStageOfALoadIsToldApart) {
    struct Case {
        int count;
        const char* age;
        std::size_t row;
        const char* text;
        int checkpoint;
    };
    for (const Case& c :
         {Case{35, "adult", 2, "no comma;a,b", 1000}, Case{30, "adult", 17, "no comma", 1100},
          Case{33, "adult", 32, "", 1100}, Case{33, "adult", 31, "ADDED", 1200},
          Case{33, "adult", 33, "", 1300}, Case{34, "child", 34, "", 1350},
          Case{35, "adult", 35, "ADDED", 1400}, Case{30, "adult", 16, "", 1450}}) {
        std::vector<std::string> rows = simRows({.count = c.count, .age = c.age});
        rows[c.row - 1] = c.text;
        makeSimOf(rows);
        EXPECT_EQ(reportsOfALoadThatNeverSaves(),
                  Reports{"5 frmEditSim msDisplayUserData " + std::to_string(c.checkpoint)})
            << "row " << c.row;
    }
}

TEST_F(EditSimFailuresTest, AnAdultsTableOfThirtyOneOrTwoRowsEndsTooEarly) {
    makeSim({.count = 31});
    EXPECT_EQ(reportsOfALoadThatNeverSaves(), Reports{"9 frmEditSim msDisplayUserData 1100"});
    makeSim({.count = 32});
    EXPECT_EQ(reportsOfALoadThatNeverSaves(), Reports{"9 frmEditSim msDisplayUserData 1300"});
}

TEST_F(EditSimFailuresTest, AFileWithoutAWardrobeNeverSaves) {
    folder.write(kFile, test::fileHead(0) + test::segment("OBJD", 1, 1, "user1", "x"));
    EXPECT_EQ(reportsOfALoadThatNeverSaves(), Reports{"9 frmEditSim msDisplayUserData 1000"});
}

TEST_F(EditSimFailuresTest, ARequestWithoutAToneIsReportedAtItsStage) {
    makeSim({.count = 14});
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        const std::size_t ofTheLoad = recorder.reports().size();
        click(window, "cmdChangeNormal");
        ASSERT_EQ(recorder.reports().size(), ofTheLoad + 1);
        EXPECT_EQ(inWords(recorder.reports().back()), "9 frmEditSim cmdChangeNormal_Click 2000");
        click(window, "cmdCancel");
    });
}

// The wardrobe was read and shows, but a part of the file behind it wasn't.
TEST_F(EditSimFailuresTest, AFileThatCouldNotBeReadToItsEndNeverSaves) {
    const std::string broken = "AAAA" + test::big32(75) + std::string(68, '\0');
    folder.write(kFile, test::fileHead(0) +
                            test::segment("STR#", 200, 16, "", test::stringTable(simRows({}))) +
                            broken);
    EXPECT_EQ(reportsOfALoadThatNeverSaves(), Reports{"5 modIFFsupport gsReadIFF 2000"});
    // The stream stays taken, and the next sim can't be read either.
    makeSim();
    EXPECT_EQ(reportsOfALoadThatNeverSaves().front(), "55 modIFFsupport gsReadIFF 1000");
}

TEST_F(EditSimFailuresTest, ASimWhosePicturesCouldNotBeUnpackedNeverSaves) {
    makeSim();
    const FaultyFiles faulty(1, FaultyFiles::Fault::Fail);
    const Reports reports = reportsOfALoadThatNeverSaves();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].starts_with("57 modIFFsupport gsDumpBMPs ")) << reports[0];
}

TEST_F(EditSimFailuresTest, AFailedSaveCanBeTriedAgain) {
    makeSim();
    open([this](QWidget& window) {
        {
            const test::ErrorRecorder recorder;
            const FaultyFiles faulty(1, FaultyFiles::Fault::Fail);
            script.answer(QMessageBox::Yes);
            click(window, "cmdSave");
            ASSERT_EQ(recorder.reports().size(), 1U);
            EXPECT_EQ(recorder.reports()[0].procedure, "gsWriteIFF");
        }
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(folder.read(kFile) == content);
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(test::rowsOfFile(folder.read(kFile))[17], "HfLO,HAND=handLO");
}

TEST_F(EditSimFailuresTest, ASimThatIsGoneMeanwhileDoesNotComeBack) {
    makeSim();
    const test::ErrorRecorder recorder;
    open([this](QWidget& window) {
        std::filesystem::remove(folder.root() / kFile);
        script.answer(QMessageBox::Yes);
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(inWords(recorder.reports()[0]), "53 frmEditSim cmdSave_Click 4000");
    EXPECT_FALSE(folder.exists(kFile));
    EXPECT_TRUE(folder.exists("program/usertemp.iff"));
}

TEST_F(EditSimFailuresTest, WithoutItsBackupASaveEnds) {
    makeSim();
    backupWanted = true;
    folder.write("program/Backup", "a file where the folder should be");
    const test::ErrorRecorder recorder;
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(inWords(recorder.reports()[0]), "75 frmEditSim msMakeUserBackup 1000");
    EXPECT_TRUE(folder.read(kFile) == content);
    EXPECT_EQ(script.messages().size(), 1U);
}

// Whenever the machine stops in the middle of a save, the sim's file is the old one or the new
// one, whole.
TEST_F(EditSimFailuresTest, AMachineThatStopsLeavesTheOldFileOrTheNewOne) {
    makeSim();
    open([this](QWidget& window) { saveAndAgree(window); });
    const std::string saved = folder.read(kFile);
    ASSERT_FALSE(saved == content);
    stopEverySave(saved, 5);
}

}  // namespace
}  // namespace marlowick
