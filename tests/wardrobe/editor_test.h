// What tests of the windows of a sim and of a pet share.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "foundation/error_trap.h"
#include "foundation/history.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/lying_disk.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/clock.h"
#include "system/processes.h"
#include "system/shown_path.h"
#include "system/streams.h"
#include "widgets/history_messages.h"
#include "widgets/picture_box.h"

namespace marlowick::test {

// A report as one line: number, module, procedure, checkpoint.
inline std::string inWords(const Report& report) {
    return std::to_string(report.number) + " " + report.module + " " + report.procedure + " " +
           std::to_string(report.checkpoint);
}

// It is noon of the first day of 2026.
template <class Editor>
class EditorTest : public WindowTest {
  protected:
    // window: the editor's name. It opens the file of that name in the neighbourhood, under the
    // path that the main window makes of them.
    EditorTest(const char* window, const std::string& neighbourhood, const std::string& file)
        : window_(window),
          file_("game/" + neighbourhood + "/Characters/" + file),
          path_(folder.path("game\\" + neighbourhood + "\\characters\\" + file)) {
        std::tm noon{};
        noon.tm_year = 126;
        noon.tm_mday = 1;
        noon.tm_hour = 12;
        setClock([noon] { return noon; });
    }
    ~EditorTest() override { setClock({}); }

    // Gives the file its content, which the test can look at again.
    void makeFile(const std::string& newContent) {
        content = newContent;
        folder.write(file_, content);
    }
    std::string fileContent() const { return folder.read(file_); }

    // A skin in the game's folder, as a picture of one colour.
    void makeSkin(const std::string& name, unsigned rgb) {
        folder.write("game/GameData/Skins/" + name + ".bmp", bitmapFile(8, 8, rgb));
    }

    // Opens the window on the file and does something in it.
    void open(std::function<void(QWidget&)> action) {
        auto& editor = theWindow<Editor>();
        editor.LoadUserFile = path_;
        editor.BackupWanted = backupWanted;
        script.whenShown(window_, std::move(action));
        editor.showModal();
        EXPECT_TRUE(script.isDone());
    }

    void saveAndAgree(QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
    }

    // While the game runs a save asks a second question, and Enter leaves everything as it is.
    void saveWhileTheGameRuns() {
        backupWanted = true;
        open([this](QWidget& window) {
            setRunningPrograms([] { return std::vector<RunningProgram>{{7, "SIMS.EXE"}}; });
            script.answer(QMessageBox::No);
            click(window, "cmdSave");
            EXPECT_EQ(script.messages().size(), 1U);
            script.answer(QMessageBox::Yes);
            script.whenShown(QString(),
                             [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
            click(window, "cmdSave");
            EXPECT_TRUE(window.isVisible());
            EXPECT_TRUE(fileContent() == content);
            EXPECT_FALSE(folder.exists("program/usertemp.iff"));
            EXPECT_FALSE(folder.exists("program/Backup"));
            script.answer(QMessageBox::Yes);
            saveAndAgree(window);
            EXPECT_FALSE(window.isVisible());
        });
        ASSERT_EQ(script.messages().size(), 6U);
        EXPECT_EQ(script.messages()[2].title, "Confirm Action");
        EXPECT_EQ(script.messages()[2].text, "The Sims is running. Save anyway?");
        EXPECT_EQ(script.messages()[2].icon, QMessageBox::Question);
        EXPECT_TRUE(script.messages()[2].yesNo);
        EXPECT_EQ(script.messages()[4].text, script.messages()[2].text);
        EXPECT_EQ(script.messages()[5].title, "Success");
        EXPECT_FALSE(fileContent() == content);
    }

    // In the window of earlier versions that comes next: the chosen one is put back.
    void restoreAndClose() {
        script.whenShown("frmHistory", [](QWidget& history) {
            click(history, "cmdRestore");
            click(history, "cmdClose");
        });
        script.answer(QMessageBox::Yes);
        script.answer();
    }

    // A window without changes asks for nothing more when its file gets the first content again.
    void restoreWithoutChanges(QWidget& window) {
        const std::size_t before = script.messages().size();
        restoreAndClose();
        click(window, "cmdHistory");
        EXPECT_EQ(script.messages().size(), before + 2);
        EXPECT_TRUE(fileContent() == content);
    }

    // The file was made by a command, which is taken back while the window has it open.
    void takeAway() {
        std::filesystem::remove(folder.root() / file_);
        {
            HistoryCommand command(earlierVersions(), "Restore", "Bob", {});
            EXPECT_TRUE(command.keepOrAsk(path_, stateOf(content)));
        }
        folder.write(file_, content);
        open([this](QWidget& window) {
            restoreAndClose();
            click(window, "cmdHistory");
            EXPECT_FALSE(window.isVisible());
        });
        ASSERT_EQ(script.messages().size(), 2U);
        EXPECT_EQ(script.messages()[1].title, "Success");
        EXPECT_FALSE(folder.exists(file_));
    }

    // Right before the save the game writes the file: the disk's bytes stay unless the person wants
    // otherwise, and then they are the earlier version.
    void saveOver(const std::string& played) {
        open([&](QWidget& window) {
            folder.write(file_, played);
            script.answer(QMessageBox::Yes);
            script.whenShown(QString(),
                             [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
            click(window, "cmdSave");
            EXPECT_TRUE(window.isVisible());
            EXPECT_TRUE(fileContent() == played);
            script.answer(QMessageBox::Yes);
            script.answer(QMessageBox::Yes);
            script.answer();
            click(window, "cmdSave");
            EXPECT_FALSE(window.isVisible());
        });
        ASSERT_EQ(script.messages().size(), 5U);
        const SeenMessage& question = script.messages()[1];
        EXPECT_EQ(question.title, "Confirm Action");
        EXPECT_EQ(question.icon, QMessageBox::Question);
        EXPECT_TRUE(question.yesNo);
        EXPECT_TRUE(question.text.endsWith(
            QStringLiteral("is not as it was when it was loaded: the game may have saved it "
                           "meanwhile.\nSave anyway?")))
            << question.text.toStdString();
        EXPECT_EQ(script.messages()[3].text, question.text);
        const std::vector<HistoryEntry> entries = History(historyPlaces()).entries();
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_TRUE(keptContent(entries[0]) == played);
    }

    // The old bytes of an entry's only file.
    static std::string keptContent(const HistoryEntry& entry) {
        return readWholeFile(History(historyPlaces()).keptFile(entry, entry.about.records.at(0)));
    }

    // Nothing can be kept, and Enter means that then nothing is saved.
    void saveWithoutHistory() {
        folder.write("program/History", "a file");
        open([this](QWidget& window) {
            script.answer(QMessageBox::Yes);
            script.whenShown(QString(),
                             [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
            click(window, "cmdSave");
            EXPECT_TRUE(window.isVisible());
            EXPECT_TRUE(fileContent() == content);
            script.answer(QMessageBox::Yes);
            script.answer(QMessageBox::Yes);
            script.answer();
            click(window, "cmdSave");
            EXPECT_FALSE(window.isVisible());
        });
        EXPECT_FALSE(fileContent() == content);
        ASSERT_EQ(script.messages().size(), 5U);
        EXPECT_EQ(script.messages()[1].text,
                  "The old file can not be kept among the earlier versions:\nError 75 - Path/File "
                  "access error\nIf you go on, this step can not be taken back. Go on anyway?");
        EXPECT_TRUE(script.messages()[1].yesNo);
    }

    // What was written isn't what was meant: the old file stays, and the report says why.
    void saveOnALyingDisk() {
        const ErrorRecorder recorder;
        open([&](QWidget& window) {
            const LyingDisk disk(64 + 76);
            script.answer(QMessageBox::Yes);
            click(window, "cmdSave");
            ASSERT_EQ(recorder.reports().size(), 1U);
            EXPECT_EQ(inWords(recorder.reports()[0]), "321 frmEditSim cmdSave_Click 4000");
            EXPECT_EQ(gstrErrorDescription, "Invalid file format\r\n" + shownPath(path_) +
                                                "\r\nSegment 1 has other data.");
            EXPECT_TRUE(fileContent() == content);
            EXPECT_EQ(searchFiles(path_.folder(), "*").size(), 1U);
            click(window, "cmdCancel");
        });
        EXPECT_TRUE(History(historyPlaces()).entries().empty());
    }

    // Saves again and again, and each time the machine stops one step later: the file is the old
    // one, or saved, whole. oldOnes: how many steps at least leave the old one.
    void stopEverySave(const std::string& saved, int oldOnes) {
        bool finished = false;
        int left = 0;
        for (int stopAt = 1; stopAt < 60 && !finished; ++stopAt) {
            folder.write(file_, content);
            std::filesystem::remove_all(folder.program() / "History");
            streams().closeAll();
            const ErrorRecorder recorder;
            open([&](QWidget& window) {
                const FaultyFiles faulty(stopAt, FaultyFiles::Fault::Stop);
                script.answer(QMessageBox::Yes);
                click(window, "cmdSave");
                finished = recorder.reports().empty() && !wasAskedAboutKeeping();
                if (window.isVisible()) {
                    click(window, "cmdCancel");
                }
            });
            EXPECT_TRUE(fileContent() == (finished ? saved : content)) << stopAt;
            left += finished ? 0 : 1;
        }
        EXPECT_TRUE(finished);
        EXPECT_GE(left, oldOnes);
        // The success of the last round was told, which nobody had announced.
        EXPECT_EQ(script.unexpected().size(), 1);
        script.forgetUnexpected();
    }

    // True if the last thing that came up, and was closed, was the question whether to go on where
    // the old file can't be kept. Forgets it.
    bool wasAskedAboutKeeping() {
        const QStringList& seen = script.unexpected();
        const bool was = !seen.isEmpty() &&
                         seen.last().startsWith(QStringLiteral("The old file can not be kept"));
        if (was) {
            script.forgetUnexpected();
        }
        return was;
    }

    static unsigned colourOf(QWidget& window, const char* picture) {
        const QImage image = find<PictureBox>(window, picture)->picture();
        return image.isNull() ? 0 : image.pixel(image.width() / 2, image.height() / 2) & 0xFFFFFF;
    }

    static bool shows(QWidget& window, const char* picture, const char* stock) {
        return find<PictureBox>(window, picture)->picture() ==
               find<PictureBox>(window, stock)->picture();
    }

    std::string content;
    bool backupWanted = false;

  private:
    const char* window_;
    std::string file_;  // below the test's folder
    Path path_;
};

}  // namespace marlowick::test
