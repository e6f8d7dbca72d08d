// The main window as a person uses it; the commands of the menu Tools have tests of their own.
#include <gtest/gtest.h>

#include <QAction>
#include <QCloseEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

#include "browser/main_window_test.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "iff/string_segment.h"
#include "start/startup.h"
#include "support/error_recorder.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/files.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::simRows;
using test::textOf;

class MainTest : public test::MainWindowTest {};

// Start-up.

TEST_F(MainTest, AFirstStartWithoutTheGameStoresTheDefaultsAndTellsTwice) {
    script.answer();
    script.answer();
    frmMain& window = show();
    EXPECT_EQ(readSetting(setting::kBackupSavedFile), "1");
    EXPECT_EQ(readSetting(setting::kSkipPajamaSave), "1");
    EXPECT_EQ(readSetting(setting::kSimsLocation), "ERROR");
    EXPECT_EQ(SimsPath.text(), "ERROR");
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Path to The Sims not found!");
    EXPECT_EQ(script.messages()[0].text,
              "GetRegistryString failed on error.\nThe path to The Sims can not be found.\n"
              "Please use the Set Path menu option to locate The Sims.");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(script.messages()[1].title, "SIMS.EXE Not Found!");
    EXPECT_EQ(script.messages()[1].text,
              "The file SIMS.EXE was not found in the path specified in the registry.\n"
              "Please use the Set Path menu option to locate The Sims.");
    // And again at every return to the window.
    script.answer();
    script.answer();
    window.Form_Activate();
    EXPECT_EQ(script.messages().size(), 4U);
    EXPECT_EQ(window.windowTitle(), "Marlowick - Version 3.0.5 - by Tolbert Quay");
}

TEST_F(MainTest, AnEmptyPathHasAMessageOfItsOwn) {
    test::installGame(folder);
    frmMain& window = show();
    SimsPath = Path();
    script.answer();
    script.answer();
    window.Form_Activate();
    EXPECT_EQ(script.messages()[0].text,
              "The path to The Sims was not found in the registry.\n"
              "Please use the Set Path menu option to locate The Sims.");
}

TEST_F(MainTest, TheStoredPathWinsAndTheFoldersAreMade) {
    folder.write("game/sImS.ExE", "");
    writeSetting(setting::kSimsLocation, toDisplay(folder.path("game")));
    std::filesystem::remove_all(folder.program() / "temp");
    show();
    EXPECT_EQ(SimsPath, folder.path("game"));
    EXPECT_TRUE(folder.exists("program/ENS"));
    EXPECT_TRUE(folder.exists("program/temp"));
}

TEST_F(MainTest, NeighbourhoodsAreListedInTheOrderOfTheirLines) {
    test::installGame(folder);
    for (const char* name : {"UserData10", "UserData", "UserDataOld", "UserData2"}) {
        makeSims(name, 0);
    }
    frmMain& window = show();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    QStringList lines;
    for (int i = 0; i < list->count(); ++i) {
        lines.append(list->item(i)->text());
    }
    EXPECT_EQ(lines,
              (QStringList{"Neighborhood 01   (UserData)", "Neighborhood 02   (UserData2)",
                           "Neighborhood 10   (UserData10)", "Neighborhood Old   (UserDataOld)"}));
    EXPECT_EQ(list->currentRow(), -1);
}

TEST_F(MainTest, TheLastNeighbourhoodIsSelectedAgain) {
    test::installGame(folder);
    makeSims("UserData", 1);
    makeSims("UserData2", 3);
    writeSetting(setting::kLastNeighborhood, "Neighborhood 02   (UserData2)");
    frmMain& window = show();
    EXPECT_EQ(find<QListWidget>(window, "lstUserDataDir")->currentRow(), 1);
    EXPECT_EQ(nameIn(window, 2), "Sim 3");
}

TEST_F(MainTest, ALastNeighbourhoodThatHasGoneSelectsNothing) {
    test::installGame(folder);
    makeSims("UserData", 1);
    writeSetting(setting::kLastNeighborhood, "Neighborhood 07   (UserData7)");
    frmMain& window = show();
    EXPECT_EQ(find<QListWidget>(window, "lstUserDataDir")->currentRow(), -1);
    EXPECT_EQ(nameIn(window, 0), "");
}

TEST_F(MainTest, TheFirstArrowChoosesTheFirstNeighbourhood) {
    test::installGame(folder);
    makeSims("UserData", 2);
    frmMain& window = show();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    list->setFocus();
    EXPECT_EQ(nameIn(window, 0), "");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
}

TEST_F(MainTest, EnterChoosesTheFirstNeighbourhood) {
    test::installGame(folder);
    makeSims("UserData", 2);
    frmMain& window = show();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    list->setFocus();
    EXPECT_EQ(list->currentItem(), nullptr);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
}

TEST_F(MainTest, TheLabelUnderAFaceHoldsTheWholeName) {
    const QString name = "Bartholomew Featherstonehaugh-Cholmondeley";
    test::installGame(folder);
    folder.write(test::simPlace(1), test::simFile(simRows({}), name.toStdString()));
    EXPECT_EQ(nameIn(showFirst(), 0), name);
}

TEST_F(MainTest, AFolderWithAWordForANumberListsItsSimsAndAFileNone) {
    test::installGame(folder);
    makeSims("UserDataOld", 2);
    folder.write("game/userdata.txt", "");
    frmMain& window = show();
    chooseLine(window, 1);
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "");
    EXPECT_EQ(textOf(window, "txtSimName"), "");
    EXPECT_TRUE(script.unexpected().isEmpty());
}

// Its name has letters that the game can't write, or none that a path can hold.
TEST_F(MainTest, ANeighbourhoodWithoutAPathIsListedAndHasNoSims) {
    test::installGame(folder);
    makeSims("UserData", 1);
    folder.write("game/UserData\xE5\x8C\x97/Characters/user00001.iff", "");
    frmMain& window = showFirst();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(1)->text(), "Neighborhood ?   (UserData?)");
    chooseLine(window, 1);
    EXPECT_EQ(nameIn(window, 0), "");
    EXPECT_EQ(textOf(window, "txtSimName"), "");
    EXPECT_TRUE(script.unexpected().isEmpty());
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "Sim 1");
}

TEST_F(MainTest, ALastNeighbourhoodInOtherLettersIsAnotherOne) {
    test::installGame(folder);
    makeSims("UserData", 1);
    writeSetting(setting::kLastNeighborhood, "NEIGHBORHOOD 01   (userdata)");
    frmMain& window = show();
    EXPECT_EQ(find<QListWidget>(window, "lstUserDataDir")->currentRow(), -1);
    EXPECT_EQ(nameIn(window, 0), "");
}

TEST_F(MainTest, OnlyALeftClickOnALineListsItsNeighbourhood) {
    frmMain& window = showSims(60);
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    makeSims("UserData2", 1);
    click(window, "cmdNext");
    ASSERT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    const QPoint onLine = list->visualItemRect(list->item(0)).center();
    const QPoint beside(onLine.x(), list->viewport()->height() - 2);
    ASSERT_EQ(list->itemAt(beside), nullptr);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, beside);
    QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier, onLine);
    QTest::mouseClick(list->viewport(), Qt::MiddleButton, Qt::NoModifier, onLine);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, onLine);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
}

TEST_F(MainTest, ARightClickDoesntChooseAnotherNeighbourhood) {
    test::installGame(folder);
    makeSims("UserData", 2);
    makeSims("UserData2", 1);
    frmMain& window = showFirst();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier,
                      list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
}

TEST_F(MainTest, TheListIsReadAgainOnlyWhenNoSimsAreListed) {
    frmMain& window = showSims(1);
    makeSims("UserData2", 1);
    window.Form_Activate();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    EXPECT_EQ(list->count(), 1);
    // An empty neighbourhood: the next activation reads anew and goes back to the stored line.
    std::filesystem::remove(folder.game() / "UserData/Characters" / test::simFileName(1));
    chooseLine(window, 0);
    writeSetting(setting::kLastNeighborhood, "Neighborhood 02   (UserData2)");
    window.Form_Activate();
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(list->currentRow(), 1);
    EXPECT_EQ(nameIn(window, 0), "Sim 1");
}

TEST_F(MainTest, ASimThatVanishesFromThePageHarmsNoOther) {
    frmMain& window = showSims(3);
    const std::string other = folder.read(test::simPlace(3));
    std::filesystem::remove(folder.root() / test::simPlace(2));
    const test::ErrorRecorder recorder;
    clickCell(window, 1);
    EXPECT_FALSE(textOf(window, "txtSimName").contains("Sim 2"));
    clickCell(window, 2);
    EXPECT_EQ(textOf(window, "txtSimName"), "User3 - Sim 3");
    EXPECT_TRUE(folder.read(test::simPlace(3)) == other);
    EXPECT_EQ(folder.read(test::simPlace(2)), "");
}

TEST_F(MainTest, AnOddBackupSettingShowsUncheckedUntilItIsToggled) {
    writeSetting(setting::kBackupSavedFile, "2");
    test::installGame(folder);
    frmMain& window = show();
    EXPECT_FALSE(window.backupWanted());
    EXPECT_EQ(readSetting(setting::kBackupSavedFile), "2");
    auto* entry = window.findChild<QAction*>("smenuBackup");
    entry->trigger();
    EXPECT_TRUE(window.backupWanted());
    EXPECT_EQ(readSetting(setting::kBackupSavedFile), "1");
    entry->trigger();
    EXPECT_EQ(readSetting(setting::kBackupSavedFile), "0");
}

TEST_F(MainTest, ATextThatIsNoNumberCountsAsZero) {
    writeSetting(setting::kBackupSavedFile, "yes");
    test::installGame(folder);
    EXPECT_FALSE(show().backupWanted());
}

TEST_F(MainTest, AFolderThatCantBeWrittenIsToldAtStart) {
    test::installGame(folder);
    ProgramFolder = folder.path("nowhere");
    script.answer();
    script.whenShown("frmTitle", [](QWidget& title) { title.close(); });
    startProgram();
    ASSERT_GE(script.messages().size(), 1U);
    EXPECT_TRUE(script.messages()[0].text.contains(toDisplay(folder.path("nowhere"))));
}

// The page.

TEST_F(MainTest, AChosenNeighbourhoodFillsThePage) {
    frmMain& window = showSims(3);
    EXPECT_EQ(nameIn(window, 0), "Sim 1");
    EXPECT_EQ(nameIn(window, 2), "Sim 3");
    EXPECT_EQ(nameIn(window, 3), "");
    EXPECT_EQ(pagePixel(window, 1) & 0xFFFFFF, 0x3366CCU);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
    EXPECT_EQ(textOf(window, "txtSimName"), "User1 - Sim 1");
    EXPECT_FALSE(pointerIsBusy());
}

TEST_F(MainTest, PagingStopsAtBothEnds) {
    frmMain& window = showSims(50);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
    click(window, "cmdPrevious");
    click(window, "cmdFirst");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
    click(window, "cmdNext");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    EXPECT_EQ(nameIn(window, 0), "Sim 50");
    EXPECT_EQ(nameIn(window, 1), "");
    EXPECT_EQ(textOf(window, "txtSimName"), "User50 - Sim 50");
    click(window, "cmdNext");
    click(window, "cmdLast");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    click(window, "cmdPrevious");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
    click(window, "cmdLast");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    click(window, "cmdFirst");
    EXPECT_EQ(nameIn(window, 48), "Sim 49");
    EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus"));
}

TEST_F(MainTest, FortyNineSimsAreOnePage) {
    frmMain& window = showSims(49);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
    click(window, "cmdNext");
    EXPECT_EQ(nameIn(window, 48), "Sim 49");
}

TEST_F(MainTest, TheLastPageOfAnEmptyListDoesNoHarm) {
    frmMain& window = showSims(0);
    click(window, "cmdLast");
    clickCell(window, 0);
    click(window, "cmdNext");
    click(window, "cmdFirst");
    EXPECT_EQ(nameIn(window, 0), "");
    makeSims("UserData", 2);
    click(window, "cmdLast");
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
}

TEST_F(MainTest, ABadFileCostsACellAndNotThePage) {
    test::installGame(folder);
    makeSims("UserData", 3);
    folder.write(test::simPlace(2), test::unreadableFile());
    frmMain& window = showFirst();
    EXPECT_EQ(nameIn(window, 0), "Sim 1");
    EXPECT_EQ(nameIn(window, 1), "* ERROR *\n Can't Load!!");
    EXPECT_EQ(nameIn(window, 2), "Sim 3");
    const QImage stock = find<PictureBox>(window, "picCanNotLoad")->picture();
    EXPECT_EQ(pagePixel(window, 1) & 0xFFFFFF, stock.pixel(22, 22) & 0xFFFFFF);
    clickCell(window, 1);
    EXPECT_EQ(textOf(window, "txtSimName"), "* ERROR * Can not load user00002.iff");
    click(window, "cmdSelect");  // nothing happens
}

TEST_F(MainTest, AFileWhoseNameTheGameCanNotSpellCostsACellToo) {
    test::installGame(folder);
    makeSims("UserData", 2);
    const std::string copy = "user00001 - \xD0\xBA\xD0\xBE\xD0\xBF\xD0\xB8\xD1\x8F.iff";
    folder.write("game/UserData/Characters/" + copy, test::simFile(simRows({})));
    frmMain& window = showFirst();
    EXPECT_EQ(nameIn(window, 0), "* ERROR *\n Can't Load!!");
    EXPECT_EQ(nameIn(window, 1), "Sim 1");
    EXPECT_EQ(nameIn(window, 2), "Sim 2");
    EXPECT_EQ(textOf(window, "txtSimName"), "* ERROR * Can not load user00001 - ?????.iff");
    EXPECT_EQ(find<QWidget>(window, "picSim")->toolTip(), "Error 52 - Bad file name or number");
    click(window, "cmdSelect");
    EXPECT_EQ(readSetting(setting::kLastNeighborhood), "");
    EXPECT_TRUE(script.unexpected().isEmpty());
}

TEST_F(MainTest, ASimWithoutAWebImageShowsTheStockPictureAndItsName) {
    test::installGame(folder);
    makeSims("UserData", 1);
    folder.write(test::simPlace(1),
                 test::fileHead(0) + test::segment("OBJD", 1, 1, "uSer1 label", "") +
                     test::segment("CTSS", 2000, 16, "", test::stringTable({"No Face"})) +
                     test::segment("STR#", 200, 16, "", test::stringTable(simRows({}))));
    folder.write("program/web_image.BMP", test::bitmapFile(45, 45, 0xFF0000));
    frmMain& window = showFirst();
    const QImage stock = find<PictureBox>(window, "picNotFound")->picture();
    EXPECT_EQ(pagePixel(window, 0) & 0xFFFFFF, stock.pixel(22, 22) & 0xFFFFFF);
    EXPECT_EQ(nameIn(window, 0), "No Face");
    EXPECT_EQ(textOf(window, "txtSimName"), "uSer1 label");
}

TEST_F(MainTest, APictureCalledLikeADeviceCostsNeitherThePageNorThePicturesBehindIt) {
    test::installGame(folder);
    makeSims("UserData", 2);
    const std::string table = test::stringTable(simRows({}));
    folder.write(test::simPlace(1),
                 test::fileHead(0) + test::segment("BMP_", 7, 16, "aux", "no picture") +
                     test::segment("BMP_", 8, 16, "web_image", test::bitmapFile(45, 45, 0xCC3366)) +
                     test::segment("CTSS", 2000, 16, "", test::stringTable({"Ann"})) +
                     test::segment("STR#", 200, 16, "", table));
    frmMain& window = showFirst();
    EXPECT_EQ(nameIn(window, 0), "Ann");
    EXPECT_EQ(nameIn(window, 1), "Sim 2");
    EXPECT_EQ(pagePixel(window, 0) & 0xFFFFFF, 0xCC3366U);
    const QImage pictures = find<PictureBox>(window, "picSim")->painted();
    EXPECT_EQ(pictures.pixel(20, 20) & 0xFFFFFF, 0xCC3366U);
    EXPECT_TRUE(script.unexpected().isEmpty());
}

TEST_F(MainTest, AFileWithoutNamesShowsItsFileName) {
    test::installGame(folder);
    makeSims("UserData", 1);
    folder.write(
        test::simPlace(1),
        test::fileHead(0) + test::segment("STR#", 200, 16, "", test::stringTable(simRows({}))));
    frmMain& window = showFirst();
    EXPECT_EQ(nameIn(window, 0), "");
    EXPECT_EQ(textOf(window, "txtSimName"), "user00001.iff");
}

TEST_F(MainTest, AFileWithoutAWardrobeGoesToTheReport) {
    test::installGame(folder);
    makeSims("UserData", 2);
    folder.write(test::simPlace(2), test::fileHead(0) + test::segment("OBJD", 1, 1, "user2", ""));
    frmMain& window = showFirst();
    script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
    clickCell(window, 1);
    EXPECT_TRUE(script.isDone());
    EXPECT_NE(folder.read("program/errorlog.txt").find("Error: 9\r\n"), std::string::npos);
    EXPECT_NE(folder.read("program/errorlog.txt").find("Procedure: msDisplaySim\r\n"),
              std::string::npos);
}

TEST_F(MainTest, AClickShowsASimWithAnyButton) {
    frmMain& window = showSims(5);
    clickCell(window, 3, Qt::RightButton);
    EXPECT_EQ(textOf(window, "txtSimName"), "User4 - Sim 4");
    EXPECT_FALSE(find<PictureBox>(window, "picSim")->painted().isNull());
}

TEST_F(MainTest, AClickOnAnEmptyCellMovesTheFrameAndClearsTheSim) {
    frmMain& window = showSims(5);
    clickCell(window, 20);
    EXPECT_EQ(textOf(window, "txtSimName"), "");
    EXPECT_TRUE(find<PictureBox>(window, "picSim")->painted().isNull());
    click(window, "cmdSelect");  // nothing happens
    tick(window);
    tick(window);
    EXPECT_TRUE(framed(window, 20) || (tick(window), framed(window, 20)));
    EXPECT_FALSE(framed(window, 0));
}

TEST_F(MainTest, AClearedSimLeavesNoToolTipsBehind) {
    frmMain& window = showSims(1);
    folder.write(test::simPlace(2), test::fileHead(0) + "xx");
    chooseLine(window, 0);
    clickCell(window, 1);
    EXPECT_EQ(find<QWidget>(window, "picSim")->toolTip(),
              "Error 5 - Invalid procedure call or argument");
    EXPECT_EQ(find<QWidget>(window, "txtSimName")->toolTip(),
              "* ERROR * Can not load user00002.iff");
    clickCell(window, 20);
    EXPECT_EQ(find<QWidget>(window, "picSim")->toolTip(), "");
    EXPECT_EQ(find<QWidget>(window, "txtSimName")->toolTip(), "");
}

TEST_F(MainTest, TheFrameBlinksAndIsNeverKeptInTheImage) {
    frmMain& window = showSims(2);
    const QImage before = find<PictureBox>(window, "picThumbs")->painted();
    tick(window);
    const bool first = framed(window, 0);
    tick(window);
    EXPECT_NE(framed(window, 0), first);
    tick(window);
    EXPECT_EQ(framed(window, 0), first);
    EXPECT_EQ(find<PictureBox>(window, "picThumbs")->painted(), before);
    clickCell(window, 1);
    EXPECT_FALSE(framed(window, 0));
}

TEST_F(MainTest, TheTimerRunsAtThreeHertzAndStandsStillDuringPainting) {
    frmMain& window = showSims(2);
    EXPECT_EQ(window.findChild<QTimer*>("Timer1")->interval(), 333);
    EXPECT_TRUE(window.findChild<QTimer*>("Timer1")->isActive());
    const bool before = framed(window, 0);
    const InputGuard guard;
    tick(window);
    EXPECT_EQ(framed(window, 0), before);
}

TEST_F(MainTest, ClicksDuringPaintingAreThrownAway) {
    frmMain& window = showSims(50);
    const InputGuard guard;
    click(window, "cmdNext");
    clickCell(window, 3);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
    EXPECT_EQ(textOf(window, "txtSimName"), "User1 - Sim 1");
}

TEST_F(MainTest, TheToolTipIsTheFilesName) {
    frmMain& window = showSims(2);
    auto* page = find<QWidget>(window, "picThumbs");
    moveOver(page, centreOf(1));
    EXPECT_EQ(page->toolTip(), "user00002.iff");
    moveOver(page, centreOf(9));
    EXPECT_EQ(page->toolTip(), "");
}

// A pointer that drags beyond the page is over no cell of it.
TEST_F(MainTest, BesideThePageThereIsNoToolTip) {
    frmMain& window = showSims(9);
    auto* page = find<QWidget>(window, "picThumbs");
    for (const QPoint& beside : {QPoint(-3, 30), QPoint(30, -3)}) {
        moveOver(page, centreOf(0));
        ASSERT_EQ(page->toolTip(), "user00001.iff");
        moveOver(page, beside);
        EXPECT_EQ(page->toolTip(), "") << beside.x() << "," << beside.y();
    }
}

TEST_F(MainTest, ArrowsActAsClicksAndStayOnThePage) {
    frmMain& window = showSims(20);
    auto* page = find<QWidget>(window, "picThumbs");
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Right);
    EXPECT_EQ(textOf(window, "txtSimName"), "User2 - Sim 2");
    QTest::keyClick(page, Qt::Key_Down);
    EXPECT_EQ(textOf(window, "txtSimName"), "User9 - Sim 9");
    QTest::keyClick(page, Qt::Key_Left);
    QTest::keyClick(page, Qt::Key_Left);
    EXPECT_EQ(textOf(window, "txtSimName"), "User8 - Sim 8");
    QTest::keyClick(page, Qt::Key_Up);
    QTest::keyClick(page, Qt::Key_Up);
    EXPECT_EQ(textOf(window, "txtSimName"), "User1 - Sim 1");
}

// Opening an editor.

TEST_F(MainTest, EditThisSimStoresTheLineAndOpensTheWardrobe) {
    frmMain& window = showSims(2);
    clickCell(window, 1);
    script.whenShown("frmEditSim", [](QWidget& editor) {
        EXPECT_EQ(textOf(editor, "txtName"), "Sim 2  (User2 - Sim 2)");
        EXPECT_FALSE(pointerIsBusy());
        click(editor, "cmdCancel");
    });
    click(window, "cmdSelect");
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(readSetting(setting::kLastNeighborhood), "Neighborhood 01   (UserData)");
}

TEST_F(MainTest, ADoubleClickSelectsAndOpens) {
    frmMain& window = showSims(3);
    script.whenShown("frmEditSim", [](QWidget& editor) {
        EXPECT_EQ(textOf(editor, "txtName"), "Sim 3  (User3 - Sim 3)");
        click(editor, "cmdCancel");
    });
    auto* page = find<QWidget>(window, "picThumbs");
    QTest::mouseClick(page, Qt::LeftButton, Qt::NoModifier, centreOf(2));
    QTest::mouseDClick(page, Qt::LeftButton, Qt::NoModifier, centreOf(2));
    EXPECT_TRUE(script.isDone());
}

// The first press of the two may have been thrown away while the page was painted.
TEST_F(MainTest, HalfADoubleClickOnlySelects) {
    frmMain& window = showSims(50);
    auto* page = find<QWidget>(window, "picThumbs");
    clickCell(window, 2);
    QTest::mouseDClick(page, Qt::LeftButton, Qt::NoModifier, centreOf(4));
    EXPECT_EQ(textOf(window, "txtSimName"), "User5 - Sim 5");
    clickCell(window, 0);
    click(window, "cmdNext");
    QTest::mouseDClick(page, Qt::LeftButton, Qt::NoModifier, centreOf(0));
    EXPECT_EQ(textOf(window, "txtSimName"), "User50 - Sim 50");
    EXPECT_TRUE(script.unexpected().isEmpty());
}

TEST_F(MainTest, EnterPressesTheButtonThatHasTheFocus) {
    frmMain& window = showSims(50);
    find<QWidget>(window, "cmdNext")->setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
    EXPECT_TRUE(script.unexpected().isEmpty());
}

TEST_F(MainTest, EnterOnThePageOpensToo) {
    frmMain& window = showSims(1);
    script.whenShown("frmEditSim", [](QWidget& editor) { click(editor, "cmdCancel"); });
    QTest::keyClick(find<QWidget>(window, "picThumbs"), Qt::Key_Return);
    EXPECT_TRUE(script.isDone());
}

// Menus and the end.

TEST_F(MainTest, TheMenusHaveTheirEntries) {
    test::installGame(folder);
    frmMain& window = show();
    QStringList texts;
    for (const QAction* menu : window.menuBar()->actions()) {
        texts.append(menu->text());
        for (const QAction* entry : menu->menu()->actions()) {
            texts.append(entry->text());
        }
    }
    EXPECT_EQ(
        texts,
        (QStringList{"&File", "E&xit", "&Options", "&Create Backup File", "&Set Path ...", "&Tools",
                     "&Export Skin Names", "&Fix Fit to Skinny Sims", "&Manage Skins In FAR Files",
                     "&Remove Pink Gorilla Formal Hands", "", "Earlier &Versions ..."}));
}

TEST_F(MainTest, ANewPathTakesEffectAtOnce) {
    frmMain& window = showSims(1);
    folder.write("other/Sims.exe", "");
    folder.write("other/UserData/Characters/user00007.iff",
                 test::simFile(simRows({}), "Other Sim", "user7"));
    script.whenShown("frmSetPath", [&](QWidget& path) {
        auto* box = find<QLineEdit>(path, "txtLocation");
        box->selectAll();
        QTest::keyClicks(box, toDisplay(folder.path("other")));
        click(path, "cmdOK");
    });
    chooseCommand(window, "smenuSetPath");
    EXPECT_EQ(nameIn(window, 0), "");
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "Other Sim");
}

TEST_F(MainTest, LeavingAsksFirst) {
    test::installGame(folder);
    frmMain& window = show();
    script.answer(QMessageBox::No);
    window.close();
    EXPECT_TRUE(window.isVisible());
    script.answer(QMessageBox::Yes);
    window.findChild<QAction*>("smenuExit")->trigger();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].text, "Exit this program?");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
}

TEST_F(MainTest, TheStrictListingWritesAndShowsItsReport) {
    frmMain& window = showSims(1);
    folder.write(test::simPlace(2), test::fileHead(0) + "xx");
    script.answer();
    window.msGetSimFileNames();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Invalid User IFF Files");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(script.messages()[0].text,
              QString::fromStdString(folder.read("program/badobjects.txt")));
    EXPECT_TRUE(script.messages()[0].text.contains("user00002.iff"));
}

// The preparation of a preview, which no control leads to.
class PreviewTest : public MainTest {
  protected:
    // A window on one sim with a head, whose files lie loose and in an archive.
    frmMain& showSimWithHead() {
        const std::string skin = "a skin";
        folder.write("game/GameData/Textures/Textures.far",
                     "FAR!byAZ" + test::little32(1) + test::little32(22) + skin +
                         test::little32(1) + test::little32(6) + test::little32(6) +
                         test::little32(16) + test::little32(8) + "face.bmp");
        folder.write("game/GameData/Skins/head.cmx", "HEAD\r\nmesh\r\n");
        for (const char* name : {"bcftemp.bcf", "skntemp.bmf", "skntemp.skn"}) {
            folder.write(std::string("program/temp/") + name, "old");
        }
        frmMain& window = showSims(1);
        std::vector<std::string> rows = simRows({});
        rows[2] = "head,HEAD=face";
        folder.write(test::simPlace(1), test::simFile(rows));
        return window;
    }

    bool isPrepared() const { return !folder.exists("program/temp/bcftemp.bcf"); }
};

TEST_F(PreviewTest, PutsTheFilesOnTheDiskAndShowsNothing) {
    frmMain& window = showSimWithHead();
    auto* render = find<PictureBox>(window, "picRender");
    const auto paintedIn = [&](const char* box) {
        return find<PictureBox>(window, box)->painted();
    };
    const QImage page = paintedIn("picThumbs");
    const QImage sim = paintedIn("picSim");
    const QImage hidden = paintedIn("picRender");
    const QString name = textOf(window, "txtSimName");
    window.msPrepareSimPreview();
    EXPECT_TRUE(isPrepared());
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "a skin");
    EXPECT_TRUE(find<QWidget>(window, "cmdFocus")->hasFocus());
    EXPECT_EQ(textOf(window, "txtSimName"), name);
    EXPECT_TRUE(render->picture().isNull());
    EXPECT_LT(render->geometry().right(), 0);
    EXPECT_TRUE(paintedIn("picThumbs") == page);
    EXPECT_TRUE(paintedIn("picSim") == sim);
    EXPECT_TRUE(paintedIn("picRender") == hidden);
    EXPECT_TRUE(script.unexpected().isEmpty());
}

TEST_F(PreviewTest, ARowThatIsMissingIsTrapped) {
    frmMain& window = showSimWithHead();
    folder.write(test::simPlace(1), test::simFile({"adult", "b,BODY=s"}));
    script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
    window.msPrepareSimPreview();
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(glngErrorNumber, 9);
    EXPECT_EQ(gstrErrorModule, "frmMain");
    EXPECT_EQ(gstrErrorProc, "msPrepareSimPreview");
    EXPECT_FALSE(isPrepared());
}

TEST_F(PreviewTest, WithoutASimNothingHappens) {
    frmMain& window = showSimWithHead();
    clickCell(window, 5);
    ASSERT_EQ(textOf(window, "txtSimName"), "");
    window.msPrepareSimPreview();
    EXPECT_FALSE(isPrepared());
    find<QLineEdit>(window, "txtSimName")->setText("a name");
    window.msPrepareSimPreview();
    EXPECT_FALSE(isPrepared());
    clickCell(window, 0);
    find<QListWidget>(window, "lstUserDataDir")->setCurrentRow(-1);
    find<QListWidget>(window, "lstUserDataDir")->clearSelection();
    window.msPrepareSimPreview();
    EXPECT_FALSE(isPrepared());
}

// A walk over every button and command of the window leaves the old files where they are.
TEST_F(PreviewTest, NoControlLeadsToIt) {
    frmMain& window = showSimWithHead();
    for (const char* button : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"}) {
        click(window, button);
    }
    clickCell(window, 0);
    chooseLine(window, 0);
    QTest::keyClick(find<QWidget>(window, "picThumbs"), Qt::Key_Right);
    script.whenShown("frmEditSim", [](QWidget& editor) { editor.close(); });
    click(window, "cmdSelect");
    EXPECT_FALSE(isPrepared());
    auto* render = find<PictureBox>(window, "picRender");
    EXPECT_TRUE(render->picture().isNull());
    const QImage painted = render->painted();
    for (int y = 0; y < painted.height(); ++y) {
        for (int x = 0; x < painted.width(); ++x) {
            ASSERT_EQ(painted.pixel(x, y), painted.pixel(0, 0));
        }
    }
}

}  // namespace
}  // namespace marlowick
