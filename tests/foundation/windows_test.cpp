#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "browser/frmMain.h"
#include "foundation/error_trap.h"
#include "foundation/frmErrorDialog.h"
#include "foundation/frmSetPath.h"
#include "foundation/frmTitle.h"
#include "foundation/game.h"
#include "foundation/startup.h"
#include "platform/display_text.h"
#include "platform/files.h"
#include "platform/folder_chooser.h"
#include "platform/input_guard.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "support/faulty_files.h"
#include "support/window_driver.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::textOf;

TEST(StartupTest, TheProgramFolderIsWrittenWithBackslashes) {
    const test::TestFolder folder;
    findProgramFolder();
    EXPECT_TRUE(files().folderExists(ProgramFolder));
    EXPECT_EQ(ProgramFolder.text().find('/'), std::string::npos);
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    EXPECT_TRUE(files().fileExists(ProgramFolder + "\\" + program.toStdString()));
}

class TitleTest : public test::WindowTest {};

TEST_F(TitleTest, ShowsTheVersionAndLeadsToTheMainWindow) {
    test::installGame(folder);
    script.whenShown("frmTitle", [](QWidget& title) {
        EXPECT_EQ(title.windowTitle(), "Marlowick - Version 3.0.5");
        EXPECT_FALSE(find<QPlainTextEdit>(title, "Text1")->toPlainText().isEmpty());
        EXPECT_EQ(test::shownWindow("frmMain"), nullptr);
        click(title, "cmdOK");
    });
    theWindow<frmTitle>().showModal();
    EXPECT_NE(test::shownWindow("frmMain"), nullptr);
    EXPECT_TRUE(script.isDone());
}

TEST_F(TitleTest, ClosingItByItsFrameLeadsThereToo) {
    test::installGame(folder);
    script.whenShown("frmTitle", [](QWidget& title) { title.close(); });
    theWindow<frmTitle>().showModal();
    EXPECT_NE(test::shownWindow("frmMain"), nullptr);
}

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

class ErrorDialogTest : public test::WindowTest {
  protected:
    ~ErrorDialogTest() override {
        setProgramEnd({});
        setShell({});
    }

    void failWith(std::function<void(QWidget&)> action) {
        script.whenShown("frmErrorDialog", std::move(action));
        trapped("modTest", "gsTest", [] { throw RuntimeError(5); });
        EXPECT_TRUE(script.isDone());
    }
};

TEST_F(ErrorDialogTest, ShowsTheReportAndWritesItToTheFile) {
    setPointer(Pointer::Hourglass);
    folder.write("program/errorlog.txt", std::string(5000, 'x'));
    QString shown;
    failWith([&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Unrecoverable Error - Program Execution Halted");
        EXPECT_FALSE(pointerIsBusy());
        shown = find<QPlainTextEdit>(window, "txtMessage")->toPlainText();
        window.close();
    });
    EXPECT_EQ(folder.read("program/errorlog.txt"), errorReport());
    EXPECT_EQ(shown, QString::fromStdString(errorReport()).replace("\r\n", "\n"));
}

TEST_F(ErrorDialogTest, ClosingByItsFrameLetsTheCallerGoOn) {
    failWith([](QWidget& window) { window.close(); });
    SUCCEED();
}

TEST_F(ErrorDialogTest, EscDoesNotCloseIt) {
    failWith([](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        window.close();
    });
}

TEST_F(ErrorDialogTest, EndEndsTheProgramAtOnceAndLeavesTheFiles) {
    folder.write("program/usertemp.iff", "scratch");
    folder.write("program/web_image.BMP", "picture");
    int ends = 0;
    setProgramEnd([&] { ++ends; });
    failWith([](QWidget& window) {
        click(window, "cmdEnd");
        window.close();
    });
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(folder.exists("program/usertemp.iff"));
    EXPECT_TRUE(folder.exists("program/web_image.BMP"));
}

TEST_F(ErrorDialogTest, AFailingReportEndsTheProgram) {
    folder.write("program/errorlog.txt/inside", "a folder of that name");
    int ends = 0;
    setProgramEnd([&] { ++ends; });
    failWith([](QWidget& window) { window.close(); });
    EXPECT_EQ(ends, 1);
}

TEST_F(ErrorDialogTest, CopiesTheReport) {
    failWith([](QWidget& window) {
        click(window, "cmdCopy");
        EXPECT_EQ(QApplication::clipboard()->text(),
                  find<QPlainTextEdit>(window, "txtMessage")->toPlainText());
        window.close();
    });
}

TEST_F(ErrorDialogTest, MailAndWebPageGoToTheShell) {
    QStringList calls;
    setShell([&](const QString& verb, const QStringList& arguments) {
        calls.append(verb + " " + arguments.join(" "));
        return kShellSuccess;
    });
    failWith([](QWidget& window) {
        click(window, "cmdMailTo");
        click(window, "cmdWebPage");
        window.close();
    });
    ASSERT_EQ(calls.size(), 3);
    EXPECT_TRUE(calls[0].startsWith("open mailto:"));
    EXPECT_EQ(calls[1], "find " + browserProbeFile());
    EXPECT_TRUE(calls[2].startsWith("start browser https://"));
    EXPECT_FALSE(std::filesystem::exists(browserProbeFile().toStdString()));
}

TEST_F(ErrorDialogTest, TellsWhereBrowserOrPageIsMissing) {
    int findCode = 31;
    setShell(
        [&](const QString& verb, const QStringList&) { return verb == "find" ? findCode : 2; });
    failWith([&](QWidget& window) {
        script.answer();
        click(window, "cmdWebPage");
        findCode = kShellSuccess;
        script.answer();
        click(window, "cmdWebPage");
        window.close();
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Error - Browser Not Found");
    EXPECT_EQ(script.messages()[0].text, "Could not find the default web browser!");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(script.messages()[1].title, "Error - Bad URL");
    EXPECT_EQ(script.messages()[1].text, "Support web page not found!");
}

// The system drive lets only an administrator make files in its root.
TEST_F(ErrorDialogTest, AsksForNoBrowserWhereItMayNotMakeItsFile) {
    int calls = 0;
    setShell([&](const QString&, const QStringList&) {
        ++calls;
        return kShellSuccess;
    });
    failWith([&](QWidget& window) {
        const test::FaultyFiles forbidden(1, test::FaultyFiles::Fault::Stop);
        script.answer();
        click(window, "cmdWebPage");
        window.close();
    });
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Error - Browser Not Found");
    EXPECT_EQ(script.messages()[0].text, "Could not find the default web browser!");
    EXPECT_FALSE(std::filesystem::exists(browserProbeFile().toStdString()));
}

}  // namespace
}  // namespace marlowick
