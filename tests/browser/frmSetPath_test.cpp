#include "browser/frmSetPath.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include "foundation/game.h"
#include "support/window_driver.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::textOf;

class SetPathTest : public test::WindowTest {
  protected:
    // Opens the window and does something in it.
    void withWindow(std::function<void(QWidget&)> action) {
        script.whenShown("frmSetPath", std::move(action));
    }
    void show() {
        theWindow<frmSetPath>().showModal();
        EXPECT_TRUE(script.isDone());
    }
};

TEST_F(SetPathTest, ShowsTheRegistrysAndTheStoredPath) {
    writeSetting(setting::kSimsLocation, "/some/where");
    withWindow([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Set The Sims Path");
        EXPECT_EQ(textOf(window, "txtLocation"), "/some/where");
        EXPECT_EQ(textOf(window, "txtRegistry"), registeredSimsPath());
        click(window, "cmdCancel");
    });
    show();
}

TEST_F(SetPathTest, APathCanBeTypedAtOnce) {
    writeSetting(setting::kSimsLocation, "ERROR");
    withWindow([](QWidget& window) {
        QTest::keyClicks(window.focusWidget(), "/the/game");
        EXPECT_EQ(textOf(window, "txtLocation"), "/the/game");
        click(window, "cmdCancel");
    });
    show();
}

TEST_F(SetPathTest, AnInvalidRegistryValueIsNotTaken) {
    withWindow([this](QWidget& window) {
        find<QLineEdit>(window, "txtRegistry")->setText("ERROR");
        script.answer();
        click(window, "cmdUseReg");
        find<QLineEdit>(window, "txtRegistry")->clear();
        script.answer();
        click(window, "cmdUseReg");
        EXPECT_EQ(textOf(window, "txtLocation"), "");
        find<QLineEdit>(window, "txtRegistry")->setText("/the/game");
        click(window, "cmdUseReg");
        EXPECT_EQ(textOf(window, "txtLocation"), "/the/game");
        click(window, "cmdCancel");
    });
    show();
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Path Invalid");
    EXPECT_EQ(script.messages()[0].text, "Registry value invalid. Please find the path manually.");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
}

TEST_F(SetPathTest, AFolderWithTheGameIsStored) {
    folder.write("other/SIMS.exe", "");
    const QString location = toDisplay(folder.path("other"));
    withWindow([&](QWidget& window) {
        QTest::keyClicks(find<QLineEdit>(window, "txtLocation"), location);
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), location);
    EXPECT_EQ(toDisplay(SimsPath), location);
}

TEST_F(SetPathTest, AFolderWithoutTheGameIsRefusedAndTheWindowStays) {
    const Path before = SimsPath;
    withWindow([this](QWidget& window) {
        QTest::keyClicks(find<QLineEdit>(window, "txtLocation"), "/no/game");
        script.answer();
        click(window, "cmdOK");
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    show();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Selected Location Invalid");
    EXPECT_EQ(script.messages()[0].text,
              "The Sims was not found in:\n/no/game\nThe selected location was invalid");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(SimsPath, before);
    EXPECT_EQ(readSetting(setting::kSimsLocation), "");
}

TEST_F(SetPathTest, EnterPressesTheButtonThatHasTheFocusOrOk) {
    writeSetting(setting::kSimsLocation, "/some/where");
    const Path before = SimsPath;
    withWindow([this](QWidget& window) {
        find<QWidget>(window, "txtLocation")->setFocus();
        script.answer();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        find<QWidget>(window, "cmdCancel")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    show();
    EXPECT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(SimsPath, before);
}

TEST_F(SetPathTest, FindTakesTheChosenFolderAndACancelChangesNothing) {
    folder.write("other/Sims.exe", "");
    const QString place = toDisplay(folder.path("other")).replace('\\', '/');
    withWindow([&](QWidget& window) {
        setFolderChooser([&](QWidget* owner, const QString& title) {
            EXPECT_EQ(owner, &window);
            EXPECT_EQ(title, "Select the location of The Sims.");
            return QString();
        });
        click(window, "cmdFindPath");
        EXPECT_EQ(textOf(window, "txtLocation"), "");
        setFolderChooser([&](QWidget* /*owner*/, const QString& /*title*/) { return place; });
        click(window, "cmdFindPath");
        EXPECT_EQ(textOf(window, "txtLocation"), place);
        setFolderChooser({});
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), place);
}

}  // namespace
}  // namespace marlowick
