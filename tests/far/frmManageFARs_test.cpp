#include "far/frmManageFARs.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <ctime>

#include "browser/frmMain.h"
#include "far/manage_fars_test.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "support/user_file_builder.h"
#include "system/disk.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

using test::ArchiveEntry;
using test::archiveFile;
using test::archiveRecord;
using test::bitmapFile;
using test::click;
using test::entriesOfArchive;
using test::find;
using test::kBlue;
using test::kGreen;
using test::kRed;
using test::little32;
using test::ManageFARsTest;
using test::textOf;

TEST_F(ManageFARsTest, BearsItsCaptions) {
    manage([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Manage Skins In FAR Files");
        EXPECT_EQ(find<QGroupBox>(window, "Frame1")->title(), "FAR Files In The Textures Folder");
        EXPECT_EQ(find<QGroupBox>(window, "Frame2")->title(), "BMP Files To Add");
        struct Row {
            const char* name;
            const char* caption;
        };
        constexpr Row kLabels[] = {{"Label2", "Current FAR File"},
                                   {"Label1", "Files In Archive"},
                                   {"lblCount", "Entries"},
                                   {"Label3", "Search For Skin In FAR File"},
                                   {"lblData", "Selected Drive and Folder"}};
        for (const Row& row : kLabels) {
            EXPECT_EQ(find<QLabel>(window, row.name)->text(), row.caption);
        }
        constexpr Row kButtons[] = {{"cmdFind", "Find"},
                                    {"cmdNext", "F. Next"},
                                    {"cmdNew", "New FAR File"},
                                    {"cmdOpen", "Open FAR File"},
                                    {"cmdSave", "Save Current FAR File"},
                                    {"cmdDelete", "Delete Entry"},
                                    {"cmdUndelete", "Undelete Entry"},
                                    {"cmdExtractFile", "Extract Selected Files"},
                                    {"cmdAddFile", "Add Selected Files"},
                                    {"cmdImportFolder", "Add Entire Folder"},
                                    {"cmdFocus", "Command1"}};
        for (const Row& row : kButtons) {
            EXPECT_EQ(find<QPushButton>(window, row.name)->text(), row.caption);
        }
        EXPECT_FALSE(find<QWidget>(window, "picStatus")->isVisible());
    });
}

TEST_F(ManageFARsTest, OpensFromTheMenu) {
    auto& main = theWindow<frmMain>();
    main.showMain();
    bool shown = false;
    script.whenShown("frmManageFARs", [&](QWidget& window) {
        shown = true;
        window.close();
    });
    main.findChild<QAction*>("menuFARs")->trigger();
    EXPECT_TRUE(shown);
}

// The window that picks an archive.

TEST_F(ManageFARsTest, ListsTheArchivesOfTheTexturesFolderAlone) {
    makeArchive("b.far", {});
    makeArchive("A.FAR", {});
    makeArchive("_x.Far", {});
    makeArchive("notes.txt", {});
    makeArchive("Deep/d.far", {});
    folder.write("game/ExpansionPack/ExpansionPack.far", archiveFile({}));
    manage([&](QWidget& window) {
        script.whenShown("frmOpenFAR", [](QWidget& opener) {
            EXPECT_EQ(opener.windowTitle(), "Select a FAR File to Open");
            EXPECT_EQ(find<QLabel>(opener, "Label1")->text(), "FAR Files In The Textures Folder:");
            EXPECT_EQ(find<QPushButton>(opener, "cmdSelect")->text(), "Select");
            EXPECT_EQ(find<QPushButton>(opener, "cmdCancel")->text(), "Cancel");
            EXPECT_EQ(rows(opener), (QStringList{"A.FAR", "b.far", "_x.Far"}));
            click(opener, "cmdSelect");
            EXPECT_TRUE(opener.isVisible());
            click(opener, "cmdCancel");
            EXPECT_FALSE(opener.isVisible());
        });
        click(window, "cmdOpen");
        EXPECT_TRUE(theWindow<frmManageFARs>().OpenFile.empty());
        EXPECT_EQ(textOf(window, "txtFarFile"), "");
    });
}

TEST_F(ManageFARsTest, NoArchiveIsMarkedBeforeOneIsChosenAndEnterChoosesTheFirst) {
    makeArchive("a.far", {{"x.bmp", kRed, {}}});
    makeArchive("b.far", {{"y.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        script.whenShown("frmOpenFAR", [](QWidget& opener) {
            list(opener)->setFocus(Qt::TabFocusReason);
            EXPECT_EQ(list(opener)->currentItem(), nullptr);
            EXPECT_EQ(selected(opener), QStringList());
            QTest::keyClick(list(opener), Qt::Key_Return);
            EXPECT_EQ(selected(opener), QStringList{"a.far"});
            EXPECT_TRUE(opener.isVisible());
            QTest::keyClick(list(opener), Qt::Key_Return);
            EXPECT_FALSE(opener.isVisible());
        });
        click(window, "cmdOpen");
        EXPECT_EQ(rows(window), QStringList{"x.bmp"});
    });
}

#ifndef _WIN32
TEST_F(ManageFARsTest, AnArchiveThatCanNotBeOpenedByItsNameIsNotOffered) {
    for (const char* name : {"a:b.far", "good.far", "\xD1\x8F.far"}) {
        makeArchive(name, {{"x.bmp", kRed, {}}});
    }
    manage([&](QWidget& window) {
        script.whenShown("frmOpenFAR", [](QWidget& opener) {
            EXPECT_EQ(rows(opener), QStringList{"good.far"});
            click(opener, "cmdCancel");
        });
        click(window, "cmdOpen");
    });
}
#endif

TEST_F(ManageFARsTest, ADoubleClickPicksToo) {
    makeArchive("a.far", {{"x.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        script.whenShown("frmOpenFAR", [](QWidget& opener) {
            select(opener, {0});
            const QPoint place = list(opener)->visualItemRect(list(opener)->item(0)).center();
            QTest::mouseDClick(list(opener)->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            EXPECT_FALSE(opener.isVisible());
        });
        click(window, "cmdOpen");
        EXPECT_EQ(theWindow<frmManageFARs>().OpenFile.text(),
                  SimsPath.text() + "\\gamedata\\textures\\a.far");
        EXPECT_EQ(rows(window), QStringList{"x.bmp"});
    });
}

// Opening.

TEST_F(ManageFARsTest, ShowsAnArchiveInTheOrderOfTheFile) {
    makeArchive("a.far", {{"Skins\\z.bmp", "z", {}}, {"m\xE9.bmf", "m", {}}, {"a.bmp", "a", {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        EXPECT_EQ(textOf(window, "txtFarFile"), "a.far");
        EXPECT_EQ(textOf(window, "txtCount"), "3");
        EXPECT_EQ(rows(window), (QStringList{"Skins\\z.bmp", "m\u00E9.bmf", "a.bmp"}));
        EXPECT_EQ(find<QWidget>(window, "cmdFocus"), window.focusWidget());
        EXPECT_TRUE(recorder.reports().empty());
    });
}

TEST_F(ManageFARsTest, ACancelledPickReadsTheSameArchiveAgain) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        EXPECT_EQ(rows(window), (QStringList{"[DEL]  a.bmp", "b.bmp"}));
        makeArchive("a.far", {{"c.bmp", kRed, {}}, {"a.bmp", kRed, {}}});
        cancelPicking(window);
        EXPECT_EQ(rows(window), (QStringList{"c.bmp", "a.bmp"}));
        click(window, "cmdNew");
        EXPECT_EQ(rows(window), QStringList());
        cancelPicking(window);
        EXPECT_EQ(rows(window), (QStringList{"c.bmp", "a.bmp"}));
    });
    // Not even the end of the window empties the property.
    manage([&](QWidget& window) {
        EXPECT_EQ(rows(window), QStringList());
        cancelPicking(window);
        EXPECT_EQ(rows(window), (QStringList{"c.bmp", "a.bmp"}));
    });
}

TEST_F(ManageFARsTest, ANewArchiveIsEmptyAndAsksNothing) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        click(window, "cmdNew");
        EXPECT_EQ(rows(window), QStringList());
        EXPECT_EQ(textOf(window, "txtFarFile"), "");
        EXPECT_EQ(textOf(window, "txtCount"), "");
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFFFFFFFFU);
    });
    EXPECT_TRUE(script.messages().empty());
}

// Between the list and the choice; the other archive is as good as before.
TEST_F(ManageFARsTest, AnArchiveThatVanishesFromTheListIsTold) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}});
    makeArchive("b.far", {{"green.bmp", kGreen, {}}});
    const std::string other = archive("b.far");
    manage([this](QWidget& window) {
        script.whenShown(QStringLiteral("frmOpenFAR"), [this](QWidget& opener) {
            std::filesystem::remove(folder.root() / (std::string(test::kTextures) + "a.far"));
            select(opener, {0});
            click(opener, "cmdSelect");
        });
        script.answer();
        click(window, "cmdOpen");
        EXPECT_EQ(rows(window), QStringList());
        pick(window, "b.far");
        EXPECT_EQ(rows(window), QStringList{"green.bmp"});
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "File Load Error");
    EXPECT_TRUE(archive("b.far") == other);
}

TEST_F(ManageFARsTest, AnArchiveThatChangesBehindTheListIsShownAsItIs) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}, {"blue.bmp", kBlue, {}}});
    manage([this](QWidget& window) {
        script.whenShown(QStringLiteral("frmOpenFAR"), [this](QWidget& opener) {
            makeArchive("a.far", {{"green.bmp", kGreen, {}}});
            select(opener, {0});
            click(opener, "cmdSelect");
        });
        click(window, "cmdOpen");
        EXPECT_EQ(rows(window), QStringList{"green.bmp"});
    });
}

TEST_F(ManageFARsTest, RefusesAFileWithoutEntriesAndTakesAnyHead) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    makeArchive("empty.far", {});
    folder.write(std::string(test::kTextures) + "odd.far", "whatever" + little32(9) + little32(17) +
                                                               "x" + little32(1) +
                                                               archiveRecord(1, 1, 16, "x.bmp"));
    manage([&](QWidget& window) {
        pick(window, "a.far");
        pick(window, "empty.far", true);
        EXPECT_EQ(rows(window), QStringList());
        EXPECT_EQ(textOf(window, "txtFarFile"), "");
        EXPECT_EQ(textOf(window, "txtCount"), "");
        pick(window, "odd.far");
        EXPECT_EQ(rows(window), QStringList{"x.bmp"});
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "File Load Error");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(script.messages()[0].text,
              "The file " + toDisplay(SimsPath + "\\gamedata\\textures\\empty.far") +
                  "\n can not be loaded. It is not a valid FAR file.");
}

TEST_F(ManageFARsTest, WarnsWhereTheArchiveWouldNotFit) {
    const std::string data(1200000, 'x');
    makeArchive("a.far", {{"a.bmp", data, {}}});
    const std::size_t size = archive("a.far").size();
    ASSERT_EQ(size, 1200000U + 16 + 4 + 16 + 5);
    Path asked;
    double room = static_cast<double>(size) - 1;
    setFreeDiskSpace([&](const Path& root) {
        asked = root;
        return room;
    });
    manage([&](QWidget& window) {
        pick(window, "a.far", true);
        EXPECT_EQ(rows(window), QStringList{"a.bmp"});
        EXPECT_EQ(textOf(window, "txtFarFile"), "a.far");
        room = static_cast<double>(size);
        pick(window, "a.far");
        room = 0;
        pick(window, "a.far", true);
    });
    const QString file = toDisplay(SimsPath + "\\gamedata\\textures\\a.far");
    const QString drive = QString::fromStdString(driveName(theWindow<frmManageFARs>().OpenFile));
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "WARNING!!!");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    const QString start = "The file:\n" + file +
                          "\nis too large to be saved. You do not have enough free disk "
                          "space.\n\nFAR File Size: 1,200,041\nFree Space(" +
                          drive + "): ";
    EXPECT_EQ(script.messages()[0].text, start + "1,200,040");
    EXPECT_EQ(script.messages()[1].text, start);
    EXPECT_EQ(asked, driveRoot(theWindow<frmManageFARs>().OpenFile));
}

TEST_F(ManageFARsTest, TooManyEntriesGoToTheTrap) {
    std::vector<ArchiveEntry> entries(32767, {"x.bmp", "", {}});
    makeArchive("full.far", entries);
    manage([&](QWidget& window) {
        pick(window, "full.far");
        EXPECT_EQ(rows(window).size(), 0);
    });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 6);
    EXPECT_EQ(recorder.reports()[0].module, "frmManageFARs");
    EXPECT_EQ(recorder.reports()[0].procedure, "msOpenFile");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 0);
}

TEST_F(ManageFARsTest, ShowsThirtyThousandRowsWithoutDelay) {
    std::vector<ArchiveEntry> entries;
    for (int i = 0; i < 30000; ++i) {
        entries.push_back({"Skins\\B" + std::to_string(i) + "fafit_01.bmp", "x", {}});
    }
    entries[1000].name = std::string(300, 'W') + ".bmp";
    makeArchive("large.far", entries);
    manage([&](QWidget& window) {
        const std::clock_t start = std::clock();
        pick(window, "large.far");
        window.repaint();
        EXPECT_EQ(list(window)->count(), 30000);
        list(window)->selectAll();
        click(window, "cmdDelete");
        click(window, "cmdUndelete");
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "29998");
        click(window, "cmdFind");
        EXPECT_EQ(selected(window), QStringList{"Skins\\B29998fafit_01.bmp"});
        // A person waits for none of these; the bound is for a slow machine in a debug build, and
        // in time of the processor, so that what else the machine does is left out.
        EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 6);
        EXPECT_TRUE(list(window)->viewport()->rect().intersects(
            list(window)->visualItemRect(list(window)->item(29998))));
        const int wide =
            QFontMetrics(list(window)->font()).horizontalAdvance(list(window)->item(1000)->text());
        EXPECT_GE(list(window)->visualItemRect(list(window)->item(5)).width(), wide);
    });
}

// Previews.

TEST_F(ManageFARsTest, PreviewsEntriesThroughTheScratchFolder) {
    makeArchive("a.far",
                {{"Skins\\Red.bmp", kRed, {}}, {"notes.txt", "no picture", {}}, {"b", kBlue, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        select(window, {1});
        EXPECT_TRUE(showsError(window, "picFARBMP"));
        select(window, {2});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0x0000FFU);
        QTest::keyClick(list(window), Qt::Key_Up);
        EXPECT_TRUE(showsError(window, "picFARBMP"));
    });
    EXPECT_TRUE(scratchFiles().empty());
    EXPECT_TRUE(recorder.reports().empty());
}

// What an earlier skin of that name has left there isn't part of the entry.
TEST_F(ManageFARsTest, ACutEntryIsNotMadeWholeByWhatStoodInTheScratchFolder) {
    makeArchive("a.far", {{"skintemp.bmp", kRed.substr(0, kRed.size() - 60), {}}});
    folder.write("program/temp/skintemp.bmp", kBlue);
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        EXPECT_TRUE(showsError(window, "picFARBMP"));
    });
}

TEST_F(ManageFARsTest, PreviewsNewFilesFromWhereTheyLie) {
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        select(window, {0, 1}, "lstBMPs");
        click(window, "cmdAddFile");
        EXPECT_EQ(rows(window), (QStringList{"[NEW]  Green.BMP", "[NEW]  red.bmp"}));
        select(window, {1});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        EXPECT_TRUE(recorder.reports().empty());
        std::filesystem::remove(folder.root() / "pictures/Green.BMP");
        select(window, {0});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFFFFFFFFU);
    });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 53);
    EXPECT_EQ(recorder.reports()[0].module, "frmManageFARs");
    EXPECT_EQ(recorder.reports()[0].procedure, "lstFiles_Click");
}

TEST_F(ManageFARsTest, ADeletedRowLosesItsMarkForThePreview) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        click(window, "cmdFocus");
        select(window, {0});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
    });
    EXPECT_TRUE(scratchFiles().empty());
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, ADeletedRowWithAFolderLosesSevenLettersOfItsName) {
    makeArchive("a.far", {{"Skins\\picture.bmp", kRed, {}}, {"Skins\\b.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0, 1});
        click(window, "cmdDelete");
        EXPECT_TRUE(recorder.reports().empty());
        // ".bmp" is what is left of the name; nothing is left of the other.
        select(window, {0});
        EXPECT_TRUE(showsError(window, "picFARBMP"));
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 53);
        EXPECT_EQ(recorder.reports()[0].procedure, "lstFiles_Click");
        select(window, {1});
        EXPECT_TRUE(showsError(window, "picFARBMP"));
        ASSERT_EQ(recorder.reports().size(), 2U);
        EXPECT_EQ(recorder.reports()[1].number, 52);
    });
    EXPECT_EQ(scratchFiles(), (std::vector<std::string>{"b.bmp", "picture.bmp"}));
}

TEST_F(ManageFARsTest, AnEntryThatIsNamedLikeANewFileIsTakenForOne) {
    makeArchive("a.far", {{"[NEW]  red.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFFFFFFFFU);
    });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 9);
    EXPECT_EQ(recorder.reports()[0].procedure, "lstFiles_Click");
}

TEST_F(ManageFARsTest, PreviewsTheFilesOfTheFolder) {
    folder.write("pictures/torn.bmp", "BM");
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        EXPECT_EQ(rows(window, "lstBMPs"), (QStringList{"Green.BMP", "red.bmp", "torn.bmp"}));
        select(window, {1}, "lstBMPs");
        EXPECT_EQ(colourOf(window, "picLooseBMP"), 0xFF0000U);
        select(window, {2}, "lstBMPs");
        EXPECT_TRUE(showsError(window, "picLooseBMP"));
        select(window, {0}, "lstBMPs");
        EXPECT_EQ(colourOf(window, "picLooseBMP"), 0x00FF00U);
        // Of several rows the one that was clicked last is shown.
        select(window, {0, 1}, "lstBMPs");
        EXPECT_EQ(colourOf(window, "picLooseBMP"), 0xFF0000U);
    });
    EXPECT_TRUE(recorder.reports().empty());
}

// Searching.

TEST_F(ManageFARsTest, FindsTheFirstMatchAndShowsIt) {
    makeArchive("a.far", {{"body.bmp", kBlue, {}}, {"FACE1.bmp", kRed, {}}, {"face2.bmp", "", {}}});
    manage([&](QWidget& window) {
        click(window, "cmdFind");
        EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "txtFind"));
        pick(window, "a.far");
        select(window, {0, 2});
        click(window, "cmdFind");
        EXPECT_EQ(selected(window), (QStringList{"body.bmp", "face2.bmp"}));
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "face");
        click(window, "cmdFind");
        EXPECT_EQ(selected(window), QStringList{"FACE1.bmp"});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "txtFind"));
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "less");
        QTest::keyClick(find<QLineEdit>(window, "txtFind"), Qt::Key_Return);
        EXPECT_EQ(selected(window), QStringList());
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(ManageFARsTest, ShowsTheFoundEntryAlsoWhereItWasTheCurrentOne) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        find<PictureBox>(window, "picFARBMP")->setPicture({});
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "red");
        click(window, "cmdFind");
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
    });
}

TEST_F(ManageFARsTest, FindsTheNextMatchAndStaysAtTheEndOfTheList) {
    makeArchive("a.far", {{"face1.bmp", "", {}},
                          {"body.bmp", "", {}},
                          {"face2.bmp", "", {}},
                          {"face3.bmp", "", {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "FACE");
        for (const char* found : {"face1.bmp", "face2.bmp", "face3.bmp", "face3.bmp"}) {
            click(window, "cmdNext");
            EXPECT_EQ(selected(window), QStringList{found});
        }
        // The last row doesn't match: nothing is selected, and the next search begins at the top.
        find<QLineEdit>(window, "txtFind")->setText("body");
        click(window, "cmdNext");
        EXPECT_EQ(selected(window), QStringList());
        click(window, "cmdNext");
        EXPECT_EQ(selected(window), QStringList{"body.bmp"});
        // Of several selected rows the first one counts.
        find<QLineEdit>(window, "txtFind")->setText("face");
        select(window, {0, 3});
        click(window, "cmdNext");
        EXPECT_EQ(selected(window), QStringList{"face2.bmp"});
    });
}

TEST_F(ManageFARsTest, FindsMarks) {
    makeArchive("a.far", {{"a.bmp", "", {}}, {"b.bmp", "", {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {1});
        click(window, "cmdDelete");
        QTest::keyClicks(find<QLineEdit>(window, "txtFind"), "[del]");
        click(window, "cmdFind");
        EXPECT_EQ(selected(window), QStringList{"[DEL]  b.bmp"});
    });
}

}  // namespace
}  // namespace marlowick
