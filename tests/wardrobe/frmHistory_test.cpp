#include "wardrobe/frmHistory.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

#include "foundation/game.h"
#include "support/error_recorder.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/clock.h"
#include "system/files.h"
#include "system/processes.h"
#include "system/replace_file.h"
#include "wardrobe/edit_sim_test.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::simFile;
using test::simRows;

std::string simName(int number) {
    return "game/UserData/Characters/user0000" + std::to_string(number) + ".iff";
}

class HistoryWindowTest : public test::WindowTest {
  protected:
    HistoryWindowTest() {
        std::tm noon{};
        noon.tm_year = 126;
        noon.tm_mday = 1;
        noon.tm_hour = 12;
        setClock([noon] { return noon; });
        theWindow<frmHistory>().Restored = [this] { ++painted; };
    }
    ~HistoryWindowTest() override { setClock({}); }

    static std::string sim(const std::string& formal) {
        std::vector<std::string> rows = simRows({});
        rows[30] = formal + ",BODY=skin";
        return simFile(rows);
    }

    Path simPath(int number) const {
        return folder.path("game\\UserData\\characters\\user0000" + std::to_string(number) +
                           ".iff");
    }

    // A command that gives files new content; nothing deletes one.
    void run(const std::string& command, const std::string& name,
             const std::vector<std::pair<Path, std::optional<std::string>>>& files_,
             const std::string& words = {}) {
        HistoryCommand history(earlierVersions(), command, name, {});
        for (const auto& [path, content] : files_) {
            const auto after = content ? std::optional(stateOf(*content)) : std::nullopt;
            ASSERT_TRUE(history.keepOrAsk(path, after, words));
            if (content) {
                replaceFileContent(path, *content, ReadOnlyTarget::Refuse);
            } else {
                files().remove(path);
            }
        }
    }

    // Mara's formal wear goes from one to two to three.
    void dressMara() {
        folder.write(simName(1), sim("one"));
        run("Save", "Mara Quill", {{simPath(1), sim("two")}}, "Formal: one \xE2\x86\x92 two");
        run("Save", "Mara Quill", {{simPath(1), sim("three")}}, "Formal: two \xE2\x86\x92 three");
    }

    void show(const std::function<void(QWidget&)>& action) {
        script.whenShown("frmHistory", [action](QWidget& window) {
            action(window);
            if (window.isVisible()) {
                click(window, "cmdClose");
            }
        });
        theWindow<frmHistory>().showAll();
        EXPECT_TRUE(script.isDone());
    }

    static QListWidget* list(QWidget& window, const char* name) {
        return find<QListWidget>(window, name);
    }
    static QStringList lines(QWidget& window, const char* name) {
        QStringList texts;
        for (int row = 0; row < list(window, name)->count(); ++row) {
            texts.append(list(window, name)->item(row)->text());
        }
        return texts;
    }
    static QString state(QWidget& window) { return find<QLabel>(window, "lblState")->text(); }

    // Presses Restore, says yes, and closes the message of success.
    void restore(QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdRestore");
        ASSERT_FALSE(script.messages().empty());
        EXPECT_EQ(script.messages().back().title, "Success");
    }

    int painted = 0;
};

TEST_F(HistoryWindowTest, SaysThatNothingIsKeptYet) {
    show([](QWidget& window) {
        EXPECT_EQ(list(window, "lstEntries")->count(), 0);
        EXPECT_EQ(list(window, "lstFiles")->count(), 0);
        EXPECT_TRUE(state(window).startsWith("Nothing is kept yet."))
            << state(window).toStdString();
        EXPECT_FALSE(find<QPushButton>(window, "cmdRestore")->isEnabled());
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_FALSE(folder.exists("program/History"));
}

TEST_F(HistoryWindowTest, ShowsTheNewestFirstWithWordsNamesAndFaces) {
    dressMara();
    show([](QWidget& window) {
        EXPECT_EQ(lines(window, "lstEntries"),
                  (QStringList{"Save Mara Quill\n2026-01-01 12:00:00, UserData",
                               "Save Mara Quill\n2026-01-01 12:00:00, UserData"}));
        EXPECT_EQ(list(window, "lstEntries")->currentRow(), 0);
        EXPECT_EQ(lines(window, "lstFiles"),
                  QStringList{"Mara Quill  UserData\\characters\\user00001.iff\n"
                              "Formal: two " +
                              QString(QChar(0x2192)) + " three"});
        // The picture in the file is of one colour, and no scratch file of it is made.
        for (const char* name : {"lstEntries", "lstFiles"}) {
            const QImage face = list(window, name)->item(0)->icon().pixmap(45, 45).toImage();
            ASSERT_FALSE(face.isNull()) << name;
            EXPECT_EQ(face.pixelColor(22, 22).alpha(), 255) << name;
        }
        list(window, "lstEntries")->setFocus();
        QTest::keyClick(list(window, "lstEntries"), Qt::Key_Down);
        EXPECT_TRUE(lines(window, "lstFiles")
                        .at(0)
                        .endsWith("Formal: one " + QString(QChar(0x2192)) + " two"));
    });
    EXPECT_FALSE(folder.exists("program/web_image.BMP"));
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(HistoryWindowTest, TheFilterTakesNamesAndNeighbourhoods) {
    dressMara();
    folder.write("game/UserData2/Characters/user00002.iff", sim("x"));
    run("Save", "Bob Pleasant",
        {{folder.path("game\\UserData2\\characters\\user00002.iff"), sim("y")}});
    show([](QWidget& window) {
        auto* filter = find<QLineEdit>(window, "txtFilter");
        EXPECT_EQ(list(window, "lstEntries")->count(), 3);
        QTest::keyClicks(filter, "bob");
        EXPECT_EQ(list(window, "lstEntries")->count(), 1);
        filter->clear();
        QTest::keyClicks(filter, "userdata\\");
        EXPECT_EQ(list(window, "lstEntries")->count(), 2);
        filter->clear();
        QTest::keyClicks(filter, "nobody");
        EXPECT_EQ(list(window, "lstEntries")->count(), 0);
        EXPECT_EQ(state(window), "Nothing fits the filter.");
        EXPECT_FALSE(find<QPushButton>(window, "cmdRestore")->isEnabled());
    });
}

TEST_F(HistoryWindowTest, RestoresAFileAndThatCanBeTakenBack) {
    dressMara();
    show([this](QWidget& window) {
        list(window, "lstEntries")->setCurrentRow(1);
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("one"));
        EXPECT_EQ(painted, 1);
        // The newest command is the restore itself, with its own words.
        EXPECT_TRUE(lines(window, "lstEntries").at(0).startsWith("Restore Mara Quill\n"));
        EXPECT_EQ(list(window, "lstEntries")->count(), 3);
        EXPECT_TRUE(lines(window, "lstFiles")
                        .at(0)
                        .endsWith("Formal: three " + QString(QChar(0x2192)) + " one"));
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("three"));
    });
    const QString question = script.messages().at(0).text;
    EXPECT_TRUE(question.contains("Put back as it was before \"Save Mara Quill\""))
        << question.toStdString();
    EXPECT_TRUE(
        question.contains("What these later commands did to them goes back too:\n"
                          "2026-01-01 12:00:00  Save Mara Quill"));
    EXPECT_FALSE(question.contains("Changed since"));
}

TEST_F(HistoryWindowTest, EnterAtTheQuestionMeansNo) {
    dressMara();
    show([this](QWidget& window) {
        script.whenShown(QString(), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        click(window, "cmdRestore");
        EXPECT_TRUE(folder.read(simName(1)) == sim("three"));
        EXPECT_EQ(painted, 0);
    });
}

TEST_F(HistoryWindowTest, TellsWhenTheGameChangedAFileSince) {
    dressMara();
    folder.write(simName(1), sim("played"));
    show([this](QWidget& window) {
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("two"));
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("played"));
    });
    EXPECT_TRUE(script.messages().at(0).text.contains(
        "Changed since by the game or by somebody; that goes back too:\n"
        "UserData\\characters\\user00001.iff"));
}

TEST_F(HistoryWindowTest, OneFileOrAllOfACommandGoBack) {
    for (int number = 1; number <= 3; ++number) {
        folder.write(simName(number), sim("old"));
    }
    run("Fix fit to skinny", "",
        {{simPath(1), sim("new")}, {simPath(2), sim("new")}, {simPath(3), sim("new")}});
    show([this](QWidget& window) {
        ASSERT_EQ(list(window, "lstFiles")->count(), 4);
        EXPECT_EQ(lines(window, "lstFiles").at(0), "All 3 files");
        list(window, "lstFiles")->setCurrentRow(2);
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("new"));
        EXPECT_TRUE(folder.read(simName(2)) == sim("old"));
        list(window, "lstEntries")->setCurrentRow(1);
        EXPECT_EQ(list(window, "lstFiles")->currentRow(), 0);
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("old"));
        EXPECT_TRUE(folder.read(simName(3)) == sim("old"));
    });
}

TEST_F(HistoryWindowTest, AFileThatIsGoneIsMadeAnewAndANewOneIsRemoved) {
    dressMara();
    const Path ensemble = folder.path("program\\ENS\\new.ens");
    std::filesystem::create_directories(folder.program() / "ENS");
    run("Save ensemble", "new.ens", {{ensemble, "lines"}});
    std::filesystem::remove(folder.root() / simName(1));
    show([this](QWidget& window) {
        restore(window);
        EXPECT_FALSE(folder.exists("program/ENS/new.ens"));
        list(window, "lstEntries")->setCurrentRow(2);
        restore(window);
        EXPECT_TRUE(folder.read(simName(1)) == sim("two"));
    });
    EXPECT_TRUE(script.messages().at(0).text.contains(
        "Made by that command, to be removed:\nENS\\new.ens"));
    EXPECT_TRUE(script.messages().at(2).text.contains("Not there any more, to be made anew:"));
}

TEST_F(HistoryWindowTest, KeptBytesThatAreNotThoseThatWereKeptAreRefused) {
    dressMara();
    const History& history = earlierVersions();
    const HistoryEntry newest = history.entries().at(0);
    writeWholeFile(history.keptFile(newest, newest.about.records.at(0)), sim("evil"));
    show([this](QWidget& window) {
        script.answer();
        click(window, "cmdRestore");
        EXPECT_TRUE(folder.read(simName(1)) == sim("three"));
    });
    EXPECT_EQ(script.messages().at(0).title, "Nothing To Restore");
    EXPECT_TRUE(script.messages().at(0).text.contains("Its old content isn't as it was kept."));
}

TEST_F(HistoryWindowTest, EntriesOfOtherGamesStandApartWithoutRestore) {
    dressMara();
    std::filesystem::create_directories(folder.root() / "second");
    SimsPath = folder.path("second");
    show([](QWidget& window) {
        ASSERT_EQ(list(window, "lstEntries")->count(), 3);
        EXPECT_EQ(lines(window, "lstEntries").at(0), "Of other games, or not to be read:");
        EXPECT_FALSE(find<QPushButton>(window, "cmdRestore")->isEnabled());
        list(window, "lstEntries")->setCurrentRow(1);
        EXPECT_FALSE(find<QPushButton>(window, "cmdRestore")->isEnabled());
        EXPECT_TRUE(state(window).startsWith("These files belong to another game."));
    });
}

TEST_F(HistoryWindowTest, AMovedGameIsTakenOnAfterAQuestionWithBothFolders) {
    dressMara();
    const QString before = toDisplay(SimsPath);
    std::filesystem::rename(folder.root() / "game", folder.root() / "moved");
    SimsPath = folder.path("moved");
    show([this](QWidget& window) {
        script.answer(QMessageBox::No);
        click(window, "cmdRestore");
        script.answer(QMessageBox::Yes);
        restore(window);
    });
    EXPECT_TRUE(folder.read("moved/UserData/Characters/user00001.iff") == sim("two"));
    EXPECT_TRUE(script.messages().at(0).text.contains(before));
    EXPECT_TRUE(script.messages().at(0).text.contains(toDisplay(SimsPath)));
}

TEST_F(HistoryWindowTest, WhileTheGameRunsTheQuestionBeforeASaveIsAsked) {
    dressMara();
    setRunningPrograms([] { return std::vector<RunningProgram>{{7, "SIMS.EXE"}}; });
    show([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::No);
        click(window, "cmdRestore");
        EXPECT_TRUE(folder.read(simName(1)) == sim("three"));
    });
    EXPECT_EQ(script.messages().at(1).text, "The Sims is running. Save anyway?");
    setRunningPrograms({});
}

TEST_F(HistoryWindowTest, AFailureIsReportedAndTheFileStays) {
    dressMara();
    folder.makeReadOnly(simName(1));
    const test::ErrorRecorder recorder;
    show([&](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdRestore");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(test::inWords(recorder.reports()[0]), "75 frmHistory cmdRestore_Click 4000");
        EXPECT_FALSE(pointerIsBusy());
    });
    EXPECT_TRUE(folder.read(simName(1)) == sim("three"));
}

TEST_F(HistoryWindowTest, FilesThatCanLieNowhereAreOfNoOtherGame) {
    folder.write("program/History/000001 2026-01-01 12.00.00 Save/about.json",
                 R"({"version":1,"command":"Save","files":[{"path":"..\\user1.iff","after":null,)"
                 R"("before":{"size":0,"sha256":")" +
                     std::string(64, '0') + R"("}}]})");
    show([](QWidget& window) {
        ASSERT_EQ(list(window, "lstEntries")->count(), 2);
        list(window, "lstEntries")->setCurrentRow(1);
        EXPECT_FALSE(find<QPushButton>(window, "cmdRestore")->isEnabled());
        EXPECT_EQ(state(window), "No sim, archive or ensemble can lie where these files lay.");
    });
}

// The lists shrink when a text of several lines comes up below them.
TEST_F(HistoryWindowTest, TheChosenLineStaysInSight) {
    folder.write(simName(1), sim("0"));
    for (int save = 1; save <= 12; ++save) {
        run("Save", "Mara Quill", {{simPath(1), sim(std::to_string(save))}});
    }
    std::filesystem::create_directories(folder.root() / "second");
    SimsPath = folder.path("second");
    show([](QWidget& window) {
        QListWidget* entries = list(window, "lstEntries");
        entries->setFocus();
        QTest::keyClick(entries, Qt::Key_Down);
        QTest::keyClick(entries, Qt::Key_End);
        QApplication::processEvents();
        ASSERT_EQ(entries->currentRow(), 12);
        const QRect line = entries->visualItemRect(entries->currentItem());
        EXPECT_TRUE(entries->viewport()->rect().contains(line))
            << line.bottom() << " of " << entries->viewport()->height();
    });
}

TEST_F(HistoryWindowTest, TheBoundsAreSetHere) {
    show([](QWidget& window) {
        EXPECT_EQ(find<QSpinBox>(window, "spnFiles")->value(), 1024);
        EXPECT_EQ(find<QSpinBox>(window, "spnArchives")->value(), 1024);
        EXPECT_EQ(find<QSpinBox>(window, "spnVersions")->value(), 2);
        auto* files = find<QSpinBox>(window, "spnFiles");
        files->setFocus();
        files->selectAll();
        QTest::keyClicks(files, "300");
        find<QWidget>(window, "cmdClose")->setFocus();
        find<QSpinBox>(window, "spnVersions")->setValue(5);
        QTest::keyClick(find<QSpinBox>(window, "spnVersions"), Qt::Key_Return);
    });
    EXPECT_EQ(earlierVersions().bounds().files, 300LL << 20U);
    EXPECT_EQ(earlierVersions().bounds().archives, 1LL << 30U);
    EXPECT_EQ(earlierVersions().bounds().versionsOfAnArchive, 5);
    show([](QWidget& window) { EXPECT_EQ(find<QSpinBox>(window, "spnFiles")->value(), 300); });
}

TEST_F(HistoryWindowTest, ControlsHaveNames) {
    show([](QWidget& window) {
        for (const char* name : {"spnFiles", "spnArchives", "spnVersions"}) {
            EXPECT_FALSE(find<QWidget>(window, name)->accessibleName().isEmpty()) << name;
        }
        EXPECT_EQ(find<QLabel>(window, "lblEntries")->buddy()->objectName(), "lstEntries");
        EXPECT_EQ(find<QLabel>(window, "lblFiles")->buddy()->objectName(), "lstFiles");
        EXPECT_EQ(find<QLabel>(window, "lblFilter")->buddy()->objectName(), "txtFilter");
        EXPECT_EQ(window.windowTitle(), "Earlier Versions");
    });
}

// From the wardrobe.

class WardrobesHistoryTest : public test::EditSimTest {
  protected:
    // What the sim has is then an earlier version.
    void saveTheFormalDefault() {
        open([this](QWidget& window) {
            script.answer(QMessageBox::Yes);
            click(window, "cmdDefaultFormal");
            saveAndAgree(window);
        });
    }
};

TEST_F(WardrobesHistoryTest, LeadsToTheSimsVersionsAndLoadsAnewAfterARestore) {
    makeSim();
    const std::string first = content;
    saveTheFormalDefault();
    folder.write("game/UserData/Characters/user00002.iff", first);
    {
        HistoryCommand command(earlierVersions(), "Save", "Bob", {});
        ASSERT_TRUE(command.keepOrAsk(folder.path("game\\UserData\\characters\\user00002.iff"),
                                      stateOf("other")));
    }
    open([&](QWidget& window) {
        EXPECT_EQ(test::textOf(window, "txtFormalBody"), "f100fafit_original");
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        const auto restore = [&](QWidget& history) {
            EXPECT_EQ(find<QListWidget>(history, "lstEntries")->count(), 1);
            click(history, "cmdRestore");
            click(history, "cmdClose");
        };
        // Yes, but the changes aren't to be dropped.
        script.whenShown("frmHistory", restore);
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::No);
        click(window, "cmdHistory");
        EXPECT_FALSE(fileContent() == first);
        EXPECT_EQ(test::textOf(window, "txtSwimsuitBody"), "s100fafit_original");
        script.whenShown("frmHistory", restore);
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdHistory");
        EXPECT_TRUE(fileContent() == first);
        EXPECT_EQ(test::textOf(window, "txtFormalBody"), "f001fafit_own");
        EXPECT_EQ(test::textOf(window, "txtSwimsuitBody"), "s001fafit_own");
        // What is on the disk is what the window has: a save asks nothing more.
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
}

TEST_F(WardrobesHistoryTest, WithoutChangesARestoreAsksNothingMore) {
    makeSim();
    saveTheFormalDefault();
    open([&](QWidget& window) {
        restoreWithoutChanges(window);
        EXPECT_EQ(test::textOf(window, "txtFormalBody"), "f001fafit_own");
        click(window, "cmdCancel");
    });
}

// Reading a user file that isn't there makes an empty one, which the game would find.
TEST_F(WardrobesHistoryTest, ClosesWhenItsSimIsTakenAway) {
    makeSim();
    takeAway();
}

}  // namespace
}  // namespace marlowick
