// The archive window's commands: the disk side, adding, deleting, extracting, saving.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>

#include "far/manage_fars_test.h"
#include "far/refused_step.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "foundation/history.h"
#include "support/faulty_files.h"
#include "support/lying_disk.h"
#include "support/user_file_builder.h"
#include "system/disk.h"
#include "system/processes.h"
#include "system/streams.h"
#include "widgets/display_text.h"
#include "widgets/folder_list.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::ArchiveEntry;
using test::archiveFile;
using test::bitmapFile;
using test::click;
using test::entriesOfArchive;
using test::find;
using test::kBlue;
using test::kGreen;
using test::kRed;
using test::ManageFARsTest;
using test::RefusedStep;
using test::textOf;

QTreeWidgetItem* folderItem(QWidget& window, const QString& name) {
    const QList<QTreeWidgetItem*> found =
        find<FolderList>(window, "dirFiles")
            ->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    EXPECT_EQ(found.size(), 1) << name.toStdString();
    return found.value(0);
}

void doubleClick(QWidget& window, const QString& name) {
    auto* folders = find<FolderList>(window, "dirFiles");
    QTreeWidgetItem* item = folderItem(window, name);
    ASSERT_NE(item, nullptr);
    folders->scrollToItem(item);
    QTest::mouseDClick(folders->viewport(), Qt::LeftButton, Qt::NoModifier,
                       folders->visualItemRect(item).center());
}

// Looks at the bar when a file is first opened.
class BarWatcher : public test::FaultyFiles {
  public:
    BarWatcher(const PictureBox& bar, std::string file)
        : FaultyFiles(0, Fault::Fail), bar_(bar), file_(std::move(file)) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (path.fileName() == file_ && painted.isNull()) {
            wasVisible = bar_.isVisible();
            wasBusy = pointerIsBusy();
            painted = bar_.painted();
        }
        return FaultyFiles::open(path, mode);
    }

    bool wasVisible = false;
    bool wasBusy = false;
    QImage painted;

  private:
    const PictureBox& bar_;
    std::string file_;
};

// A bar of that share of its full width.
void expectBar(const PictureBox& bar, const BarWatcher& watcher, int processed, int total) {
    EXPECT_TRUE(watcher.wasVisible);
    EXPECT_TRUE(watcher.wasBusy);
    const int width = bar.contentsRect().width() * processed / total;
    const int bottom = bar.contentsRect().height() - 1;
    EXPECT_EQ(watcher.painted.pixel(0, 0), 0xFFFF0000U);
    EXPECT_EQ(watcher.painted.pixel(width - 1, bottom), 0xFFFF0000U);
    EXPECT_NE(watcher.painted.pixel(width, bottom), 0xFFFF0000U);
}

// The disk side.

TEST_F(ManageFARsTest, StartsInTheGamesFolder) {
    folder.write("game/skin.bmp", kRed);
    manage([](QWidget& window) {
        EXPECT_LE(window.width(), 1024);
        EXPECT_LE(window.minimumSizeHint().width(), 800);
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath));
        EXPECT_EQ(find<FolderList>(window, "dirFiles")->path(), SimsPath);
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList{"skin.bmp"});
        EXPECT_FALSE(pointerIsBusy());
    });
}

TEST_F(ManageFARsTest, ALongNameIsScrolledToItsEnd) {
    const std::string name(60, 'A');
    folder.write("pictures/" + name + ".bmp", kRed);
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        window.repaint();
        auto* files = list(window, "lstBMPs");
        const QFontMetrics metrics(files->font());
        const int wide = metrics.horizontalAdvance(files->item(0)->text());
        ASSERT_GT(wide, files->viewport()->width());
        EXPECT_GE(files->visualItemRect(files->item(0)).width(), wide);
    });
}

TEST_F(ManageFARsTest, WalksThroughFoldersDownAndUp) {
    folder.write("game/Skins/Deep/d.bmp", kRed);
    folder.write("game/Skins/.wine/dotted.bmp", kRed);
    manage([&](QWidget& window) {
        doubleClick(window, "Skins");
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath + "\\Skins"));
        doubleClick(window, ".wine");
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList{"dotted.bmp"});
        doubleClick(window, "Skins");
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList());
        auto* folders = find<FolderList>(window, "dirFiles");
        folders->setCurrentItem(folderItem(window, "Deep"));
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath + "\\Skins\\Deep"));
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList{"d.bmp"});
        EXPECT_TRUE(window.isVisible());
        doubleClick(window, "game");
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath));
    });
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, OpensFoldersInAnyScript) {
    std::filesystem::create_directories(folder.game() / u8"\u044F");
    manage([&](QWidget& window) {
        doubleClick(window, QString(QChar(0x44F)));
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath + "\\\xD1\x8F"));
    });
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, AFolderThatHasGoneLeavesTheList) {
    folder.write("game/Skins/a.bmp", kRed);
    manage([&](QWidget& window) {
        std::filesystem::remove_all(folder.game() / "Skins");
        doubleClick(window, "Skins");
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(SimsPath));
        EXPECT_TRUE(find<FolderList>(window, "dirFiles")
                        ->findItems("Skins", Qt::MatchExactly | Qt::MatchRecursive)
                        .isEmpty());
    });
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, ADriveLeadsToItsRoot) {
    manage([](QWidget& window) {
        auto* drives = find<QComboBox>(window, "drvFiles");
        ASSERT_GT(drives->count(), 0);
        EXPECT_EQ(drives->itemText(0), toDisplay(driveRoots().front()));
        drives->setCurrentIndex(0);
        drives->showPopup();
        QTest::keyClick(drives->view(), Qt::Key_Return);
        EXPECT_EQ(find<FolderList>(window, "dirFiles")->path(), driveRoots().front());
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(driveRoots().front()));
    });
}

TEST_F(ManageFARsTest, AGameThatIsNotThereIsReportedAndLeavesNoFolder) {
    SimsPath = Path("ERROR");
    manage([&](QWidget& window) {
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 76);
        EXPECT_EQ(recorder.reports()[0].procedure, "Form_Load");
        EXPECT_TRUE(find<FolderList>(window, "dirFiles")->path().empty());
        // Without a folder these two do nothing at all.
        click(window, "cmdExtractFile");
        click(window, "cmdImportFolder");
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(ManageFARsTest, WithoutAFolderNoFilesAreListed) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.root() / "pictures");
    SimsPath = Path("ERROR");
    manage([&](QWidget& window) {
        click(window, "cmdExtractFile");
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList());
    });
    std::filesystem::current_path(before);
}

TEST_F(ManageFARsTest, TheFolderTreeHasRoomAndGrowsWithTheWindow) {
    manage([](QWidget& window) {
        const auto* tree = find<FolderList>(window, "dirFiles");
        window.resize(window.minimumSizeHint());
        QTest::qWait(10);
        EXPECT_GE(tree->width(), 250);
        const QSize small = tree->size();
        window.resize(1400, 900);
        QTest::qWait(10);
        EXPECT_GE(tree->width(), small.width() + 200);
        EXPECT_GE(tree->height(), small.height() + 100);
    });
}

// Adding.

TEST_F(ManageFARsTest, AddsTheSelectedFilesAndTellsOfDuplicates) {
    folder.write("pictures/third.bmp", kRed);
    test::ArchiveEntry entry{"RED.bmp", kRed, {}};
    makeArchive("a.far", {entry});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        click(window, "cmdAddFile");
        EXPECT_EQ(rows(window), QStringList{"RED.bmp"});
        select(window, {0, 1, 2}, "lstBMPs");
        script.answer();
        click(window, "cmdAddFile");
        EXPECT_EQ(rows(window), (QStringList{"RED.bmp", "[NEW]  Green.BMP", "[NEW]  third.bmp"}));
        EXPECT_EQ(textOf(window, "txtCount"), "1");
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Duplicate File");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(script.messages()[0].text, "The file:\nRED.BMP\nalready exists in this FAR file.");
}

TEST_F(ManageFARsTest, MarkedRowsAndFoldersAreNoDuplicates) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}, {"Skins\\Green.BMP", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        goTo(window, "pictures");
        select(window, {0, 1}, "lstBMPs");
        click(window, "cmdAddFile");
        click(window, "cmdAddFile");
        EXPECT_EQ(rows(window),
                  (QStringList{"[DEL]  red.bmp", "Skins\\Green.BMP", "[NEW]  Green.BMP",
                               "[NEW]  red.bmp", "[NEW]  Green.BMP", "[NEW]  red.bmp"}));
        EXPECT_EQ(find<QListWidget>(window, "lstFiles")->item(0)->toolTip(), "[DEL]  red.bmp");
    });
    EXPECT_TRUE(script.messages().empty());
}

#ifndef _WIN32
// Names that Windows doesn't know.
TEST_F(ManageFARsTest, AFileWhoseNameCanBeNoEntrysCostsItselfAlone) {
    folder.write("pictures/a:b.bmp", kRed);
    folder.write("pictures/\xD1\x8F.bmp", kRed);
    folder.write("pictures/zebra.bmp", kRed);
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        const QStringList listed = rows(window, "lstBMPs");
        EXPECT_EQ(listed, (QStringList{"a:b.bmp", "Green.BMP", "red.bmp", "zebra.bmp", "?.bmp"}));
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdImportFolder");
        EXPECT_EQ(rows(window),
                  (QStringList{"[NEW]  Green.BMP", "[NEW]  red.bmp", "[NEW]  zebra.bmp"}));
        click(window, "cmdNew");
        list(window, "lstBMPs")->selectAll();
        script.answer();
        click(window, "cmdAddFile");
        EXPECT_EQ(rows(window),
                  (QStringList{"[NEW]  Green.BMP", "[NEW]  red.bmp", "[NEW]  zebra.bmp"}));
    });
    EXPECT_TRUE(recorder.reports().empty());
    ASSERT_EQ(script.messages().size(), 3U);
    for (const std::size_t message : {1U, 2U}) {
        EXPECT_EQ(script.messages()[message].title, "Files Left Out");
        EXPECT_EQ(script.messages()[message].icon, QMessageBox::Warning);
        EXPECT_EQ(script.messages()[message].text,
                  "Entries of a FAR file can not have the names of these files:\n"
                  "a:b.bmp\n?.bmp");
    }
}
#endif

TEST_F(ManageFARsTest, NewRowsAreScrolledIntoView) {
    makeArchive("a.far", std::vector<ArchiveEntry>(300, {"x.bmp", "", {}}));
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        const auto isSeen = [&](int row) {
            return list(window)->viewport()->rect().contains(
                list(window)->visualItemRect(list(window)->item(row)).center());
        };
        EXPECT_FALSE(isSeen(299));
        select(window, {0}, "lstBMPs");
        click(window, "cmdAddFile");
        EXPECT_TRUE(isSeen(300));
        list(window)->scrollToTop();
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        ASSERT_EQ(list(window)->count(), 303);
        EXPECT_TRUE(isSeen(302));
        // Where nothing is added nothing moves.
        list(window)->scrollToTop();
        folder.write("empty/none.txt", "");
        goTo(window, "empty");
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        EXPECT_TRUE(isSeen(0));
    });
}

TEST_F(ManageFARsTest, AddsAWholeFolderAfterAQuestion) {
    makeArchive("a.far", {{"red.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        script.answer(QMessageBox::No);
        click(window, "cmdImportFolder");
        EXPECT_EQ(rows(window), QStringList{"red.bmp"});
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        EXPECT_EQ(rows(window), (QStringList{"red.bmp", "[NEW]  Green.BMP"}));
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Add All Files In Folder");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text, "Add all of the BMP files in:\n" +
                                             toDisplay(folder.path("pictures")) +
                                             "\nto the current FAR file?\n\nAre you sure?");
}

// Deleting.

TEST_F(ManageFARsTest, DeletesAndUndeletes) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kRed, {}}, {"c.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        click(window, "cmdDelete");
        pick(window, "a.far");
        goTo(window, "pictures");
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        select(window, {0, 2, 3});
        click(window, "cmdDelete");
        EXPECT_EQ(rows(window),
                  (QStringList{"[DEL]  a.bmp", "b.bmp", "[DEL]  c.bmp", "[NEW]  red.bmp"}));
        EXPECT_EQ(selected(window), (QStringList{"[DEL]  a.bmp", "[DEL]  c.bmp"}));
        EXPECT_EQ(textOf(window, "txtCount"), "3");
        select(window, {0, 1, 3});
        click(window, "cmdUndelete");
        EXPECT_EQ(rows(window), (QStringList{"a.bmp", "b.bmp", "[DEL]  c.bmp", "[NEW]  red.bmp"}));
    });
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, EscClosesTheWindowWhileNothingIsPending) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        QTest::keyClick(list(window), Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdUndelete");
        goTo(window, "pictures");
        select(window, {0}, "lstBMPs");
        click(window, "cmdAddFile");
        QTest::keyClick(list(window, "lstBMPs"), Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        select(window, {1});
        click(window, "cmdDelete");
        QTest::keyClick(find<QLineEdit>(window, "txtFind"), Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(ManageFARsTest, ClosingDropsAllChangesWithoutAQuestion) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    const std::string before = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
    });
    EXPECT_EQ(archive("a.far"), before);
    EXPECT_TRUE(script.messages().empty());
}

// Extracting.

// Notes how the pointer looks while each file of a folder is written.
class PointerNotes : public test::FaultyFiles {
  public:
    PointerNotes() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (path.folder().fileName() == "out" && mode == OpenMode::Binary) {
            notes.append(QString::fromStdString(path.fileName()) +
                         (pointerIsBusy() ? " busy" : " idle"));
        }
        return FaultyFiles::open(path, mode);
    }

    QStringList notes;
};

TEST_F(ManageFARsTest, TheHourglassComesBackBehindAnyAnswer) {
    makeArchive("a.far",
                {{"a.bmp", "a", {}}, {"b.bmp", "b", {}}, {"c.bmp", "c", {}}, {"d.bmp", "d", {}}});
    folder.write("out/a.bmp", "mine");
    folder.write("out/c.bmp", "mine");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "out");
        select(window, {0, 1, 2, 3});
        script.answer(QMessageBox::No);
        script.answer(QMessageBox::Yes);
        script.answer();
        PointerNotes pointer;
        click(window, "cmdExtractFile");
        EXPECT_EQ(pointer.notes, (QStringList{"b.bmp busy", "c.bmp busy", "d.bmp busy"}));
    });
}

TEST_F(ManageFARsTest, ExtractsWhatIsSelectedAndAsksBeforeItOverwrites) {
    makeArchive("a.far", {{"Skins\\New.bmp", kRed, {}},
                          {"old.bmp", "0123456789", {}},
                          {"kept.bmp", "other", {}},
                          {"not me.bmp", "x", {}}});
    folder.write("out/OLD.BMP", std::string(100, 'x'));
    folder.write("out/kept.bmp", "mine");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        select(window, {1}, "lstBMPs");
        click(window, "cmdAddFile");
        goTo(window, "out");
        select(window, {0, 1, 2, 4});
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::No);
        script.answer();
        click(window, "cmdExtractFile");
        EXPECT_EQ(rows(window, "lstBMPs"), (QStringList{"kept.bmp", "New.bmp", "OLD.BMP"}));
        EXPECT_FALSE(pointerIsBusy());
    });
    EXPECT_EQ(folder.read("out/New.bmp"), kRed);
    EXPECT_EQ(folder.read("out/OLD.BMP"), "0123456789" + std::string(90, 'x'));
    EXPECT_EQ(folder.read("out/kept.bmp"), "mine");
    EXPECT_FALSE(folder.exists("out/red.bmp"));
    EXPECT_FALSE(folder.exists("out/not me.bmp"));
    ASSERT_EQ(script.messages().size(), 3U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text, "The file old.bmp already exists.\nOverwrite file?");
    EXPECT_EQ(script.messages()[1].text, "The file kept.bmp already exists.\nOverwrite file?");
    EXPECT_EQ(script.messages()[2].text, "Files extracted.");
    EXPECT_EQ(script.messages()[2].icon, QMessageBox::Information);
    EXPECT_FALSE(script.messages()[2].yesNo);
}

TEST_F(ManageFARsTest, ADeletedRowIsExtractedWithoutAQuestion) {
    makeArchive("a.far", {{"old.bmp", "0123456789", {}}});
    folder.write("out/old.bmp", std::string(20, 'x'));
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "out");
        select(window, {0});
        click(window, "cmdDelete");
        script.answer();
        click(window, "cmdExtractFile");
    });
    EXPECT_EQ(folder.read("out/old.bmp"), "0123456789xxxxxxxxxx");
}

TEST_F(ManageFARsTest, SaysThatItHasExtractedAlsoWithoutASelection) {
    manage([&](QWidget& window) {
        script.answer();
        click(window, "cmdExtractFile");
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].text, "Files extracted.");
}

TEST_F(ManageFARsTest, OfTwoEntriesOfOneNameTheSecondIsAskedFor) {
    makeArchive("a.far", {{"Skins\\face.bmp", "first", {}},
                          {"Other\\FACE.BMP", "second", {}},
                          {"Face.bmp", "third", {}}});
    folder.write("out/keep.txt", "");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "out");
        list(window)->selectAll();
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::No);
        script.answer();
        click(window, "cmdExtractFile");
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList{"face.bmp"});
    });
    EXPECT_EQ(folder.read("out/face.bmp"), "second");
    ASSERT_EQ(script.messages().size(), 3U);
    EXPECT_EQ(script.messages()[0].text, "The file FACE.BMP already exists.\nOverwrite file?");
    EXPECT_EQ(script.messages()[1].text, "The file Face.bmp already exists.\nOverwrite file?");
}

TEST_F(ManageFARsTest, ARedBarGrowsWhileItExtracts) {
    makeArchive(
        "a.far",
        {{"a.bmp", kRed, {}}, {"b.bmp", kRed, {}}, {"c.bmp", kRed, {}}, {"d.bmp", kRed, {}}});
    folder.write("out/keep.txt", "");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "out");
        select(window, {0, 1, 2, 3});
        const auto* bar = find<PictureBox>(window, "picStatus");
        BarWatcher watcher(*bar, "d.bmp");
        script.answer();
        click(window, "cmdExtractFile");
        expectBar(*bar, watcher, 3, 4);
        EXPECT_FALSE(bar->isVisible());
        EXPECT_FALSE(pointerIsBusy());
    });
    EXPECT_EQ(folder.read("out/d.bmp"), kRed);
}

TEST_F(ManageFARsTest, KeepsTheShownPathWhenItFillsTheDiskSideAnew) {
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        folder.write("pictures/later.bmp", kRed);
        select(window, {0}, "lstBMPs");
        EXPECT_EQ(colourOf(window, "picLooseBMP"), 0x00FF00U);
        find<QLineEdit>(window, "txtPath")->setText(toDisplay(folder.path("game")));
        folder.write("game/only.bmp", kRed);
        script.answer();
        click(window, "cmdExtractFile");
        EXPECT_EQ(textOf(window, "txtPath"), toDisplay(folder.path("game")));
        EXPECT_EQ(rows(window, "lstBMPs"), QStringList{"only.bmp"});
        EXPECT_EQ(colourOf(window, "picLooseBMP"), 0xFFFFFFFFU);
    });
}

TEST_F(ManageFARsTest, NamesNeverLeaveTheFolderThatWasPicked) {
    makeArchive("a.far", {{"..\\..\\over.bmp", "over", {}},
                          {"../under.bmp", "under", {}},
                          {"..", "dots", {}},
                          {"C:drive.bmp", "drive", {}},
                          {"good.bmp", "good", {}}});
    folder.write("deep/out/here.txt", "");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "deep/out");
        list(window)->selectAll();
        script.answer();
        click(window, "cmdExtractFile");
    });
    EXPECT_EQ(folder.read("deep/out/over.bmp"), "over");
    EXPECT_EQ(folder.read("deep/out/good.bmp"), "good");
    EXPECT_FALSE(folder.exists("over.bmp"));
    EXPECT_FALSE(folder.exists("deep/under.bmp"));
    ASSERT_EQ(recorder.reports().size(), 3U);
    for (const test::Report& report : recorder.reports()) {
        EXPECT_EQ(report.number, 52);
        EXPECT_EQ(report.procedure, "gsExtractFile");
    }
}

// As a drive's root does.
TEST_F(ManageFARsTest, AFolderMayEndInABackslash) {
    makeArchive("a.far", {{"x.bmp", "data", {}}});
    const Path path = folder.path("game\\gamedata\\textures\\a.far");
    FarDirectory directory;
    ASSERT_TRUE(gsReadFARdir(directory, path));
    folder.write("out/keep.txt", "");
    ASSERT_TRUE(gsExtractFile(path, folder.path("out\\"), directory, 1));
    EXPECT_EQ(folder.read("out/x.bmp"), "data");
}

// Saving.

TEST_F(ManageFARsTest, SavesAnEditedArchive) {
    makeArchive("a.far", {{"Skins\\a.bmp", kRed, 9},
                          {"b.bmf", "mesh", {}},
                          {"c.bmp", "gone", {}},
                          {"d.bmp", "stays", {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        select(window, {2, 3});
        click(window, "cmdDelete");
        select(window, {3});
        click(window, "cmdUndelete");
        select(window, {0, 2, 5});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(rows(window),
                  (QStringList{"Skins\\a.bmp", "b.bmf", "d.bmp", "Green.BMP", "red.bmp"}));
        EXPECT_EQ(textOf(window, "txtCount"), "5");
        EXPECT_EQ(textOf(window, "txtFarFile"),
                  toDisplay(SimsPath + "\\gamedata\\textures\\a.far"));
        EXPECT_FALSE(find<QWidget>(window, "picStatus")->isVisible());
        EXPECT_FALSE(pointerIsBusy());
        // Neither the picture nor the selection of what is still there goes.
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        EXPECT_EQ(selected(window), (QStringList{"Skins\\a.bmp", "red.bmp"}));
    });
    EXPECT_EQ(entriesOfArchive(archive("a.far")),
              (std::vector<ArchiveEntry>{{"Skins\\a.bmp", kRed, 9},
                                         {"b.bmf", "mesh", 4},
                                         {"d.bmp", "stays", 5},
                                         {"Green.BMP", kGreen, 246},
                                         {"red.bmp", kRed, 246}}));
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[1].title, "Success");
    EXPECT_EQ(script.messages()[1].text, "File Saved.");
    EXPECT_EQ(script.messages()[1].icon, QMessageBox::Information);
    EXPECT_TRUE(scratchFiles().empty());
}

TEST_F(ManageFARsTest, WhatASaveReplacesIsKeptUnderTheArchivesName) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kBlue, {}}});
    const std::string old = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {1});
        click(window, "cmdDelete");
        script.answer();
        click(window, "cmdSave");
    });
    const History history(historyPlaces());
    const std::vector<HistoryEntry> entries = history.entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].about.command + " " + entries[0].about.name, "Save archive a.far");
    EXPECT_TRUE(readWholeFile(history.keptFile(entries[0], entries[0].about.records.at(0))) == old);
    EXPECT_EQ(entries[0].about.records[0].changes, "Deleted: b.bmp");
}

// One MiB is the least that can be set.
TEST_F(ManageFARsTest, AnArchiveAboveTheBoundIsReplacedOnlyIfThePersonWantsTo) {
    writeSetting(setting::kHistoryArchiveSize, "1");
    makeArchive("a.far", {{"a.bmp", std::string(1 << 20, 'x'), {}}, {"b.bmp", kBlue, {}}});
    const std::string old = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {1});
        click(window, "cmdDelete");
        script.whenShown(QString(), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        click(window, "cmdSave");
        EXPECT_TRUE(archive("a.far") == old);
        EXPECT_FALSE(find<QWidget>(window, "picStatus")->isVisible());
        EXPECT_FALSE(pointerIsBusy());
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
    });
    ASSERT_EQ(script.messages().size(), 3U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(
        script.messages()[0].text,
        "The file:\n" + toDisplay(SimsPath + "\\gamedata\\textures\\a.far") +
            "\nis larger than all that is kept of earlier archives. Saving it can not be taken "
            "back. Save anyway?");
    EXPECT_EQ(entriesOfArchive(archive("a.far")).size(), 1U);
    EXPECT_TRUE(History(historyPlaces()).entries().empty());
}

TEST_F(ManageFARsTest, AnArchiveThatCannotBeKeptIsReplacedOnlyIfThePersonWantsTo) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kBlue, {}}});
    folder.write("program/History", "a file");
    const std::string old = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {1});
        click(window, "cmdDelete");
        script.whenShown(QString(), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        click(window, "cmdSave");
        EXPECT_TRUE(archive("a.far") == old);
        EXPECT_FALSE(find<QWidget>(window, "picStatus")->isVisible());
        EXPECT_FALSE(pointerIsBusy());
        EXPECT_EQ(rows(window), (QStringList{"a.bmp", "[DEL]  b.bmp"}));
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(entriesOfArchive(archive("a.far")).size(), 1U);
}

TEST_F(ManageFARsTest, AnArchiveThatCannotBeProvenTakesNoName) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kBlue, {}}});
    const std::string old = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        const test::LyingDisk disk(16);
        click(window, "cmdSave");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 321);
        EXPECT_EQ(recorder.reports()[0].module, "frmManageFARs");
        EXPECT_EQ(recorder.reports()[0].procedure, "msSaveFile");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 7000);
        EXPECT_TRUE(archive("a.far") == old);
    });
}

TEST_F(ManageFARsTest, AnEmptyListIsNotSaved) {
    manage([](QWidget& window) {
        click(window, "cmdSave");
        EXPECT_EQ(CheckpointNumber, 1000);
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(ManageFARsTest, AnArchiveSavedEmptyIsRefusedLater) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(rows(window), QStringList());
        EXPECT_EQ(textOf(window, "txtCount"), "0");
        EXPECT_EQ(archive("a.far").size(), 20U);
        pick(window, "a.far", true);
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[1].title, "File Load Error");
}

TEST_F(ManageFARsTest, ANewArchiveAsksForItsName) {
    folder.write(std::string(test::kTextures) + "there.far", "something else");
    manage([&](QWidget& window) {
        goTo(window, "pictures");
        script.answer(QMessageBox::Yes);
        click(window, "cmdImportFolder");
        script.whenShown("inputBox", [](QWidget& box) {
            EXPECT_EQ(box.windowTitle(), "Save FAR File As");
            EXPECT_EQ(qobject_cast<QInputDialog*>(&box)->labelText(),
                      "Enter the name to save the file as.");
            qobject_cast<QInputDialog*>(&box)->reject();
        });
        click(window, "cmdSave");
        script.whenShown("inputBox", [](QWidget& box) {
            QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        click(window, "cmdSave");
        EXPECT_EQ(rows(window), (QStringList{"[NEW]  Green.BMP", "[NEW]  red.bmp"}));
        script.whenShown("inputBox", [](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), "There.Far");
            QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(textOf(window, "txtFarFile"),
                  toDisplay(SimsPath + "\\gamedata\\textures\\There.Far"));
        // From now on the archive has its name and nobody asks.
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(entriesOfArchive(archive("there.far")),
              (std::vector<ArchiveEntry>{{"Green.BMP", kGreen, 246}, {"red.bmp", kRed, 246}}));
}

TEST_F(ManageFARsTest, ARedBarGrowsWhileItSaves) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kRed, {}}, {"c.bmp", kRed, {}}});
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        select(window, {1}, "lstBMPs");
        click(window, "cmdAddFile");
        const auto* bar = find<PictureBox>(window, "picStatus");
        // Three of four steps are done when the new file is opened.
        BarWatcher watcher(*bar, "red.bmp");
        script.answer();
        click(window, "cmdSave");
        expectBar(*bar, watcher, 3, 4);
    });
}

TEST_F(ManageFARsTest, ASaveWhoseTemporaryFileStaysShowsTheNewArchive) {
    makeArchive("a.far", {{"a.bmp", "aaaaa", {}}, {"b.bmp", "bb", {}}, {"red.bmp", kRed, {}}});
    const std::vector<ArchiveEntry> expected = {{"b.bmp", "bb", 2}, {"red.bmp", kRed, 246}};
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        select(window, {1});
        {
            const RefusedStep refused(RefusedStep::RemovingTheTemporaryFile);
            click(window, "cmdSave");
        }
        EXPECT_EQ(rows(window), (QStringList{"b.bmp", "red.bmp"}));
        EXPECT_EQ(selected(window), QStringList{"b.bmp"});
        EXPECT_EQ(textOf(window, "txtCount"), "2");
        EXPECT_EQ(entriesOfArchive(archive("a.far")), expected);
        select(window, {1});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(entriesOfArchive(archive("a.far")), expected);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 70);
    EXPECT_EQ(recorder.reports()[0].procedure, "msSaveFile");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 8000);
}

TEST_F(ManageFARsTest, RowsAndListKeepInStepWhenReadingBackFails) {
    makeArchive("a.far", {{"a.bmp", "a", {}}, {"b.bmp", "b", {}}, {"red.bmp", kRed, {}}});
    std::string saved;
    manage([&](QWidget& window) {
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        {
            const RefusedStep refused(RefusedStep::ReadingBack);
            click(window, "cmdSave");
        }
        saved = archive("a.far");
        EXPECT_EQ(rows(window), (QStringList{"b.bmp", "red.bmp"}));
        EXPECT_EQ(textOf(window, "txtCount"), "2");
        select(window, {1});
        EXPECT_EQ(colourOf(window, "picFARBMP"), 0xFF0000U);
        click(window, "cmdDelete");
        EXPECT_EQ(rows(window), (QStringList{"b.bmp", "[DEL]  red.bmp"}));
        script.answer();
        click(window, "cmdSave");
        // Read anew, it can be saved again.
        pick(window, "a.far");
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(archive("a.far"), saved);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 70);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadFARdir");
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "File Save Error");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(script.messages()[0].text, "The file " +
                                             toDisplay(SimsPath + "\\gamedata\\textures\\a.far") +
                                             "\n can not be saved. Reading it has failed.");
    EXPECT_EQ(script.messages()[1].text, "File Saved.");
}

TEST_F(ManageFARsTest, AnArchiveWhoseReadingFailedIsNotSaved) {
    const std::string bad = test::archiveHead(17) + "x" + test::little32(2) +
                            test::archiveRecord(1, 1, 16, "x.bmp") + std::string(16, '\xFF');
    folder.write(std::string(test::kTextures) + "bad.far", bad);
    manage([&](QWidget& window) {
        pick(window, "bad.far");
        EXPECT_EQ(rows(window), QStringList{"x.bmp"});
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(archive("bad.far"), bad);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 5);
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "File Save Error");
}

TEST_F(ManageFARsTest, AsksBeforeASaveThatLosesEntriesThatCouldNotBeRead) {
    const std::string records =
        test::archiveRecord(2, 2, 16, "one.bmp") + test::archiveRecord(2, 2, 16, "two.bmp");
    const std::string cut = test::archiveHead(18) + "xy" + test::little32(12345) + records +
                            test::archiveRecord(2, 2, 16, "three.bmp").substr(0, 20);
    folder.write(std::string(test::kTextures) + "cut.far", cut);
    manage([&](QWidget& window) {
        pick(window, "cut.far");
        EXPECT_EQ(rows(window), (QStringList{"one.bmp", "two.bmp"}));
        // "No" is what Enter means.
        script.whenShown(QString(), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        click(window, "cmdSave");
        EXPECT_EQ(archive("cut.far"), cut);
        EXPECT_EQ(rows(window), (QStringList{"one.bmp", "two.bmp"}));
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
        // Now it holds what it announces.
        script.answer();
        click(window, "cmdSave");
    });
    EXPECT_EQ(entriesOfArchive(archive("cut.far")),
              (std::vector<ArchiveEntry>{{"one.bmp", "xy", 2}, {"two.bmp", "xy", 2}}));
    ASSERT_EQ(script.messages().size(), 4U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text,
              "The file cut.far announces 12345 entries, but only 2 of them can be read.\n"
              "Saving it loses the others.\nAre You Sure?");
    EXPECT_EQ(script.messages()[2].text, "File Saved.");
    EXPECT_EQ(script.messages()[3].text, "File Saved.");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ManageFARsTest, AFailedSaveLeavesTheArchiveAndEverythingAsItStands) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}});
    const std::string before = archive("a.far");
    manage([&](QWidget& window) {
        pick(window, "a.far");
        goTo(window, "pictures");
        select(window, {1}, "lstBMPs");
        click(window, "cmdAddFile");
        std::filesystem::remove(folder.root() / "pictures/red.bmp");
        click(window, "cmdSave");
        EXPECT_EQ(rows(window), (QStringList{"a.bmp", "[NEW]  red.bmp"}));
        EXPECT_TRUE(find<QWidget>(window, "picStatus")->isVisible());
        EXPECT_TRUE(pointerIsBusy());
        EXPECT_EQ(scratchFiles(), std::vector<std::string>{"tempfile.far"});
        folder.write("pictures/red.bmp", kRed);
        click(window, "cmdSave");
    });
    ASSERT_EQ(recorder.reports().size(), 2U);
    EXPECT_EQ(recorder.reports()[0].number, 53);
    EXPECT_EQ(recorder.reports()[0].module, "frmManageFARs");
    EXPECT_EQ(recorder.reports()[0].procedure, "msSaveFile");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 5000);
    EXPECT_EQ(recorder.reports()[1].number, 55);
    EXPECT_EQ(recorder.reports()[1].checkpoint, 3000);
    EXPECT_EQ(archive("a.far"), before);
    EXPECT_TRUE(script.messages().empty());
}

// The game keeps its archives open.
TEST_F(ManageFARsTest, ASaveWhileTheGameRunsAsksBeforeItWritesAnything) {
    makeArchive("a.far", {{"a.bmp", kRed, {}}, {"b.bmp", kGreen, {}}});
    const std::string before = archive("a.far");
    manage([&](QWidget& window) {
        setRunningPrograms([] { return std::vector<RunningProgram>{{7, "Sims.exe"}}; });
        pick(window, "a.far");
        select(window, {0});
        click(window, "cmdDelete");
        script.whenShown(QString(), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(archive("a.far"), before);
        EXPECT_EQ(rows(window), (QStringList{"[DEL]  a.bmp", "b.bmp"}));
        EXPECT_FALSE(folder.exists("program/temp/tempfile.far"));
        EXPECT_FALSE(pointerIsBusy());
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
        EXPECT_EQ(rows(window), QStringList{"b.bmp"});
    });
    ASSERT_EQ(script.messages().size(), 3U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].text, "The Sims is running. Save anyway?");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[2].text, "File Saved.");
    EXPECT_EQ(entriesOfArchive(archive("a.far")),
              (std::vector<ArchiveEntry>{{"b.bmp", kGreen, 246}}));
}

}  // namespace
}  // namespace marlowick
