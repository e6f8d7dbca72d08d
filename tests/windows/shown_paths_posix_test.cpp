// Wherever a person of a system of slashes sees a whole path, it is written as in any other program
// there, in the letters of the disk.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <cstdlib>

#include "browser/frmMain.h"
#include "browser/frmSetPath.h"
#include "far/frmManageFARs.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "start/startup.h"
#include "support/archive_builder.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/disk.h"
#include "wardrobe/frmENS.h"
#include "wardrobe/wardrobe_fields.h"
#include "widgets/display_text.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::textOf;

class ShownPathsTest : public test::WindowTest {
  protected:
    ShownPathsTest() {
        folder.write("game/Sims.exe", "");
        folder.write("program/x", "");
    }
    ~ShownPathsTest() override { setFreeDiskSpace({}); }

    QString shown(const std::string& name) const {
        return QString::fromStdString((folder.root() / name).string());
    }
    // The same with backslashes and in capitals.
    QString otherwise(const std::string& name) const {
        const std::string place = folder.root().string() + "/";
        return QString::fromStdString(place)
            .append(QString::fromStdString(name).toUpper())
            .replace('/', '\\');
    }
};

TEST_F(ShownPathsTest, ASettingWithBackslashesIsRead) {
    folder.write("game/UserData/Characters/user00001.iff", test::simFile(test::simRows({})));
    writeSetting(setting::kSimsLocation, otherwise("game"));
    auto& window = theWindow<frmMain>();
    window.showMain();
    EXPECT_EQ(find<QListWidget>(window, "lstUserDataDir")->count(), 1);
    script.whenShown("frmSetPath", [&](QWidget& path) {
        EXPECT_EQ(textOf(path, "txtLocation"), shown("game"));
        click(path, "cmdOK");
    });
    window.findChild<QAction*>("smenuSetPath")->trigger();
    EXPECT_EQ(readSetting(setting::kSimsLocation), shown("game"));
}

TEST_F(ShownPathsTest, APathMayBeTypedInEitherWayAndIsStoredInOne) {
    for (const QString& typed : {otherwise("game"), shown("game"), shown("game") + "/",
                                 shown("GAME"), otherwise("game").toLower() + "\\"}) {
        writeSetting(setting::kSimsLocation, QString());
        script.whenShown("frmSetPath", [&](QWidget& path) {
            QTest::keyClicks(find<QLineEdit>(path, "txtLocation"), typed);
            click(path, "cmdOK");
        });
        theWindow<frmSetPath>().showModal();
        EXPECT_EQ(readSetting(setting::kSimsLocation), shown("game")) << typed.toStdString();
        EXPECT_EQ(SimsPath, folder.path("game"));
    }
}

TEST_F(ShownPathsTest, AFolderWithoutTheGameIsToldAsItStandsOnTheDisk) {
    script.whenShown("frmSetPath", [&](QWidget& path) {
        QTest::keyClicks(find<QLineEdit>(path, "txtLocation"), otherwise("program"));
        script.answer();
        click(path, "cmdOK");
        click(path, "cmdCancel");
    });
    theWindow<frmSetPath>().showModal();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].text, "The Sims was not found in:\n" + shown("program") +
                                             "\nThe selected location was invalid");
}

// Wine's registry names the game with its own drive and backslashes.
TEST_F(ShownPathsTest, TheRegistrysPathIsShownAndStoredSoToo) {
    folder.write("home/.wine/system.reg",
                 "WINE REGISTRY Version 2\n\n[Software\\\\Wow6432Node\\\\Maxis\\\\The Sims] 1\n"
                 "\"InstallPath\"=\"C:\\\\GAMES\\\\the sims\"\n");
    folder.write("home/.wine/drive_c/Games/The Sims/Sims.exe", "");
    std::filesystem::create_directories(folder.root() / "home/.wine/dosdevices");
    std::filesystem::create_symlink("../drive_c", folder.root() / "home/.wine/dosdevices/c:");
    const std::string home = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
    ::setenv("HOME", (folder.root() / "home").c_str(), 1);
    theWindow<frmMain>().showMain();
    const QString place = shown("home/.wine/drive_c/Games/The Sims");
    EXPECT_EQ(readSetting(setting::kSimsLocation), place);
    script.whenShown("frmSetPath", [&](QWidget& path) {
        EXPECT_EQ(textOf(path, "txtRegistry"), place);
        find<QLineEdit>(path, "txtLocation")->clear();
        click(path, "cmdUseReg");
        EXPECT_EQ(textOf(path, "txtLocation"), place);
        click(path, "cmdCancel");
    });
    theWindow<frmSetPath>().showModal();
    ::setenv("HOME", home.c_str(), 1);
}

TEST_F(ShownPathsTest, TheExportTellsItsFiles) {
    folder.write("game/UserData/Characters/user00001.iff", test::simFile(test::simRows({})));
    writeSetting(setting::kSimsLocation, shown("game"));
    auto& window = theWindow<frmMain>();
    window.showMain();
    find<QListWidget>(window, "lstUserDataDir")->setCurrentRow(0);
    script.answer();
    window.findChild<QAction*>("smenuExport")->trigger();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].text, "Exported:\n" + shown("program/headskins.txt") + "\n" +
                                             shown("program/bodyskins.txt"));
}

TEST_F(ShownPathsTest, AProgramFolderThatCantBeWrittenIsTold) {
    ProgramFolder = folder.path("PROGRAM\\Nowhere");
    writeSetting(setting::kSimsLocation, shown("game"));
    script.answer();
    script.whenShown("frmTitle", [](QWidget& title) { title.close(); });
    startProgram();
    ASSERT_FALSE(script.messages().empty());
    EXPECT_TRUE(script.messages()[0].text.contains(":\n" + shown("program/Nowhere") + "\n"));
}

TEST_F(ShownPathsTest, TheErrorReportNamesItsFolders) {
    ProgramFolder = folder.path("PROGRAM");
    SimsPath = folder.path("Game");
    NeighbourhoodsElsewhere = folder.path("PROGRAM");
    const QString report = QString::fromStdString(errorReport());
    EXPECT_TRUE(report.endsWith("\r\nInstall Path: " + shown("program") +
                                "\r\nSims Path: " + shown("game") +
                                "\r\nNeighborhoods Path: " + shown("program") + "\r\n"));
    NeighbourhoodsElsewhere = Path();
    SimsPath = Path("ERROR");
    EXPECT_TRUE(errorReport().ends_with("\r\nSims Path: ERROR\r\nNeighborhoods Path: ERROR\r\n"));
}

TEST_F(ShownPathsTest, TheArchiveWindowShowsItsFoldersAndFiles) {
    folder.write("game/GameData/Textures/Small.far",
                 test::archiveFile({{"a.bmp", test::bitmapFile(8, 8, 0xFF0000), {}}}));
    folder.write("game/GameData/Textures/Empty.far", "");
    folder.write("game/Bitmaps/b.bmp", test::bitmapFile(8, 8, 0x00FF00));
    SimsPath = folder.path("GAME");
    setFreeDiskSpace([](const Path&) { return 1.0; });
    const auto open = [&](QWidget& window, const char* name) {
        script.whenShown("frmOpenFAR", [name](QWidget& picker) {
            auto* list = find<QListWidget>(picker, "lstFiles");
            list->setCurrentItem(list->findItems(name, Qt::MatchExactly).value(0));
            click(picker, "cmdSelect");
        });
        script.answer();
        click(window, "cmdOpen");
    };
    script.whenShown("frmManageFARs", [&](QWidget& window) {
        EXPECT_EQ(find<QComboBox>(window, "drvFiles")->itemText(0), "/");
        EXPECT_EQ(textOf(window, "txtPath"), shown("game"));
        auto* folders = find<QTreeWidget>(window, "dirFiles");
        EXPECT_EQ(folders->topLevelItem(0)->text(0), "/");
        EXPECT_EQ(folders->currentItem()->text(0), "game");
        folders->setCurrentItem(
            folders->findItems("Bitmaps", Qt::MatchExactly | Qt::MatchRecursive).value(0));
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(textOf(window, "txtPath"), shown("game/Bitmaps"));
        EXPECT_EQ(find<QListWidget>(window, "lstBMPs")->count(), 1);
        open(window, "Empty.far");
        open(window, "Small.far");
        script.answer(QMessageBox::No);
        click(window, "cmdImportFolder");
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(textOf(window, "txtFarFile"), shown("game/GameData/Textures/Small.far"));
        window.close();
    });
    theWindow<frmManageFARs>().showModal();
    ASSERT_EQ(script.messages().size(), 4U);
    EXPECT_EQ(script.messages()[0].text, "The file " + shown("game/GameData/Textures/Empty.far") +
                                             "\n can not be loaded. It is not a valid FAR file.");
    const QString drive = QString::fromStdString(driveName(folder.path("game")));
    EXPECT_TRUE(drive.startsWith('/') && shown("game").startsWith(drive));
    EXPECT_TRUE(script.messages()[1].text.startsWith(
        "The file:\n" + shown("game/GameData/Textures/Small.far") + "\nis too large"));
    EXPECT_TRUE(script.messages()[1].text.endsWith("Free Space(" + drive + "): 1"));
    EXPECT_EQ(script.messages()[2].text, "Add all of the BMP files in:\n" + shown("game/Bitmaps") +
                                             "\nto the current FAR file?\n\nAre you sure?");
    EXPECT_EQ(script.messages()[3].text, "File Saved.");
}

// The name of a new archive may be a path within the folder of textures.
TEST_F(ShownPathsTest, ANewArchiveIsShownWhereItLies) {
    std::filesystem::create_directories(folder.game() / "GameData/Textures/Mine");
    folder.write("game/b.bmp", test::bitmapFile(8, 8, 0x00FF00));
    script.whenShown("frmManageFARs", [&](QWidget& window) {
        auto* bitmaps = find<QListWidget>(window, "lstBMPs");
        bitmaps->setCurrentRow(0, QItemSelectionModel::ClearAndSelect);
        click(window, "cmdAddFile");
        script.whenShown("inputBox", [](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), "mine/New");
            QTest::keyClick(&box, Qt::Key_Return);
        });
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(textOf(window, "txtFarFile"), shown("game/GameData/Textures/Mine/New.FAR"));
        window.close();
    });
    theWindow<frmManageFARs>().showModal();
    EXPECT_TRUE(folder.exists("game/GameData/Textures/Mine/New.FAR"));
}

TEST_F(ShownPathsTest, TheWindowOfEnsemblesNamesTheFileThatIsThere) {
    folder.write("program/ENS/Evening out.ENS", "");
    WardrobeFields fields;
    auto& window = theWindow<frmENS>();
    for (const int mode : {kEnsembleSave, kEnsembleLoad}) {
        window.mode = mode;
        script.whenShown("frmENS", [&](QWidget& box) {
            QTest::keyClicks(find<QLineEdit>(box, "txtFileName"), "EVENING OUT.ens");
            script.answer(QMessageBox::No);
            click(box, mode == kEnsembleSave ? "cmdSaveLoad" : "cmdDelete");
            click(box, "cmdCancel");
        });
        window.showFor(fields);
    }
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].text, "Overwrite file " + shown("program/ENS/Evening out.ENS"));
    EXPECT_EQ(script.messages()[1].text, "Delete file " + shown("program/ENS/Evening out.ENS"));
}

}  // namespace
}  // namespace marlowick
