#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProcessEnvironment>
#include <filesystem>
#include <optional>
#include <string>

#include "browser/frmMain.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "start/frmErrorDialog.h"
#include "start/frmTitle.h"
#include "start/startup.h"
#include "support/faulty_files.h"
#include "support/window_driver.h"
#include "system/files.h"
#include "system/program_lock.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/shell.h"

namespace marlowick {
namespace {

using test::click;
using test::find;

TEST(StartupTest, TheProgramFolderIsWrittenWithBackslashes) {
    const test::TestFolder folder;
    findProgramFolder();
    EXPECT_TRUE(files().folderExists(ProgramFolder));
    EXPECT_EQ(ProgramFolder.text().find('/'), std::string::npos);
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    EXPECT_TRUE(files().fileExists(ProgramFolder + "\\" + program.toStdString()));
}

class OnlyCopyTest : public test::WindowTest {};

TEST_F(OnlyCopyTest, ASecondCopyInTheFolderSaysSo) {
    const LockedFolder other = lockFolder(ProgramFolder);
    ASSERT_EQ(other.answer, LockAnswer::Taken);
    script.answer();
    EXPECT_FALSE(isOnlyCopy());
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Already Running");
    EXPECT_TRUE(script.messages()[0].text.contains(toDisplay(ProgramFolder)));
    EXPECT_FALSE(script.messages()[0].yesNo);
}

TEST_F(OnlyCopyTest, TheFirstOneAndOneBehindAnotherSayNothing) {
    EXPECT_TRUE(isOnlyCopy());
    EXPECT_TRUE(isOnlyCopy());
    EXPECT_EQ(lockFolder(ProgramFolder).answer, LockAnswer::HeldByOther);
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(OnlyCopyTest, GoesOnWhereNoLockCanBeHad) {
    ProgramFolder = folder.path("nowhere");
    EXPECT_TRUE(isOnlyCopy());
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(OnlyCopyTest, AFolderThatMayNotBeWrittenIsNoExcuse) {
    folder.makeReadOnly("program");
    EXPECT_TRUE(isOnlyCopy());
    EXPECT_TRUE(script.messages().empty());
    ProgramFolder = folder.path("other");
    folder.write("other/x", "");
    folder.makeReadOnly("other");
    const LockedFolder other = lockFolder(ProgramFolder);
    script.answer();
    EXPECT_FALSE(isOnlyCopy());
}

#ifndef _WIN32
// The program itself, in a folder of its own, on no screen.
class RunningCopy {
  public:
    // told: the file that gets the text of its first message, which is answered with Enter; empty
    // if nobody answers.
    explicit RunningCopy(const test::TestFolder& folder, const std::string& told = {}) {
        const std::filesystem::path program = folder.program() / "Marlowick";
        if (!std::filesystem::exists(program)) {
            std::filesystem::copy_file(MARLOWICK_PROGRAM, program);
        }
        QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
        own.insert("QT_QPA_PLATFORM", "offscreen");
        own.insert("HOME", QString::fromStdString(folder.root().string()));
        own.insert("XDG_CONFIG_HOME", QString::fromStdString(folder.root().string()));
        if (!told.empty()) {
            own.insert("QT_PLUGIN_PATH", MARLOWICK_TEST_PLUGINS);
            own.insert("QT_QPA_GENERIC_PLUGINS",
                       QString::fromStdString("answering:" + (folder.root() / told).string()));
        }
        process_.setProcessEnvironment(own);
        process_.start(QString::fromStdString(program.string()), QStringList());
        EXPECT_TRUE(process_.waitForStarted());
        EXPECT_TRUE(QTest::qWaitFor(
            [] { return lockFolder(ProgramFolder).answer == LockAnswer::HeldByOther; }, 30000));
    }
    ~RunningCopy() { kill(); }
    RunningCopy(const RunningCopy&) = delete;
    RunningCopy& operator=(const RunningCopy&) = delete;

    bool isRunning() {
        process_.waitForFinished(0);
        return process_.state() == QProcess::Running;
    }
    // What it ended with by itself; nothing if it goes on for half a minute.
    std::optional<int> exitCode() {
        const bool isOver = process_.waitForFinished(30000);
        return isOver && process_.exitStatus() == QProcess::NormalExit
                   ? std::optional(process_.exitCode())
                   : std::nullopt;
    }
    // At once, without a chance to clear anything away.
    void kill() {
        process_.kill();
        process_.waitForFinished();
    }

  private:
    QProcess process_;
};

TEST_F(OnlyCopyTest, ASecondRealCopyEndsBehindItsMessageAndTheFirstGoesOn) {
    RunningCopy first(folder);
    RunningCopy second(folder, "told.txt");
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(folder.read("told.txt"),
              "Already Running\nMarlowick is running already, from the folder\n" +
                  folder.program().string() +
                  "\nTwo at a time would mix up their files. Please use the one that is open.");
    EXPECT_TRUE(first.isRunning());
    EXPECT_EQ(lockFolder(ProgramFolder).answer, LockAnswer::HeldByOther);
}

TEST_F(OnlyCopyTest, ARealCopyLocksTheFolderUntilItIsKilled) {
    RunningCopy first(folder);
    script.answer();
    EXPECT_FALSE(isOnlyCopy());
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Already Running");
    EXPECT_TRUE(first.isRunning());
    first.kill();
    EXPECT_TRUE(isOnlyCopy());
    EXPECT_EQ(script.messages().size(), 1U);
}
#endif

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
