// The commands of the menu Tools, as a person uses them.
#include <gtest/gtest.h>

#include <QTimer>

#include "browser/main_window_test.h"
#include "foundation/error_trap.h"
#include "foundation/history.h"
#include "start/startup.h"
#include "support/faulty_files.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::find;
using test::simFile;
using test::simPlace;
using test::simRows;
using test::textOf;

const char* const kFixQuestion =
    "This function will fix the fit to skinny sim problem that was introduced with Hot Date. Any "
    "sim in the selected neighborhood whose swimsuit, formal or pajamas does not match their "
    "normal outfit body type (Fit, Fat or Skn) will have the outfit replaced with the default "
    "outfit of the correct body type.\n\nDo you wish to proceed?";
const char* const kPinkQuestion =
    "This function will remove the Pink Gorilla formal hands from the sims in the selected "
    "neighborhood. This bug affects both House Party and Hot Date. The sims that are afflicted "
    "will have their formal hands restored to the proper default for their gender.\n\nDo you wish "
    "to proceed?";

class MainToolsTest : public test::MainWindowTest {
  protected:
    MainToolsTest() { test::installGame(folder); }

    // A woman in a swimsuit of another body type, with pink hands.
    static std::vector<std::string> damagedRows() {
        std::vector<std::string> rows = simRows({});
        rows[28] = "HfLO,HAND=guao_pinkg";
        rows[31] = "s001faskn_own,BODY=own";
        return rows;
    }

    void makeDamaged(int count) {
        for (int number = 1; number <= count; ++number) {
            folder.write(simPlace(number), simFile(damagedRows()));
        }
    }

    // How many of the sims' rows read so.
    int simsWith(std::size_t row, const std::string& text, int count) {
        int found = 0;
        for (int number = 1; number <= count; ++number) {
            found += test::rowsOfFile(folder.read(simPlace(number)))[row - 1] == text ? 1 : 0;
        }
        return found;
    }

    std::string reported() const {
        return std::to_string(glngErrorNumber) + " " + gstrErrorModule + " " + gstrErrorProc;
    }
};

TEST_F(MainToolsTest, TheRepairsAskFirst) {
    makeDamaged(1);
    frmMain& window = showFirst();
    script.answer(QMessageBox::No);
    script.answer(QMessageBox::No);
    chooseCommand(window, "smenuFix");
    chooseCommand(window, "smenuPinkHands");
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].text, kFixQuestion);
    EXPECT_EQ(script.messages()[1].text, kPinkQuestion);
    for (const test::SeenMessage& question : script.messages()) {
        EXPECT_EQ(question.title, "Confirm Action");
        EXPECT_EQ(question.icon, QMessageBox::Question);
        EXPECT_TRUE(question.yesNo);
    }
    EXPECT_TRUE(folder.read(simPlace(1)) == simFile(damagedRows()));
}

TEST_F(MainToolsTest, FilesThatCannotBeProvenAreNamedAtTheEnd) {
    makeDamaged(5);
    std::string withoutMap = simFile(damagedRows());
    withoutMap.resize(withoutMap.find("rsmp"));
    folder.write(simPlace(2), withoutMap);
    folder.write(simPlace(4), withoutMap);
    frmMain& window = showFirst();
    for (const char* entry : {"smenuFix", "smenuPinkHands"}) {
        const std::size_t before = script.messages().size();
        script.answer(QMessageBox::Yes);
        script.answer();
        script.answer();
        chooseCommand(window, entry);
        ASSERT_EQ(script.messages().size(), before + 3);
        const test::SeenMessage& told = script.messages()[before + 1];
        EXPECT_EQ(told.title, "Files Passed Over");
        EXPECT_EQ(told.icon, QMessageBox::Warning);
        EXPECT_EQ(told.text,
                  "These files were left as they were: what was written of them was not what was "
                  "meant.\nuser00002.iff\nuser00004.iff");
        EXPECT_EQ(script.messages().back().text, "Operation Complete");
    }
    EXPECT_TRUE(folder.read(simPlace(2)) == withoutMap);
    EXPECT_TRUE(folder.read(simPlace(4)) == withoutMap);
    EXPECT_EQ(test::rowsOfFile(folder.read(simPlace(5)))[28], "HfLO,HAND=gfao_bride");
    const std::vector<HistoryEntry> entries = History(historyPlaces()).entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].about.command, "Remove pink hands");
    EXPECT_EQ(entries[1].about.command, "Fix fit to skinny");
    EXPECT_EQ(entries[1].about.records.size(), 3U);
}

TEST_F(MainToolsTest, ARepairThatCannotBeKeptAsksOnceAndEnterLeavesEverySimAlone) {
    makeDamaged(3);
    folder.write("program/History", "a file");
    frmMain& window = showFirst();
    script.answer(QMessageBox::Yes);
    script.whenShown(QString(), [](QWidget& box) {
        EXPECT_FALSE(pointerIsBusy());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    chooseCommand(window, "smenuFix");
    EXPECT_EQ(script.messages().size(), 2U);
    EXPECT_FALSE(pointerIsBusy());
    EXPECT_EQ(simsWith(32, "s001faskn_own,BODY=own", 3), 3);
    script.answer(QMessageBox::Yes);
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuFix");
    EXPECT_EQ(simsWith(32, "s001faskn_own,BODY=own", 3), 0);
}

#ifndef _WIN32
// Windows makes no folder of such a name.
TEST_F(MainToolsTest, ARepairKeepsTheSimsOfANeighbourhoodWhoseNameEndsInABlank) {
    const std::string sim = "game/UserData4 /Characters/user00001.iff";
    const std::string content = simFile(damagedRows());
    folder.write(sim, content);
    frmMain& window = showFirst();
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuFix");
    EXPECT_FALSE(folder.read(sim) == content);
    const std::vector<HistoryEntry> entries = History(historyPlaces()).entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_TRUE(folder.read("program/History/" + entries[0].folder +
                            "/UserData4 /characters/user00001.iff") == content);
}
#endif

TEST_F(MainToolsTest, TheRepairsWorkOnAllPagesAndTellWhenTheyAreDone) {
    makeDamaged(51);
    frmMain& window = showFirst();
    for (const char* entry : {"smenuFix", "smenuPinkHands"}) {
        script.answer(QMessageBox::Yes);
        script.answer();
        chooseCommand(window, entry);
        const test::SeenMessage& end = script.messages().back();
        EXPECT_EQ(end.title, "Success");
        EXPECT_EQ(end.text, "Operation Complete");
        EXPECT_EQ(end.icon, QMessageBox::Information);
        EXPECT_FALSE(end.yesNo);
        EXPECT_FALSE(pointerIsBusy());
    }
    EXPECT_EQ(simsWith(32, "s100faFIT_original,BODY=s100faFITlgt_original", 51), 51);
    EXPECT_EQ(simsWith(29, "HfLO,HAND=gfao_bride", 51), 51);
}

TEST_F(MainToolsTest, TheEndIsToldEvenIfNothingChanged) {
    folder.write(simPlace(1), simFile(simRows({.count = 30})));
    frmMain& window = showFirst();
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuFix");
    EXPECT_EQ(script.messages().back().text, "Operation Complete");
}

TEST_F(MainToolsTest, WithoutSimsTheQuestionIsAll) {
    frmMain& window = showFirst();
    script.answer(QMessageBox::Yes);
    chooseCommand(window, "smenuFix");
    script.answer(QMessageBox::Yes);
    chooseCommand(window, "smenuPinkHands");
    chooseCommand(window, "smenuExport");
    EXPECT_EQ(script.messages().size(), 2U);
    EXPECT_FALSE(folder.exists("program/headskins.txt"));
    EXPECT_FALSE(folder.exists("program/bodyskins.txt"));
}

TEST_F(MainToolsTest, ThePageStaysAsItWas) {
    makeDamaged(2);
    frmMain& window = showFirst();
    const QImage page = find<PictureBox>(window, "picThumbs")->painted();
    const QImage sim = find<PictureBox>(window, "picSim")->painted();
    const QString name = textOf(window, "txtSimName");
    folder.write(simPlace(1), simFile(damagedRows(), "New Name", "user00001 - New Name"));
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuFix");
    EXPECT_TRUE(find<PictureBox>(window, "picThumbs")->painted() == page);
    EXPECT_TRUE(find<PictureBox>(window, "picSim")->painted() == sim);
    EXPECT_EQ(textOf(window, "txtSimName"), name);
    EXPECT_EQ(simsWith(32, "s100faFIT_original,BODY=s100faFITlgt_original", 2), 2);
}

TEST_F(MainToolsTest, TheExportTellsWhereItsListsLie) {
    makeDamaged(1);
    frmMain& window = showFirst();
    script.answer();
    chooseCommand(window, "smenuExport");
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Export Complete");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Information);
    EXPECT_FALSE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text,
              "Exported:\n" + toDisplay(folder.path("program/headskins.txt")) + "\n" +
                  toDisplay(folder.path("program/bodyskins.txt")));
    EXPECT_EQ(folder.read("program/bodyskins.txt"),
              "user00001.iff;Mara Quill;b001fafitlgt_own\r\n");
    EXPECT_EQ(folder.read("program/headskins.txt"), "user00001.iff;Mara Quill;row 3\r\n");
    EXPECT_FALSE(pointerIsBusy());
}

// While a tool runs, the window paints under a busy pointer, and nothing else can be started.
TEST_F(MainToolsTest, NobodyStartsASecondCommandMeanwhile) {
    makeDamaged(60);
    frmMain& window = showFirst();
    for (const char* entry : {"smenuFix", "smenuPinkHands", "smenuExport"}) {
        int looks = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &window, [&] {
            if (InputGuard::isActive()) {
                ++looks;
                EXPECT_TRUE(pointerIsBusy());
                test::click(window, "cmdNext");
                window.close();
            }
        });
        timer.start(0);
        if (std::string(entry) != "smenuExport") {
            script.answer(QMessageBox::Yes);
        }
        script.answer();
        chooseCommand(window, entry);
        timer.stop();
        EXPECT_GE(looks, 60) << entry;
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
    }
}

// Each report is closed by its frame; the command is over then, without a word of success.
TEST_F(MainToolsTest, FailuresAreReportedUnderTheNamesOfTheCommands) {
    folder.write(simPlace(1), simFile(simRows({})));
    frmMain& window = showFirst();
    folder.write(simPlace(1), simFile({"adult", "row 2"}));
    installErrorWindow();
    struct Case {
        const char* entry;
        const char* report;
    };
    for (const Case& c : {Case{"smenuExport", "9 frmMain smenuExport_Click"},
                          Case{"smenuPinkHands", "9 frmMain smenuFix_Click"}}) {
        if (std::string(c.entry) != "smenuExport") {
            script.answer(QMessageBox::Yes);
        }
        script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
        chooseCommand(window, c.entry);
        EXPECT_TRUE(script.isDone());
        EXPECT_EQ(reported(), c.report);
        EXPECT_FALSE(pointerIsBusy());
        EXPECT_FALSE(InputGuard::isActive());
    }
    folder.write(simPlace(1), simFile(simRows({.count = 31})));
    script.answer(QMessageBox::Yes);
    script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
    chooseCommand(window, "smenuFix");
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(reported(), "9 frmMain smenuFix_Click");
}

TEST_F(MainToolsTest, ARepairEndsWithTheFirstRewriteThatFailed) {
    makeDamaged(3);
    frmMain& window = showFirst();
    installErrorWindow();
    script.answer(QMessageBox::Yes);
    script.whenShown("frmErrorDialog", [](QWidget& report) {
        EXPECT_FALSE(pointerIsBusy());
        report.close();
    });
    {
        const test::FaultyFiles faulty(1, test::FaultyFiles::Fault::Fail);
        chooseCommand(window, "smenuFix");
    }
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(reported(), "57 modIFFsupport gsWriteIFF");
    EXPECT_EQ(script.messages().size(), 1U);
    EXPECT_FALSE(pointerIsBusy());
    for (int number = 1; number <= 3; ++number) {
        EXPECT_TRUE(folder.read(simPlace(number)) == simFile(damagedRows()));
    }
}

TEST_F(MainToolsTest, AReadOnlySimIsReportedAndTheRepairEnds) {
    makeDamaged(3);
    folder.makeReadOnly(simPlace(2));
    frmMain& window = showFirst();
    installErrorWindow();
    script.answer(QMessageBox::Yes);
    script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
    chooseCommand(window, "smenuPinkHands");
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(reported(), "75 frmMain smenuFix_Click");
    EXPECT_EQ(simsWith(29, "HfLO,HAND=gfao_bride", 1), 1);
    EXPECT_EQ(simsWith(29, "HfLO,HAND=gfao_bride", 3), 1);
}

}  // namespace
}  // namespace marlowick
