// Clothes as they are worn, in the four windows that show them, clicked and typed as a person does.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <map>

#include "browser/frmMain.h"
#include "catalogue/frmSelectSkin.h"
#include "catalogue/model_catalogue.h"
#include "foundation/error_trap.h"
#include "preview/worn_view.h"
#include "support/archive_builder.h"
#include "support/chooser_driver.h"
#include "support/error_recorder.h"
#include "support/user_file_builder.h"
#include "support/worn_game.h"
#include "system/streams.h"
#include "wardrobe/frmEditPet.h"
#include "wardrobe/frmEditSim.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::bitmapFile;
using test::click;
using test::clickCell;
using test::clickLine;
using test::find;
using test::halvesBitmap;

constexpr unsigned kBlue = 0x2040E0;
constexpr unsigned kRed = 0xE02020;
constexpr unsigned kGreen = 0x20C020;

const std::string kSkins = "game/GameData/Skins/";

class WornWindowsTest : public test::WindowTest {
  protected:
    WornWindowsTest() {
        resetModelCatalogue();
        std::filesystem::create_directories(folder.program() / "temp");
        test::installGame(folder);
        test::writeBodies(folder, {"b001fafit_01", "b002fafit_01", "f100fafit_01", "b001dog_01"});
        test::writeHead(folder, "C003FA_x", "c003falgt_x", kGreen);
        test::writeHand(folder, "HfLO", "huaolgt", kGreen, true);
        test::writeHand(folder, "HfRO", "unused", kGreen, false);
        skin("b001fafitlgt_01", kBlue, kRed);
        skin("b002fafitlgt_a", kGreen, kRed);
        skin("b002fafitlgt_b", kRed, kGreen);
        skin("f100fafitlgt_01", kBlue, kRed);
        skin("b001dog_coat", kBlue, kRed);
        for (int i = 1; i <= 35; ++i) {
            rows.push_back("row " + std::to_string(i));
        }
        set(1, "adult");
        set(2, "b001fafit_01,BODY=b001fafitlgt_01");
        set(3, "C003FA_x,HEAD-HEAD=c003falgt_x");
        set(13, "female");
        set(15, "lgt");
        set(16, "b001fafit_01,BODY=b001fafitlgt_01");
        for (const int row : {18, 19, 20, 21, 22, 23}) {
            set(row, "HfLO,HAND=huaolgt");
        }
        set(19, "HfRO,HAND=nowhere");
        set(29, "");
        set(30, "");
        set(31, "f100fafit_01,BODY=f100fafitlgt_01");
        set(32, "b999fafit_01,BODY=b001fafitlgt_01");  // no such body
        set(33, "b001fafit_01,BODY=nowhere");
        set(34, ",BODY=b002fafitlgt_b");
        set(35, ",BODY=");
    }
    ~WornWindowsTest() override { resetModelCatalogue(); }

    void skin(const std::string& name, unsigned left, unsigned right) {
        folder.write(kSkins + name + ".bmp", halvesBitmap(left, right));
    }
    void set(int row, const std::string& text) { rows[static_cast<std::size_t>(row) - 1] = text; }

    void openSim(std::function<void(QWidget&)> action) {
        folder.write(kFile, test::simFile(rows));
        auto& editor = theWindow<frmEditSim>();
        editor.LoadUserFile = folder.path("game\\UserData\\characters\\user00001.iff");
        editor.BackupWanted = false;
        script.whenShown("frmEditSim", std::move(action));
        editor.showModal();
        EXPECT_TRUE(script.isDone());
    }
    void openPet(std::function<void(QWidget&)> action) {
        set(1, "dog");
        set(2, "b001dog_01,BODY=b001dog_coat");
        set(13, "dogmale");
        folder.write(kFile, test::simFile(rows));
        auto& editor = theWindow<frmEditPet>();
        editor.LoadUserFile = folder.path("game\\UserData\\characters\\user00001.iff");
        editor.BackupWanted = false;
        script.whenShown("frmEditPet", std::move(action));
        editor.showModal();
        EXPECT_TRUE(script.isDone());
    }
    frmMain& showMain() {
        folder.write(kFile, test::simFile(rows));
        auto& window = theWindow<frmMain>();
        window.showMain();
        find<ClickList>(window, "lstUserDataDir")->setCurrentRow(0);
        return window;
    }

    static WornView& viewOf(QWidget& window) { return *find<WornView>(window, "wornView"); }
    static void choose(QWidget& window, const char* option) {
        auto* button = find<QRadioButton>(window, option);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, {6, button->height() / 2});
    }
    static void goToTab(QWidget& window, int tab) {
        QTabBar* bar = find<QTabWidget>(window, "tabSkins")->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(tab).center());
        EXPECT_EQ(find<QTabWidget>(window, "tabSkins")->currentIndex(), tab);
    }
    static bool showsBitmap(QWidget& window, const char* picture) {
        return find<PictureBox>(window, picture)->picture().size() == QSize(8, 1);
    }

    static constexpr const char* kFile = "game/UserData/Characters/user00001.iff";
    std::vector<std::string> rows;
};

// The wardrobe window.

TEST_F(WornWindowsTest, TheWardrobeShowsTheNormalOutfitWornAtOnce) {
    openSim([](QWidget& window) {
        EXPECT_TRUE(find<QRadioButton>(window, "optWorn")->isChecked());
        EXPECT_EQ(find<QRadioButton>(window, "optWorn")->text(), "Worn");
        EXPECT_EQ(find<QRadioButton>(window, "optSkin")->text(), "Skin");
        WornView& view = viewOf(window);
        ASSERT_TRUE(view.isVisible());
        // Over the picture, which is filled as ever.
        EXPECT_EQ(view.parentWidget(), find<PictureBox>(window, "picNormal"));
        EXPECT_EQ(view.size(), find<PictureBox>(window, "picNormal")->size());
        EXPECT_TRUE(showsBitmap(window, "picNormal"));
        // The left arm is red and at the right; head and hand are green.
        EXPECT_GT(test::redSeen(view).right, 300);
        EXPECT_EQ(test::redSeen(view).left, 0);
        EXPECT_GT(test::greenSeen(view).top, 300);
        EXPECT_EQ(view.accessibleName(),
                  "Normal outfit worn: body b001fafit_01, skin b001fafitlgt_01, with head and left "
                  "hand, seen from the front");
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, SkinShowsTheFlatPictureInEveryOutfitsTab) {
    openSim([](QWidget& window) {
        choose(window, "optSkin");
        EXPECT_FALSE(viewOf(window).isVisible());
        EXPECT_EQ(readSetting("Skin View"), "Skin");
        goToTab(window, 2);
        EXPECT_FALSE(viewOf(window).isVisible());
        choose(window, "optWorn");
        EXPECT_EQ(readSetting("Skin View"), "Worn");
        EXPECT_TRUE(viewOf(window).isVisible());
        EXPECT_EQ(viewOf(window).parentWidget(), find<PictureBox>(window, "picFormal"));
        goToTab(window, 0);
        EXPECT_TRUE(viewOf(window).isVisible());
        EXPECT_EQ(viewOf(window).parentWidget(), find<PictureBox>(window, "picNormal"));
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheOptionsStandAtTheRightEndOfTheTabsRowButNotOnTheHands) {
    openSim([](QWidget& window) {
        const auto* tabs = find<QTabWidget>(window, "tabSkins");
        const auto placeOf = [&](const QWidget* control) {
            return QRect(control->mapTo(&window, QPoint(0, 0)), control->size());
        };
        for (int tab = 0; tab < 8; ++tab) {
            goToTab(window, tab);
            for (const char* option : {"optWorn", "optSkin"}) {
                auto* button = find<QRadioButton>(window, option);
                EXPECT_EQ(button->isVisible(), tab < 7) << tab;
                const QRect row = placeOf(tabs->tabBar());
                EXPECT_GT(placeOf(button).left(), row.left() + row.width());
                EXPECT_LE(placeOf(button).right(), placeOf(tabs).right());
                EXPECT_TRUE(row.adjusted(0, -2, 1000, 2).contains(placeOf(button)));
            }
            EXPECT_EQ(viewOf(window).isVisible() && tab == 7, false);
        }
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, WithoutAFigureTheFlatPictureShowsAndTheAccessibleTextSaysSo) {
    openSim([](QWidget& window) {
        struct Tab {
            int tab;
            const char* picture;
            const char* why;
        };
        for (const Tab& row : {Tab{1, "picSwimsuit", "no mesh of this body"},
                               Tab{3, "picPajamas", "the skin can not be displayed"},
                               Tab{6, "picFashion", "no clothes"}}) {
            goToTab(window, row.tab);
            EXPECT_FALSE(viewOf(window).isVisible()) << row.tab;
            EXPECT_TRUE(find<QRadioButton>(window, "optWorn")->isVisible());
            EXPECT_TRUE(find<QRadioButton>(window, "optSkin")->isVisible());
            auto* flat = find<PictureBox>(window, row.picture);
            EXPECT_TRUE(flat->isVisible());
            EXPECT_TRUE(flat->accessibleDescription().contains(row.why))
                << flat->accessibleDescription().toStdString();
            EXPECT_TRUE(viewOf(window).accessibleName().contains("No figure"));
            // The same card, if the skin can't be loaded, in both.
            const QImage worn = flat->grab().toImage();
            choose(window, "optSkin");
            EXPECT_EQ(flat->grab().toImage(), worn);
            EXPECT_TRUE(flat->accessibleDescription().isEmpty());
            choose(window, "optWorn");
        }
        // An outfit without a body is worn on the normal one's.
        goToTab(window, 5);
        EXPECT_TRUE(viewOf(window).isVisible());
        EXPECT_GT(test::redSeen(viewOf(window)).left, 300);
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, MouseAndKeysTurnTheFigureInTheWindow) {
    openSim([](QWidget& window) {
        WornView& view = viewOf(window);
        const QPoint middle = view.rect().center();
        QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, middle);
        EXPECT_EQ(window.focusWidget(), &view);
        QMouseEvent move(QEvent::MouseMove, middle + QPoint(40, 0),
                         view.mapToGlobal(middle + QPoint(40, 0)), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, middle + QPoint(40, 0));
        EXPECT_GT(view.view().yaw, 20);
        EXPECT_LT(view.view().yaw, 35);
        QTest::keyClick(window.focusWidget(), Qt::Key_Home);
        EXPECT_EQ(view.view().yaw, 0);
        QTest::keyClick(window.focusWidget(), Qt::Key_Left);
        EXPECT_EQ(view.view().yaw, 345);
        // The pose stays from tab to tab.
        goToTab(window, 2);
        EXPECT_EQ(view.view().yaw, 345);
        // By keys alone: to the options and on to the figure.
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        find<QTabWidget>(window, "tabSkins")->tabBar()->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), "optWorn");
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget(), &view);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
}

TEST_F(WornWindowsTest, FormalHandsAreWornWithTheFormalOutfitAlone) {
    test::writeHand(folder, "HfRO", "gfao_bride", kRed, false);
    set(29, "HfLO,HAND=gfao_bride");
    set(30, "HfRO,HAND=gfao_bride");
    openSim([](QWidget& window) {
        EXPECT_EQ(test::redSeen(viewOf(window)).left, 0);
        goToTab(window, 2);
        EXPECT_GT(test::redSeen(viewOf(window)).left, 30);
        EXPECT_TRUE(viewOf(window).accessibleName().contains("with head and hands"));
        // What the fields hold goes before the rows.
        goToTab(window, 7);
        click(window, "cmdCopyFormalLeft");
        goToTab(window, 2);
        EXPECT_GT(test::redSeen(viewOf(window)).left, 30);
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, AChoiceIsSeenWornBeforeItIsSaved) {
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        QTest::keyClick(&viewOf(window), Qt::Key_Right);
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            clickCell(chooser, 1);
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(test::textOf(window, "txtNormalSkin"), "b002fafitlgt_b");
        EXPECT_GT(test::redSeen(viewOf(window)).left, 300);
        EXPECT_EQ(viewOf(window).view().yaw, 15);
        EXPECT_EQ(folder.read(kFile), test::simFile(rows));
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, AChoiceThatCantBeLoadedShowsTheCardInBoth) {
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        const test::ErrorRecorder recorder;
        script.whenShown("frmSelectSkin", [this](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            folder.write(kSkins + "b002fafitlgt_a.bmp", "no bitmap any more");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(test::textOf(window, "txtNormalSkin"), "b002fafitlgt_a");
        EXPECT_FALSE(viewOf(window).isVisible());
        EXPECT_EQ(find<PictureBox>(window, "picNormal")->picture(),
                  find<PictureBox>(window, "picNotFound")->picture());
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, AnEnsembleIsSeenWornOnceItIsLoaded) {
    std::filesystem::create_directories(folder.program() / "ENS");
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        script.whenShown("frmENS", [](QWidget& ensembles) {
            find<QLineEdit>(ensembles, "txtFileName")->setText("blue");
            click(ensembles, "cmdSaveLoad");
        });
        click(window, "cmdEnsSave");
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(test::blueSeen(viewOf(window)).all(), 0);
        script.whenShown("frmENS", [](QWidget& ensembles) {
            auto* list = find<QListWidget>(ensembles, "flbENS");
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                              list->visualItemRect(list->item(0)).center());
            click(ensembles, "cmdSaveLoad");
        });
        click(window, "cmdEnsLoad");
        EXPECT_GT(test::blueSeen(viewOf(window)).all(), 2000);
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheOptionsAreChosenByKeysToo) {
    openSim([](QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        find<QRadioButton>(window, "optWorn")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Right);
        EXPECT_TRUE(find<QRadioButton>(window, "optSkin")->isChecked());
        EXPECT_FALSE(viewOf(window).isVisible());
        QTest::keyClick(window.focusWidget(), Qt::Key_Left);
        EXPECT_TRUE(viewOf(window).isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, ADefaultThatIsOnlyInAnArchiveShowsTheCardInBoth) {
    test::writeBodies(folder, {"s100fafit_original"});
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"s100fafitlgt_original.bmp", halvesBitmap(kBlue, kRed), {}}}));
    openSim([this](QWidget& window) {
        goToTab(window, 1);
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        EXPECT_EQ(test::textOf(window, "txtSwimsuitBody"), "s100fafit_original");
        EXPECT_FALSE(viewOf(window).isVisible());
        skin("s100fafitlgt_original", kBlue, kRed);
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        EXPECT_TRUE(viewOf(window).isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, AChildsAdultOutfitsShowTheirCardInBoth) {
    set(1, "child");
    openSim([](QWidget& window) {
        goToTab(window, 2);
        EXPECT_FALSE(viewOf(window).isVisible());
        EXPECT_EQ(find<PictureBox>(window, "picFormal")->picture(),
                  find<PictureBox>(window, "picChild")->picture());
        goToTab(window, 0);
        EXPECT_TRUE(viewOf(window).isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, LookingWritesNothingAndReportsNothing) {
    folder.write(kSkins + "xskin-C003FA_x.skn", "no mesh");
    openSim([this](QWidget& window) {
        const test::ErrorRecorder recorder;
        const auto contents = [&] {
            std::map<std::string, std::filesystem::file_time_type> all;
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.root())) {
                // The settings are written at each choice.
                if (entry.path().extension() != ".ini" && !entry.is_directory()) {
                    all[entry.path().generic_string()] = entry.last_write_time();
                }
            }
            return all;
        };
        const auto before = contents();
        CheckpointNumber = 4321;
        const Slot free = streams().freeSlot();
        for (int tab = 0; tab < 8; ++tab) {
            goToTab(window, tab);
        }
        goToTab(window, 0);
        EXPECT_TRUE(viewOf(window).accessibleName().contains("with left hand"));
        choose(window, "optSkin");
        choose(window, "optWorn");
        EXPECT_EQ(contents(), before);
        EXPECT_EQ(CheckpointNumber, 4321);
        EXPECT_EQ(streams().freeSlot(), free);
        EXPECT_TRUE(recorder.reports().empty());
        click(window, "cmdCancel");
    });
}

// The chooser.

TEST_F(WornWindowsTest, TheChooserShowsAPagesFirstCellAndKeepsThePoseFromClickToClick) {
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            WornView& view = viewOf(chooser);
            EXPECT_TRUE(find<QRadioButton>(chooser, "optWorn")->isVisible());
            EXPECT_FALSE(view.isVisible());
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            ASSERT_TRUE(view.isVisible());
            EXPECT_EQ(view.geometry(), QRect(QPoint(0, 0), QSize(261, 261)));
            EXPECT_TRUE(view.accessibleName().contains("skin b002fafitlgt_a, with head and left"));
            EXPECT_GT(test::greenSeen(view).all(), 2000);
            QTest::keyClick(&view, Qt::Key_Right);
            // Counts what would be seen as a flicker.
            class Flicker : public QObject {
              public:
                int times = 0;
                bool eventFilter(QObject*, QEvent* event) override {
                    times += event->type() == QEvent::Hide || event->type() == QEvent::Show ||
                                     event->type() == QEvent::ParentChange
                                 ? 1
                                 : 0;
                    return false;
                }
            } flicker;
            view.installEventFilter(&flicker);
            clickCell(chooser, 1);
            EXPECT_EQ(flicker.times, 0);
            EXPECT_EQ(view.view().yaw, 15);
            EXPECT_GT(test::redSeen(view).left, 300);
            EXPECT_TRUE(view.accessibleName().contains("skin b002fafitlgt_b"));
            // The flat picture below it is the chosen one, as ever.
            EXPECT_TRUE(showsBitmap(chooser, "picSkin"));
            view.removeEventFilter(&flicker);
            // One setting for all windows.
            choose(chooser, "optSkin");
            EXPECT_FALSE(view.isVisible());
            click(chooser, "cmdCancel");
        });
        click(window, "cmdChangeNormal");
        EXPECT_TRUE(find<QRadioButton>(window, "optSkin")->isChecked());
        EXPECT_FALSE(viewOf(window).isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheFirstCellOfEachPageCountsAsChosen) {
    for (int i = 0; i < 50; ++i) {
        skin("b002fafitlgt_n" + std::to_string(100 + i), i == 47 ? kBlue : kGreen, kRed);
    }
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            clickCell(chooser, 3);
            EXPECT_EQ(test::blueSeen(viewOf(chooser)).all(), 0);
            // Two skins come before those fifty.
            click(chooser, "cmdNext");
            EXPECT_GT(test::blueSeen(viewOf(chooser)).all(), 2000);
            EXPECT_TRUE(viewOf(chooser).accessibleName().contains("skin b002fafitlgt_n147"));
            click(chooser, "cmdCancel");
        });
        click(window, "cmdChangeNormal");
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheBodyThatCantBeDrawnLeavesTheChoosersFlatPicture) {
    folder.write(kSkins + "xskin-b002fafit_01.skn", "mesh\nx\n1\nROOT\n1\n0 1 2\n");
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B001FAFIT_01");
            EXPECT_TRUE(viewOf(chooser).isVisible());
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            EXPECT_FALSE(viewOf(chooser).isVisible());
            EXPECT_TRUE(showsBitmap(chooser, "picSkin"));
            EXPECT_TRUE(find<PictureBox>(chooser, "picSkin")
                            ->accessibleDescription()
                            .contains("no mesh of this body"));
            click(chooser, "cmdCancel");
        });
        click(window, "cmdChangeNormal");
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheChooserShowsEntriesOfArchivesToo) {
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"b002fafitlgt_p.bmp", halvesBitmap(kRed, kGreen), {}},
                                    {"b002fafitlgt_q.bmp", halvesBitmap(kGreen, kRed), {}}}));
    gsBuildModelCatalogue();
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            test::lookInArchives(chooser);
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            EXPECT_GT(test::redSeen(viewOf(chooser)).left, 300);
            clickCell(chooser, 1);
            EXPECT_EQ(test::redSeen(viewOf(chooser)).left, 0);
            EXPECT_GT(test::redSeen(viewOf(chooser)).right, 300);
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_GT(test::redSeen(viewOf(window)).right, 300);
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheChooserOfHandsHasNoSuchOptions) {
    folder.write(kSkins + "huao_test.bmp", bitmapFile(8, 8, kGreen));
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            EXPECT_FALSE(find<QRadioButton>(chooser, "optWorn")->isVisible());
            EXPECT_FALSE(find<QRadioButton>(chooser, "optSkin")->isVisible());
            EXPECT_FALSE(viewOf(chooser).isVisible());
            clickCell(chooser, 0);
            EXPECT_FALSE(viewOf(chooser).isVisible());
            click(chooser, "cmdCancel");
        });
        goToTab(window, 7);
        click(window, "cmdLeftOpenHand");
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, TheChoosersOptionsStandInTheFreeRoomBesideTheLabel) {
    openSim([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            const QRect room(117, 224, 153, 20);
            for (const char* option : {"optWorn", "optSkin"}) {
                const auto* button = find<QRadioButton>(chooser, option);
                const QRect place(button->mapTo(&chooser, QPoint(0, 0)), button->size());
                EXPECT_TRUE(room.contains(place)) << option;
                EXPECT_GE(button->width(), button->sizeHint().width());
            }
            click(chooser, "cmdCancel");
        });
        click(window, "cmdChangeNormal");
        click(window, "cmdCancel");
    });
}

// The pet window.

TEST_F(WornWindowsTest, APetIsSeenWornWithoutHeadAndHands) {
    set(3, "C003FA_x,HEAD-HEAD=c003falgt_x");
    openPet([](QWidget& window) {
        WornView& view = viewOf(window);
        ASSERT_TRUE(view.isVisible());
        EXPECT_GT(test::redSeen(view).right, 300);
        EXPECT_EQ(test::greenSeen(view).all(), 0);
        EXPECT_EQ(view.accessibleName(),
                  "Selected skin worn: body b001dog_01, skin b001dog_coat, seen from the front");
        choose(window, "optSkin");
        EXPECT_FALSE(view.isVisible());
        EXPECT_TRUE(showsBitmap(window, "picNormal"));
        click(window, "cmdCancel");
    });
}

TEST_F(WornWindowsTest, APetsNewCoatIsSeenWorn) {
    skin("b001dog_other", kGreen, kRed);
    gsBuildModelCatalogue();
    openPet([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B001DOG_01");
            ASSERT_TRUE(viewOf(chooser).isVisible());
            EXPECT_GT(test::blueSeen(viewOf(chooser)).all(), 2000);
            clickCell(chooser, 1);
            EXPECT_GT(test::greenSeen(viewOf(chooser)).all(), 2000);
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_GT(test::greenSeen(viewOf(window)).all(), 2000);
        click(window, "cmdCancel");
    });
}

// The main window.

TEST_F(WornWindowsTest, TheMainWindowDrawsTheChosenSimBesideItsUpperPictures) {
    frmMain& window = showMain();
    auto* render = find<WornView>(window, "picRender");
    ASSERT_TRUE(render->isVisible());
    const auto* pictures = find<PictureBox>(window, "picSim");
    const QPoint corner = render->mapTo(pictures, QPoint(0, 0)) - pictures->origin();
    EXPECT_EQ(QRect(corner, render->size()), QRect(108, 0, 149, 126));
    EXPECT_GT(test::redSeen(*render).right, 50);
    EXPECT_EQ(test::redSeen(*render).left, 0);
    EXPECT_TRUE(render->accessibleName().contains("body b001fafit_01, skin b001fafitlgt_01"));
    EXPECT_FALSE(pictures->painted().isNull());
    QTest::keyClick(render, Qt::Key_Right);
    EXPECT_EQ(render->view().yaw, 15);
}

TEST_F(WornWindowsTest, TheMainWindowHidesItWhereThereIsNothingToShow) {
    folder.write("game/UserData/Characters/user00002.iff", std::string(200, 'x'));
    std::vector<std::string> bare = rows;
    bare[1] = ",BODY=";
    folder.write("game/UserData/Characters/user00003.iff", test::simFile(bare));
    frmMain& window = showMain();
    auto* render = find<WornView>(window, "picRender");
    for (const int cell : {1, 2, 3}) {  // damaged, without clothes, empty
        clickCell(window, 0);
        EXPECT_TRUE(render->isVisible());
        clickCell(window, cell);
        EXPECT_FALSE(render->isVisible()) << cell;
        EXPECT_LT(render->geometry().right(), 0);
    }
}

TEST_F(WornWindowsTest, TheMainWindowShowsWhatTheArchivesHoldNow) {
    frmMain& window = showMain();
    auto* render = find<WornView>(window, "picRender");
    EXPECT_GT(test::redSeen(*render).right, 50);
    script.whenShown("frmManageFARs", [this](QWidget& manager) {
        skin("b001fafitlgt_01", kGreen, kGreen);
        manager.close();
    });
    find<QAction>(window, "menuFARs")->trigger();
    EXPECT_EQ(test::redSeen(*render).all(), 0);
    EXPECT_GT(test::greenSeen(*render).right, 50);
}

TEST_F(WornWindowsTest, TheMainWindowShowsASavedChange) {
    gsBuildModelCatalogue();
    frmMain& window = showMain();
    auto* render = find<WornView>(window, "picRender");
    script.whenShown("frmEditSim", [this](QWidget& editor) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002FAFIT_01");
            clickCell(chooser, 1);
            click(chooser, "cmdSelect");
        });
        click(editor, "cmdChangeNormal");
        script.answer(QMessageBox::Yes);
        script.answer();
        click(editor, "cmdSave");
    });
    click(window, "cmdSelect");
    EXPECT_TRUE(render->accessibleName().contains("skin b002fafitlgt_b"))
        << render->accessibleName().toStdString();
    EXPECT_GT(test::redSeen(*render).left, 50);
}

}  // namespace
}  // namespace marlowick
