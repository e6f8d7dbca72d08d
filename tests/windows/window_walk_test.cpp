// Walks through every window and looks at each control as a person does: is a text cut, do two
// controls overlap, does each have a name for a screen reader, does Tab go in reading order.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "browser/frmMain.h"
#include "browser/frmSetPath.h"
#include "browser/sim_page_view.h"
#include "catalogue/frmSelectSkin.h"
#include "far/frmManageFARs.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "start/frmTitle.h"
#include "support/archive_builder.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "wardrobe/frmENS.h"
#include "wardrobe/frmEditPet.h"
#include "wardrobe/frmEditSim.h"
#include "wardrobe/frmHistory.h"
#include "widgets/elided_label.h"
#include "widgets/history_messages.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

using test::click;
using test::find;

std::string describe(const QWidget* control) {
    return control->objectName().toStdString() + " of " +
           control->window()->objectName().toStdString();
}

// Controls that a window keeps beside or below what it shows are out of sight.
bool isInSight(const QWidget* control) {
    const QWidget* parent = control->parentWidget();
    return control->isVisible() &&
           (parent == nullptr || parent->rect().intersects(control->geometry()));
}

// What a control covers: of a label with one line at its top, that line.
QRect covered(const QWidget* control) {
    const auto* label = qobject_cast<const QLabel*>(control);
    QRect area = control->geometry();
    if (label != nullptr && (label->alignment() & Qt::AlignTop) != 0 && !label->wordWrap()) {
        area.setHeight(std::min(area.height(), label->fontMetrics().height()));
    }
    return area;
}

void checkLabel(const QLabel* label) {
    if (label->text().isEmpty()) {
        return;
    }
    if (label->wordWrap()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << describe(label);
        return;
    }
    if (const auto* elided = qobject_cast<const ElidedLabel*>(label)) {
        const QFontMetrics metrics(label->font());
        const QStringList lines = elided->fittedLines();
        for (const QString& line : lines) {
            EXPECT_LE(metrics.horizontalAdvance(line), label->width()) << describe(label);
        }
        EXPECT_GE(label->height(), metrics.height() + metrics.lineSpacing() * (lines.size() - 1))
            << describe(label);
        EXPECT_EQ(label->toolTip(), label->text()) << describe(label);
        return;
    }
    const QFontMetrics metrics(label->font());
    // The names under the faces are shortened as they are painted.
    // The mark of the key that leads to a control isn't painted.
    QString text = label->text();
    if (label->buddy() != nullptr) {
        text.remove('&');
    }
    const QStringList lines =
        label->objectName() == "lblSimName" ? nameLines(label->text(), metrics) : text.split('\n');
    for (const QString& line : lines) {
        EXPECT_LE(metrics.horizontalAdvance(line), label->width()) << describe(label);
    }
    EXPECT_LE(metrics.height() + metrics.lineSpacing() * (lines.size() - 1), label->height() + 1)
        << describe(label);
}

// A style asks for wide push buttons; what a caption needs is its own width and the frame.
int neededWidth(const QAbstractButton* button) {
    constexpr int kFrame = 5;
    return qobject_cast<const QPushButton*>(button) == nullptr
               ? button->minimumSizeHint().width()
               : button->fontMetrics().horizontalAdvance(button->text().remove('&')) + 2 * kFrame;
}

// A long text in a box scrolls, and its tool tip shows it whole.
void checkBox(const QLineEdit* box) {
    const QFontMetrics metrics(box->font());
    if (metrics.horizontalAdvance(box->text()) > box->width() - 8) {
        EXPECT_EQ(box->toolTip(), box->text()) << describe(box);
    }
    EXPECT_GE(box->height(), metrics.height()) << describe(box);
}

void checkTexts(const QWidget& window) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (isInSight(label)) {
            checkLabel(label);
        }
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (isInSight(button) && !button->text().isEmpty()) {
            EXPECT_GE(button->width(), neededWidth(button)) << describe(button);
            EXPECT_GE(button->height(), button->fontMetrics().height()) << describe(button);
        }
    }
    for (const QLineEdit* box : window.findChildren<QLineEdit*>()) {
        if (isInSight(box)) {
            checkBox(box);
        }
    }
    for (const QGroupBox* box : window.findChildren<QGroupBox*>()) {
        if (isInSight(box)) {
            EXPECT_LT(box->fontMetrics().horizontalAdvance(box->title()), box->width())
                << describe(box);
        }
    }
    for (const QTabBar* bar : window.findChildren<QTabBar*>()) {
        for (int i = 0; i < bar->count(); ++i) {
            EXPECT_GE(bar->tabRect(i).width(),
                      bar->fontMetrics().horizontalAdvance(bar->tabText(i)));
        }
        EXPECT_LE(bar->tabRect(bar->count() - 1).right(), bar->parentWidget()->width());
    }
}

// No control lies over another, and none reaches out of the window.
void checkPlaces(const QWidget& parent) {
    QList<QWidget*> shown;
    for (QWidget* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (isInSight(child) && !child->isWindow() && !child->inherits("QMenuBar")) {
            shown.append(child);
        }
    }
    for (qsizetype i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(parent.rect().contains(shown[i]->geometry())) << describe(shown[i]);
        for (qsizetype j = i + 1; j < shown.size(); ++j) {
            EXPECT_FALSE(covered(shown[i]).intersects(covered(shown[j])))
                << describe(shown[i]) << " over " << describe(shown[j]);
        }
        const bool container = shown[i]->inherits("QGroupBox") ||
                               shown[i]->inherits("QTabWidget") ||
                               shown[i]->inherits("QStackedWidget") ||
                               std::string(shown[i]->metaObject()->className()) == "QWidget";
        if (container) {
            checkPlaces(*shown[i]);
        }
    }
}

void checkNames(const QWidget& window) {
    QList<const QWidget*> labelled;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            labelled.append(label->buddy());
        }
    }
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const bool takesFocus = (control->focusPolicy() & Qt::TabFocus) != 0 && isInSight(control);
        const bool ownChild =
            control->objectName().startsWith("qt_") || control->objectName().isEmpty();
        if (!takesFocus || ownChild) {
            continue;
        }
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const bool named = !control->accessibleName().isEmpty() || labelled.contains(control) ||
                           (button != nullptr && !button->text().isEmpty()) ||
                           control->inherits("QTabWidget");
        EXPECT_TRUE(named) << describe(control);
    }
}

void look(const QWidget& window) {
    checkTexts(window);
    checkPlaces(window);
    checkNames(window);
}

// The object names that Tab leads through, from the first.
QStringList tabOrder(QWidget& window, const char* first) {
    QStringList names;
    QWidget* start = find<QWidget>(window, first);
    QWidget* control = start;
    do {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && isInSight(control) &&
            control->isVisibleTo(&window) && !control->objectName().startsWith("qt_")) {
            names.append(control->objectName());
        }
        control = control->nextInFocusChain();
    } while (control != start);
    return names;
}

class WindowWalkTest : public test::WindowTest {
  protected:
    void makeGame() {
        test::installGame(folder);
        const std::string label =
            "user00001 - A Name That Is Longer Than The Box It Stands In, By Far";
        for (int i = 1; i <= 50; ++i) {
            const std::string number = std::to_string(10000 + i);
            folder.write(
                "game/UserData/Characters/user" + number + ".iff",
                test::simFile(test::simRows({}), "Bartholomew Featherstonehaugh " + number, label));
        }
        folder.write("game/UserData/Characters/user00000.iff", std::string(200, 'x'));
    }
};

TEST_F(WindowWalkTest, Title) {
    test::installGame(folder);
    script.whenShown("frmTitle", [](QWidget& window) {
        look(window);
        EXPECT_EQ(tabOrder(window, "Text1"), (QStringList{"Text1", "cmdOK"}));
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    theWindow<frmTitle>().showModal();
}

TEST_F(WindowWalkTest, Main) {
    makeGame();
    auto& window = theWindow<frmMain>();
    window.showMain();
    find<QListWidget>(window, "lstUserDataDir")->setCurrentRow(0);
    look(window);
    EXPECT_EQ(tabOrder(window, "lstUserDataDir"),
              (QStringList{"lstUserDataDir", "txtSimName", "cmdSelect", "picThumbs", "cmdFirst",
                           "cmdPrevious", "txtPageCount", "cmdNext", "cmdLast"}));
    EXPECT_EQ(find<QWidget>(window, "picThumbs")->size(), QSize(481, 481));
    EXPECT_EQ(find<QWidget>(window, "picSim")->size(), QSize(261, 261));
    EXPECT_EQ(window.height(), 582);
    for (const char* hidden :
         {"picRender", "picLoad", "picNotFound", "picCanNotLoad", "cmdFocus"}) {
        EXPECT_LT(find<QWidget>(window, hidden)->geometry().right(), 0) << hidden;
    }
}

// In a large window the left column stays as it is, and the page stands in the middle of the rest,
// with its title and its buttons.
TEST_F(WindowWalkTest, AnEnlargedMainPutsThePageInTheMiddleOfTheRest) {
    makeGame();
    auto& window = theWindow<frmMain>();
    window.showMain();
    const auto area = [&](const char* name) {
        const auto* control = find<QWidget>(window, name);
        return QRect(control->mapTo(&window, QPoint()), control->size());
    };
    QMap<QString, QSize> before;
    const QStringList controls = {"txtSimName",   "picSim",  "cmdSelect", "cmdFirst", "cmdPrevious",
                                  "txtPageCount", "cmdNext", "cmdLast",   "picThumbs"};
    for (const QString& name : controls) {
        before[name] = area(qPrintable(name)).size();
    }
    const int listWidth = area("lstUserDataDir").width();
    const int titleToPage = area("picThumbs").top() - area("Label2").top();
    for (const QSize& size : {QSize(1280, 1024), QSize(1920, 1080)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        for (const QString& name : controls) {
            EXPECT_EQ(area(qPrintable(name)).size(), before[name]) << name.toStdString();
        }
        EXPECT_EQ(area("lstUserDataDir").width(), listWidth);
        EXPECT_EQ(area("lstUserDataDir").left(), 8);
        EXPECT_GE(area("cmdSelect").bottom(), window.height() - 12);
        const QRect page = area("picThumbs");
        const int left = page.left() - area("lstUserDataDir").right();
        const int right = window.width() - page.right();
        EXPECT_NEAR(left, right, 6);
        const int above = area("Label2").top() - area("Line2").bottom();
        const int below = window.height() - area("cmdFirst").bottom();
        EXPECT_NEAR(above, below, 6);
        EXPECT_GT(above, 50);
        EXPECT_EQ(page.top() - area("Label2").top(), titleToPage);
        EXPECT_EQ(area("Label2").left(), page.left());
        EXPECT_EQ(area("cmdFirst").left(), page.left());
        EXPECT_EQ(area("cmdLast").right(), page.right());
    }
}

TEST_F(WindowWalkTest, AMessageShowsItsWholeTitle) {
    makeGame();
    theWindow<frmMain>().showMain();
    int width = 0;
    script.whenShown("", [&](QWidget& box) {
        width = box.width() - box.fontMetrics().horizontalAdvance(box.windowTitle());
        box.close();
    });
    showMessage("Path to The Sims not found!", MessageIcon::None, MessageButtons::Ok, "No.");
    EXPECT_GE(width, 100);
}

TEST_F(WindowWalkTest, SetPath) {
    script.whenShown("frmSetPath", [](QWidget& window) {
        look(window);
        EXPECT_EQ(tabOrder(window, "txtLocation"),
                  (QStringList{"txtLocation", "cmdFindPath", "txtRegistry", "cmdUseReg", "lstGames",
                               "txtNeighborhoods", "cmdFindNeighborhoods", "cmdAutomatic", "cmdOK",
                               "cmdCancel"}));
        // A screen of 800 to 600 has room for it, with its frame and a task bar.
        EXPECT_LE(window.width(), 780);
        EXPECT_LE(window.layout()->totalMinimumHeightForWidth(window.width()), 540);
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    theWindow<frmSetPath>().showModal();
}

TEST_F(WindowWalkTest, ErrorReport) {
    script.whenShown("frmErrorDialog", [](QWidget& window) {
        look(window);
        EXPECT_EQ(tabOrder(window, "txtMessage"),
                  (QStringList{"txtMessage", "cmdEnd", "cmdCopy", "cmdWebPage", "cmdMailTo"}));
        window.close();
    });
    trapped("frmEditSim", "msDisplayUserData", [] { throw RuntimeError(9); });
}

TEST_F(WindowWalkTest, Archives) {
    makeGame();
    const std::string longName = "Skins\\" + std::string(80, 'W') + ".bmp";
    folder.write("game/GameData/Textures/a.far",
                 test::archiveFile({{"a.bmp", "", {}}, {longName, "", {}}}));
    for (int i = 0; i < 50; ++i) {
        folder.write("game/skin" + std::to_string(i) + ".bmp", "");
    }
    script.whenShown("frmManageFARs", [this](QWidget& window) {
        look(window);
        EXPECT_EQ(tabOrder(window, "txtFarFile"),
                  (QStringList{"txtFarFile", "txtCount", "cmdNew", "cmdOpen", "cmdSave", "lstFiles",
                               "txtFind", "cmdFind", "cmdNext", "cmdDelete", "cmdUndelete",
                               "cmdExtractFile", "drvFiles", "dirFiles", "txtPath", "lstBMPs",
                               "cmdAddFile", "cmdImportFolder"}));
        script.whenShown("frmOpenFAR", [](QWidget& opener) {
            look(opener);
            EXPECT_EQ(tabOrder(opener, "lstFiles"),
                      (QStringList{"lstFiles", "cmdSelect", "cmdCancel"}));
            find<QListWidget>(opener, "lstFiles")->setCurrentRow(0);
            QTest::keyClick(&opener, Qt::Key_Return);
            EXPECT_FALSE(opener.isVisible());
        });
        click(window, "cmdOpen");
        auto* list = find<QListWidget>(window, "lstFiles");
        EXPECT_EQ(list->count(), 2);
        EXPECT_TRUE(list->horizontalScrollBar()->isVisible());
        find<QWidget>(window, "picStatus")->show();
        look(window);
        // Esc would throw the pending changes away.
        list->setCurrentRow(0);
        click(window, "cmdDelete");
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdUndelete");
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    theWindow<frmManageFARs>().showModal();
    EXPECT_TRUE(script.isDone());
}

TEST_F(WindowWalkTest, Wardrobe) {
    makeGame();
    auto& editor = theWindow<frmEditSim>();
    editor.LoadUserFile = folder.path("game\\UserData\\characters\\user10001.iff");
    script.whenShown("frmEditSim", [](QWidget& window) {
        auto* tabs = find<QTabWidget>(window, "tabSkins");
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QTest::qWait(20);
            look(window);
        }
        tabs->setCurrentIndex(1);
        const QStringList order = tabOrder(window, "optFit");
        EXPECT_EQ(order.mid(0, 12).join(' '),
                  "optFit optFat optSkinny cmdEnsLoad cmdEnsSave txtName txtAge txtGender "
                  "txtSkinTone tabSkins optWorn optSkin");
        EXPECT_EQ(order.mid(order.size() - 7).join(' '),
                  "txtSwimsuitBody txtSwimsuitSkin cmdChangeSwimsuit cmdDefaultSwimsuit cmdHistory "
                  "cmdSave "
                  "cmdCancel");
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    editor.showModal();
    EXPECT_TRUE(script.isDone());
}

TEST_F(WindowWalkTest, Chooser) {
    makeGame();
    const std::string skin = "b001fafitlgt_a name that is far longer than the box below the list";
    folder.write("game/GameData/Skins/b001fafit_" + std::string(80, 'm') + ".cmx", "");
    folder.write("game/GameData/Skins/" + skin + ".bmp", test::bitmapFile(128, 128, 0x777777));
    auto& chooser = theWindow<frmSelectSkin>();
    chooser.SkinData = "falgtfitB";
    chooser.SelectMode = kSelectSimSkin;
    chooser.HandMode = false;
    ChosenSkin reply;
    script.whenShown("frmSelectSkin", [](QWidget& window) {
        find<QListWidget>(window, "lstModels")->setCurrentRow(0);
        look(window);
        EXPECT_EQ(tabOrder(window, "lstModels"),
                  (QStringList{"lstModels", "txtSkinName", "optWorn", "optSkin", "cmdSelect",
                               "cmdCancel", "optMode", "optMode", "picThumbs", "cmdPrevious",
                               "txtPageCount", "cmdNext"}));
        EXPECT_EQ(find<QListWidget>(window, "lstModels")->item(0)->toolTip(),
                  find<QListWidget>(window, "lstModels")->item(0)->text());
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    chooser.choose(reply);
    EXPECT_TRUE(reply.SelectedSkin.ends_with(skin)) << reply.SelectedSkin;
}

TEST_F(WindowWalkTest, Pet) {
    makeGame();
    std::vector<std::string> rows = test::simRows({});
    rows[0] = "dog";
    rows[1] = "b001dog_" + std::string(60, 'w') + ",BODY=b001dog_" + std::string(60, 'w');
    rows[12] = "dogfemale";
    folder.write("game/UserData/Characters/user10001.iff",
                 test::simFile(rows, "A Name That Is Far Longer Than Its Box, As Names May Be"));
    auto& editor = theWindow<frmEditPet>();
    editor.LoadUserFile = folder.path("game\\UserData\\characters\\user10001.iff");
    script.whenShown("frmEditPet", [](QWidget& window) {
        look(window);
        EXPECT_EQ(tabOrder(window, "txtName"),
                  (QStringList{"txtName", "txtType", "txtGender", "txtNormalBody", "txtNormalSkin",
                               "optWorn", "optSkin", "cmdChangeNormal", "cmdHistory", "cmdSave",
                               "cmdCancel"}));
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    editor.showModal();
}

TEST_F(WindowWalkTest, EarlierVersions) {
    const std::string longName = std::string(90, 'e') + ".ENS";
    const auto walk = [](QWidget& window) {
        look(window);
        EXPECT_LE(window.height(), window.screen()->availableSize().height());
        EXPECT_EQ(tabOrder(window, "txtFilter"),
                  (QStringList{"txtFilter", "lstEntries", "lstFiles", "spnFiles", "spnArchives",
                               "spnVersions", "cmdRestore", "cmdClose"}));
        window.resize(window.minimumSizeHint());
        look(window);
        // What a screen of 1366 to 768 has room for at twice the size, with a frame and a task bar.
        const QSize small(667, 344);
        EXPECT_LE(window.minimumSizeHint().width(), small.width());
        EXPECT_LE(window.minimumSizeHint().height(), small.height());
        window.resize(small);
        find<QListWidget>(window, "lstEntries")->setCurrentRow(2);
        EXPECT_FALSE(find<QLabel>(window, "lblState")->text().isEmpty());
        look(window);
        EXPECT_TRUE(window.rect().contains(find<QPushButton>(window, "cmdClose")->geometry()));
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    };
    folder.write("program/ENS/" + longName, "old");
    {
        HistoryCommand command(earlierVersions(), "Delete ensemble", longName, {});
        ASSERT_TRUE(command.keepOrAsk(ensembleFolder().child(longName), std::nullopt));
    }
    folder.write("program/History/000002 other/about.json",
                 "{\"version\":1,\"command\":\"Save\",\"name\":\"Bob\",\"game\":\"//far/game\","
                 "\"neighbourhoods\":\"//far/saves\",\"files\":[{\"path\":"
                 "\"UserData/Characters/user00001.iff\",\"before\":null,\"after\":{\"size\":3,"
                 "\"sha256\":\"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad\""
                 "}}]}");
    script.whenShown("frmHistory", walk);
    theWindow<frmHistory>().showAll();
    EXPECT_TRUE(script.isDone());
}

TEST_F(WindowWalkTest, Ensembles) {
    WardrobeFields fields;
    auto& ensembles = theWindow<frmENS>();
    for (const std::int32_t mode : {kEnsembleSave, kEnsembleLoad}) {
        folder.write("program/ENS/" + std::string(90, 'e') + ".ENS", "");
        ensembles.mode = mode;
        script.whenShown("frmENS", [](QWidget& window) {
            look(window);
            EXPECT_EQ(
                tabOrder(window, "flbENS"),
                (QStringList{"flbENS", "txtFileName", "cmdSaveLoad", "cmdDelete", "cmdCancel"}));
            find<QListWidget>(window, "flbENS")->setCurrentRow(0);
            look(window);
            QTest::keyClick(&window, Qt::Key_Escape);
            EXPECT_FALSE(window.isVisible());
        });
        ensembles.showFor(fields);
    }
}

}  // namespace
}  // namespace marlowick
