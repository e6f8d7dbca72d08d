#include <gtest/gtest.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

#include "browser/main_window_test.h"
#include "browser/sim_page_view.h"
#include "foundation/history.h"
#include "support/user_file_builder.h"
#include "system/replace_file.h"
#include "wardrobe/frmHistory.h"
#include "widgets/history_messages.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::simPlace;
using test::textOf;

class MainHistoryTest : public test::MainWindowTest {
  protected:
    // The menu that comes up on the page; nullptr if there is none.
    static QMenu* menuAt(frmMain& window, QContextMenuEvent::Reason reason, QPoint position) {
        auto* page = find<SimPageView>(window, "picThumbs");
        QContextMenuEvent event(reason, position, page->mapToGlobal(position));
        QCoreApplication::sendEvent(page, &event);
        auto* menu = window.findChild<QMenu*>(QStringLiteral("menuSim"));
        return menu != nullptr && menu->isVisible() ? menu : nullptr;
    }

    static void choose(QMenu* menu, const char* entry) {
        menu->findChild<QAction*>(QString::fromLatin1(entry))->trigger();
        menu->close();
    }

    // Replaces a sim as a save does.
    void save(int number, const std::string& content) {
        HistoryCommand command(earlierVersions(), "Save", "Sim", {});
        const Path path =
            folder.path("game\\UserData\\characters\\user0000" + std::to_string(number) + ".iff");
        ASSERT_TRUE(command.keepOrAsk(path, stateOf(content)));
        replaceFileContent(path, content, ReadOnlyTarget::Refuse);
    }
};

TEST_F(MainHistoryTest, TheMenuLeadsToAllEarlierVersionsBehindASeparator) {
    frmMain& window = showSims(2);
    const auto actions = find<QMenu>(window, "menuTools")->actions();
    ASSERT_GE(actions.size(), 2);
    EXPECT_EQ(actions.last()->objectName(), "smenuHistory");
    EXPECT_EQ(actions.last()->text(), "Earlier &Versions ...");
    EXPECT_TRUE(actions.at(actions.size() - 2)->isSeparator());
    script.whenShown("frmHistory", [](QWidget& history) {
        EXPECT_EQ(textOf(history, "txtFilter"), "");
        click(history, "cmdClose");
    });
    chooseCommand(window, "smenuHistory");
    EXPECT_TRUE(script.isDone());
}

TEST_F(MainHistoryTest, AFacesMenuLeadsToTheVersionsOfThatSim) {
    frmMain& window = showSims(3);
    const std::string other = test::simFile(test::simRows({}), "Other");
    save(2, other);
    save(1, other);
    const auto expectSecond = [](QWidget& history) {
        EXPECT_EQ(textOf(history, "txtFilter"), "UserData\\characters\\user00002.iff");
        EXPECT_EQ(find<QListWidget>(history, "lstEntries")->count(), 1);
        click(history, "cmdClose");
    };
    clickCell(window, 1, Qt::RightButton);
    QMenu* menu = menuAt(window, QContextMenuEvent::Mouse, centreOf(1));
    ASSERT_NE(menu, nullptr);
    script.whenShown("frmHistory", expectSecond);
    choose(menu, "smenuSimHistory");
    EXPECT_TRUE(script.isDone());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The menu key means the chosen face, wherever it says that the menu should be.
    menu = menuAt(window, QContextMenuEvent::Keyboard, QPoint(470, 470));
    ASSERT_NE(menu, nullptr);
    script.whenShown("frmHistory", expectSecond);
    choose(menu, "smenuSimHistory");
    EXPECT_TRUE(script.isDone());
}

// The wardrobe leaves the keyboard with the window's focus holder.
TEST_F(MainHistoryTest, TheMenuKeyMeansTheChosenFaceWhenItsWardrobeHasClosed) {
    frmMain& window = showSims(2);
    clickCell(window, 1);
    script.whenShown("frmEditSim", [](QWidget& editor) { click(editor, "cmdCancel"); });
    click(window, "cmdSelect");
    ASSERT_TRUE(script.isDone());
    QWidget* focused = window.focusWidget();
    ASSERT_NE(focused, nullptr);
    EXPECT_EQ(focused->objectName(), "cmdFocus");
    const QPoint place(1, 1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
    QCoreApplication::sendEvent(focused, &event);
    auto* menu = window.findChild<QMenu*>(QStringLiteral("menuSim"));
    ASSERT_TRUE(menu != nullptr && menu->isVisible());
    script.whenShown("frmHistory", [](QWidget& history) {
        EXPECT_TRUE(textOf(history, "txtFilter").endsWith("user00002.iff", Qt::CaseInsensitive));
        click(history, "cmdClose");
    });
    choose(menu, "smenuSimHistory");
    EXPECT_TRUE(script.isDone());
}

// Reading a user file that isn't there makes an empty one.
TEST_F(MainHistoryTest, ASimThatIsTakenAwayBehindItsWardrobeStaysAway) {
    makeSims("UserData", 2);
    test::installGame(folder);
    const std::string content = folder.read(simPlace(1));
    std::filesystem::remove(folder.root() / simPlace(1));
    save(1, content);
    frmMain& window = showFirst();
    clickCell(window, 0);
    script.whenShown("frmEditSim", [this](QWidget& editor) {
        script.whenShown("frmHistory", [](QWidget& history) {
            click(history, "cmdRestore");
            click(history, "cmdClose");
        });
        script.answer(QMessageBox::Yes);
        script.answer();
        click(editor, "cmdHistory");
    });
    click(window, "cmdSelect");
    EXPECT_TRUE(script.isDone());
    EXPECT_FALSE(folder.exists(simPlace(1)));
    EXPECT_EQ(textOf(window, "txtSimName"), "User2 - Sim 2");
}

TEST_F(MainHistoryTest, AnEmptyCellHasNoMenu) {
    frmMain& window = showSims(1);
    clickCell(window, 5, Qt::RightButton);
    EXPECT_EQ(menuAt(window, QContextMenuEvent::Mouse, centreOf(5)), nullptr);
}

TEST_F(MainHistoryTest, ARestorePaintsThePageAnewWithTheSameCellChosen) {
    makeSims("UserData", 3);
    test::installGame(folder);
    const std::string old = folder.read(simPlace(2));
    save(2, test::simFile(test::simRows({}), "Changed"));
    frmMain& window = showFirst();
    clickCell(window, 2);
    EXPECT_EQ(nameIn(window, 1), "Changed");
    script.whenShown("frmHistory", [&](QWidget& history) {
        script.answer(QMessageBox::Yes);
        script.answer();
        click(history, "cmdRestore");
        EXPECT_EQ(nameIn(window, 1), "Sim 2");
        click(history, "cmdClose");
    });
    chooseCommand(window, "smenuHistory");
    EXPECT_TRUE(folder.read(simPlace(2)) == old);
    EXPECT_EQ(textOf(window, "txtSimName"), "User3 - Sim 3");
}

}  // namespace
}  // namespace marlowick
