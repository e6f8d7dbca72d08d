// The main window on a game of the Legacy Collection, whose neighbourhoods lie among the player's
// saves, and between two games.
#include <gtest/gtest.h>

#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <algorithm>
#include <map>
#include <optional>

#include "browser/main_window_test.h"
#include "catalogue/model_catalogue.h"
#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "support/archive_builder.h"
#include "support/faulty_files.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/known_folders.h"
#include "system/processes.h"
#include "widgets/display_text.h"
#include "widgets/elided_label.h"
#include "widgets/input_guard.h"
#include "widgets/settings.h"
#ifdef _WIN32
#include "support/moved_saved_games.h"
#endif

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using test::click;
using test::find;
using test::simFile;
using test::simRows;
using test::textOf;

constexpr const char* kInstall = "drive/Program Files/EA Games/The Sims Legacy";
constexpr const char* kSaves = "Saved Games/Electronic Arts/The Sims 25";

class LegacyGameTest : public test::MainWindowTest {
  protected:
    LegacyGameTest() {
        surroundings.fixedDrives = {folder.path("drive")};
        surroundings.savedGames = folder.path("Saved Games");
        surroundings.documents = folder.path("Documents");
        // The classic game stands in the registry.
        surroundings.registry = [this](RegistryHive, RegistryView, std::string_view key,
                                       std::string_view name) -> std::optional<std::string> {
            if (key != "Software\\Maxis\\The Sims" || name != "InstallPath") {
                return std::nullopt;
            }
            return folder.path("game").text();
        };
        setGameSurroundings([this] { return surroundings; });
        makeInstall(kInstall);
    }

    // The game and its templates, one of which the player hasn't got.
    void makeInstall(const std::string& install) const {
        folder.write(install + "/Sims.exe", "MZ");
        folder.write(install + "/eadpsdk.json", "{}");
        writeSim(install + "/UserData", "Template");
        writeSim(install + "/UserData4", "Template");
    }

    // A player's neighbourhoods, one of which the player has made.
    void makeSaves(const std::string& saves) const {
        writeSim(saves + "/UserData", "Anna");
        writeSim(saves + "/UserData8", "Ben");
    }

    void writeSim(const std::string& neighbourhood, const std::string& name) const {
        folder.write(neighbourhood + "/Characters/user00001.iff",
                     simFile(simRows({}), name, "User1 - " + name));
    }

    void makeModel(const std::string& game, const std::string& name) const {
        folder.write(game + "/GameData/Animation/Animation.far",
                     test::archiveFile({{name + ".bcf", "x", {}}}));
    }

    // Every file of the game's own folder.
    std::map<std::string, std::string> install() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root() / kInstall)) {
            if (entry.is_regular_file()) {
                const std::string name = entry.path().lexically_relative(folder.root()).string();
                contents[name] = folder.read(name);
            }
        }
        return contents;
    }

    // A folder as the search hands it out, which follows links.
    QString shown(const std::string& name) const {
        std::string text = fs::canonical(folder.root()).string() + "/" + name;
        std::replace(text.begin(), text.end(), '/', '\\');
        return toDisplay(Path(text));
    }

    static QStringList lines(QWidget& window) {
        auto* list = find<QListWidget>(window, "lstUserDataDir");
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            texts.append(list->item(i)->text());
        }
        return texts;
    }

    static QString gameIn(QWidget& window) { return find<QLabel>(window, "lblGame")->text(); }

    // Chooses another game in the window for it, and answers so many messages then.
    void openGameAt(QWidget& window, const QString& location, int messages = 0) {
        script.whenShown("frmSetPath", [location](QWidget& path) {
            find<QLineEdit>(path, "txtLocation")->setText(location);
            click(path, "cmdOK");
        });
        for (int i = 0; i < messages; ++i) {
            script.answer();
        }
        chooseCommand(window, "smenuSetPath");
    }

    GameSurroundings surroundings;
};

const QStringList kSavedLines = {"Neighborhood 01   (UserData)", "Neighborhood 08   (UserData8)"};

// Start-up.

TEST_F(LegacyGameTest, AFirstStartFindsTheGameAndItsSaves) {
    makeSaves(kSaves);
    frmMain& window = show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), shown(kInstall));
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(lines(window), kSavedLines);
    EXPECT_EQ(gameIn(window), "The Sims Legacy Collection\n" + toDisplay(folder.path(kSaves)));
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "Anna");
    EXPECT_FALSE(pointerIsBusy());
}

TEST_F(LegacyGameTest, AStoredErrorOrAGameThatHasGoneIsReplacedByTheFoundOne) {
    makeSaves(kSaves);
    for (const QString& stored : {QString("ERROR"), toDisplay(folder.path("gone"))}) {
        destroyWindows();
        writeSetting(setting::kSimsLocation, stored);
        writeSetting(setting::kNeighborhoods, toDisplay(folder.path("gone/own")));
        EXPECT_EQ(lines(show()), kSavedLines);
        EXPECT_EQ(readSetting(setting::kSimsLocation), shown(kInstall));
        EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    }
}

TEST_F(LegacyGameTest, AValidSettingWins) {
    makeSaves(kSaves);
    test::installGame(folder);
    makeSims("UserData2", 1);
    frmMain& window = show();
    EXPECT_EQ(SimsPath, folder.path("game"));
    EXPECT_EQ(readSetting(setting::kSimsLocation), toDisplay(folder.path("game")));
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 02   (UserData2)"});
    EXPECT_EQ(gameIn(window), "The Sims (classic)\n" + toDisplay(folder.path("game")));
}

TEST_F(LegacyGameTest, WithoutAGameTheLineSaysSo) {
    fs::remove_all(folder.root() / "drive");
    script.answer();
    script.answer();
    frmMain& window = show();
    EXPECT_EQ(gameIn(window), "No game is open");
    EXPECT_EQ(script.messages().size(), 2U);
}

TEST_F(LegacyGameTest, TheCatalogueIsThatOfTheFoundGame) {
    makeSaves(kSaves);
    makeModel(kInstall, "b001fafit_legacy");
    show();
    ASSERT_EQ(CatalogueFA.bound(), 1);
    EXPECT_EQ(CatalogueFA[1], "B001FAFIT_LEGACY");
}

TEST_F(LegacyGameTest, TheTemplatesAreNoChoiceOfASettingEither) {
    makeSaves(kSaves);
    writeSetting(setting::kSimsLocation, shown(kInstall));
    writeSetting(setting::kNeighborhoods, shown(kInstall));
    script.answer();
    EXPECT_EQ(lines(show()), kSavedLines);
}

// A chosen folder that is away is told of once, and stays the choice.
TEST_F(LegacyGameTest, ChosenNeighbourhoodsThatAreAwayAreToldOfAndNotForgotten) {
    makeSaves(kSaves);
    writeSim("copies/UserData5", "Carla");
    writeSetting(setting::kSimsLocation, shown(kInstall));
    writeSetting(setting::kNeighborhoods, shown("copies"));
    const QString chosen = shown("copies");
    fs::rename(folder.root() / "copies", folder.root() / "unplugged");
    script.answer();
    frmMain& window = show();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Neighborhoods Not Found");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_TRUE(script.messages()[0].text.contains(chosen + '\n'));
    EXPECT_TRUE(script.messages()[0].text.endsWith(shown(kSaves)));
    EXPECT_EQ(lines(window), kSavedLines);
    window.Form_Activate();
    EXPECT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(readSetting(setting::kNeighborhoods), chosen);
    fs::rename(folder.root() / "unplugged", folder.root() / "copies");
    window.Form_Activate();
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 05   (UserData5)"});
}

// The disk of a game that isn't there at the start may come; its templates must not be listed.
TEST_F(LegacyGameTest, AGameWhoseDiskComesLaterIsJudgedThen) {
    makeSaves(kSaves);
    fs::rename(folder.root() / "drive", folder.root() / "unplugged");
    writeSetting(setting::kSimsLocation, toDisplay(folder.path(kInstall)));
    script.answer();
    frmMain& window = show();
    EXPECT_EQ(script.messages().size(), 1U);
    fs::rename(folder.root() / "unplugged", folder.root() / "drive");
    window.Form_Activate();
    EXPECT_EQ(lines(window), kSavedLines);
    EXPECT_TRUE(gameIn(window).startsWith("The Sims Legacy Collection\n"));
}

// Saving.

TEST_F(LegacyGameTest, ASaveChangesTheSavesAndNoByteOfTheInstall) {
    makeSaves(kSaves);
    const std::string file = std::string(kSaves) + "/UserData/Characters/user00001.iff";
    const std::string other = std::string(kSaves) + "/UserData8/Characters/user00001.iff";
    const auto before = install();
    const std::string saved = folder.read(file);
    const std::string untouched = folder.read(other);
    frmMain& window = showFirst();
    script.whenShown("frmEditSim", [this](QWidget& editor) {
        EXPECT_EQ(textOf(editor, "txtName"), "Anna  (User1 - Anna)");
        script.answer(QMessageBox::Yes);
        click(editor, "cmdDefaultSwimsuit");
        script.answer(QMessageBox::Yes);
        script.answer();
        click(editor, "cmdSave");
    });
    click(window, "cmdSelect");
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(test::rowsOfFile(folder.read(file))[31],
              "s100fafit_original,BODY=s100fafitlgt_original");
    EXPECT_EQ(folder.read(other), untouched);
    EXPECT_TRUE(install() == before);
    const auto backups = searchFiles(folder.path("program/Backup"), "*");
    ASSERT_EQ(backups.size(), 1U);
    EXPECT_TRUE(backups[0].starts_with("user00001iff_Anna_UserData_")) << backups[0];
    EXPECT_EQ(folder.read("program/Backup/" + backups[0]), saved);
}

TEST_F(LegacyGameTest, ARepairAndAnExportWorkOnTheSaves) {
    makeSaves(kSaves);
    std::vector<std::string> rows = simRows({});
    rows[28] = "HfLO,HAND=guao_pinkg";
    for (const std::string& town : {std::string(kSaves), std::string(kInstall)}) {
        folder.write(town + "/UserData/Characters/user00001.iff", simFile(rows));
    }
    const auto before = install();
    frmMain& window = showFirst();
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuPinkHands");
    EXPECT_EQ(test::rowsOfFile(
                  folder.read(std::string(kSaves) + "/UserData/Characters/user00001.iff"))[28],
              "HfLO,HAND=gfao_bride");
    EXPECT_TRUE(install() == before);
    chooseLine(window, 1);
    script.answer();
    chooseCommand(window, "smenuExport");
    EXPECT_EQ(folder.read("program/bodyskins.txt"), "user00001.iff;Ben;b001fafitlgt_own\r\n");
}

// Through the registry of a prefix, as Linux has it.
TEST_F(LegacyGameTest, MovedSavedGamesOfAPrefixAreFollowed) {
    const std::string prefix = "home/Games/sims";
    const std::string place = prefix + "/drive_c/Program Files/EA Games/The Sims Legacy";
    makeInstall(place);
    // Left behind where they were before the move.
    makeSaves(prefix + "/drive_c/users/anna/Saved Games/Electronic Arts/The Sims 25");
    const std::string moved = prefix + "/drive_c/users/anna/Spiele/Electronic Arts/The Sims 25";
    writeSim(moved + "/UserData3", "Clara");
    folder.write(
        prefix + "/user.reg",
        "WINE REGISTRY Version 2\n\n[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\"
        "Explorer\\\\User Shell Folders] 1699999999\n"
        "\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=str(2):\"%USERPROFILE%\\\\Spiele\"\n");
    surroundings = {};
    surroundings.home = folder.path("home");
    surroundings.login = "anna";
    frmMain& window = show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), shown(place));
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 03   (UserData3)"});
    EXPECT_EQ(gameIn(window), "The Sims Legacy Collection\n" + shown(moved));
}

#ifdef _WIN32
// In the registry of Windows, as a person moves the folder.
TEST_F(LegacyGameTest, MovedSavedGamesAreFollowed) {
    makeSaves(kSaves);
    writeSim("Spiele/Electronic Arts/The Sims 25/UserData3", "Clara");
    const test::MovedSavedGames moved(
        QString::fromStdString(folder.path("Spiele").text()).toStdWString());
    surroundings.savedGames = savedGamesFolder();
    frmMain& window = show();
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 03   (UserData3)"});
    EXPECT_EQ(gameIn(window), "The Sims Legacy Collection\n" +
                                  toDisplay(folder.path("Spiele/Electronic Arts/The Sims 25")));
}
#endif

// Saves that aren't there yet.

TEST_F(LegacyGameTest, SavesThatAreMissingAreToldOnceAndListedOnceTheyAreThere) {
    script.answer();
    frmMain& window = show();
    EXPECT_EQ(lines(window), QStringList());
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "No Neighborhoods Yet");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Information);
    EXPECT_EQ(script.messages()[0].text,
              "The Sims Legacy Collection makes its neighborhoods at its first start. They are not "
              "there yet.\nThe game lies in:\n" +
                  shown(kInstall) + "\nIts neighborhoods will lie in:\n" +
                  toDisplay(folder.path(kSaves)) + "\nPlease start the game once.");
    window.Form_Activate();
    EXPECT_EQ(lines(window), QStringList());
    makeSaves(kSaves);
    window.Form_Activate();
    EXPECT_EQ(lines(window), kSavedLines);
    EXPECT_EQ(script.messages().size(), 1U);
}

TEST_F(LegacyGameTest, APlayerWhoComesBackFromTheFirstStartFindsThem) {
    script.answer();
    frmMain& window = show();
    const auto comeBack = [&window] {
        QEvent activated(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&window, &activated);
    };
    comeBack();
    EXPECT_EQ(lines(window), QStringList());
    makeSaves("Documents/Electronic Arts/The Sims 25");
    comeBack();
    EXPECT_EQ(lines(window), kSavedLines);
    EXPECT_EQ(gameIn(window), "The Sims Legacy Collection\n" +
                                  toDisplay(folder.path("Documents/Electronic Arts/The Sims 25")));
    EXPECT_EQ(script.messages().size(), 1U);
}

TEST_F(LegacyGameTest, MissingSavesAreToldOnceMoreAfterAChangeOfGame) {
    test::installGame(folder);
    frmMain& window = show();
    for (int told = 1; told <= 2; ++told) {
        openGameAt(window, shown(kInstall), 1);
        EXPECT_EQ(script.messages().size(), static_cast<std::size_t>(told));
        window.Form_Activate();
        openGameAt(window, toDisplay(folder.path("game")));
    }
    EXPECT_EQ(script.messages().size(), 2U);
}

// Another game.

TEST_F(LegacyGameTest, AChangeOfGameListsAnewAtOnce) {
    makeSaves(kSaves);
    makeModel(kInstall, "b001fafit_legacy");
    makeModel("game", "b002fafit_classic");
    frmMain& window = showSims(60);
    click(window, "cmdNext");
    clickCell(window, 3);
    ASSERT_EQ(CatalogueFA[1], "B002FAFIT_CLASSIC");
    openGameAt(window, shown(kInstall));
    EXPECT_EQ(lines(window), kSavedLines);
    EXPECT_TRUE(find<QListWidget>(window, "lstUserDataDir")->selectedItems().isEmpty());
    EXPECT_EQ(nameIn(window, 0), "");
    EXPECT_EQ(textOf(window, "txtSimName"), "");
    EXPECT_EQ(textOf(window, "txtPageCount"), "");
    EXPECT_TRUE(gameIn(window).startsWith("The Sims Legacy Collection\n"));
    ASSERT_EQ(CatalogueFA.bound(), 1);
    EXPECT_EQ(CatalogueFA[1], "B001FAFIT_LEGACY");
    EXPECT_FALSE(pointerIsBusy());
    // No sim is there to be opened, none to be repaired.
    click(window, "cmdSelect");
    // The frame blinks; how often it did before is the clock's.
    tick(window);
    EXPECT_FALSE(framed(window, 3));
    const bool lit = framed(window, 0);
    tick(window);
    EXPECT_FALSE(framed(window, 3));
    EXPECT_NE(framed(window, 0), lit);
    // And back.
    openGameAt(window, toDisplay(folder.path("game")));
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 01   (UserData)"});
    EXPECT_EQ(CatalogueFA[1], "B002FAFIT_CLASSIC");
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "Sim 1");
    EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
}

// Whether the pointer is busy whenever the models of a game are looked for.
class CatalogueWatcher : public test::FaultyFiles {
  public:
    CatalogueWatcher() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (path.text().ends_with("Animation.far")) {
            ++looks;
            busy = busy && pointerIsBusy();
        }
        return FaultyFiles::open(path, mode);
    }

    int looks = 0;
    bool busy = true;
};

TEST_F(LegacyGameTest, TheCatalogueIsRebuiltUnderTheHourglass) {
    makeSaves(kSaves);
    makeModel(kInstall, "b001fafit_legacy");
    frmMain& window = showSims(1);
    CatalogueWatcher watcher;
    openGameAt(window, shown(kInstall));
    EXPECT_EQ(watcher.looks, 1);
    EXPECT_TRUE(watcher.busy);
    EXPECT_FALSE(pointerIsBusy());
}

TEST_F(LegacyGameTest, OtherNeighbourhoodsAreListedAnewToo) {
    makeSaves(kSaves);
    writeSim("copies/UserData5", "Dora");
    frmMain& window = showFirst();
    ASSERT_EQ(nameIn(window, 0), "Anna");
    makeModel(kInstall, "b001fafit_new");
    script.whenShown("frmSetPath", [this](QWidget& path) {
        find<QLineEdit>(path, "txtNeighborhoods")->setText(toDisplay(folder.path("copies")));
        click(path, "cmdOK");
    });
    chooseCommand(window, "smenuSetPath");
    EXPECT_EQ(lines(window), QStringList{"Neighborhood 05   (UserData5)"});
    EXPECT_EQ(nameIn(window, 0), "");
    EXPECT_EQ(CatalogueFA.bound(), 1);
    EXPECT_EQ(gameIn(window), "The Sims Legacy Collection\n" + toDisplay(folder.path("copies")));
    chooseLine(window, 0);
    EXPECT_EQ(nameIn(window, 0), "Dora");
}

TEST_F(LegacyGameTest, TheSameGameAgainLeavesThePageAlone) {
    makeSaves(kSaves);
    frmMain& window = showFirst();
    openGameAt(window, shown(kInstall));
    EXPECT_EQ(nameIn(window, 0), "Anna");
}

// The line under the list.

TEST_F(LegacyGameTest, TheLineIsShortenedWhereItIsPaintedAlone) {
    makeSaves(kSaves);
    frmMain& window = show();
    auto* line = find<ElidedLabel>(window, "lblGame");
    const QString whole = "The Sims Legacy Collection\n" + toDisplay(folder.path(kSaves));
    EXPECT_EQ(line->text(), whole);
    EXPECT_EQ(line->toolTip(), whole);
    const QStringList painted = line->fittedLines();
    ASSERT_EQ(painted.size(), 2);
    EXPECT_EQ(painted[0], "The Sims Legacy Collection");
    EXPECT_TRUE(painted[1].contains(QChar(0x2026)));
    EXPECT_TRUE(painted[1].endsWith("The Sims 25"));
    EXPECT_EQ(line->width(), find<QWidget>(window, "lstUserDataDir")->width());
    EXPECT_LT(line->y(), find<QWidget>(window, "txtSimName")->y());
    EXPECT_GT(line->y(), find<QWidget>(window, "lstUserDataDir")->y());
}

// The game that runs meanwhile.

class RunningGameTest : public test::MainWindowTest {
  protected:
    void run(std::vector<RunningProgram> programs) {
        setRunningPrograms([programs = std::move(programs)] { return programs; });
    }

    void openSim(QWidget& window) {
        script.whenShown("frmEditSim", [](QWidget& editor) { click(editor, "cmdCancel"); });
        click(window, "cmdSelect");
        EXPECT_TRUE(script.isDone());
    }

    // The answer to a command's own question, and Enter at the one that follows.
    void sayYesThenEnter() {
        script.answer(QMessageBox::Yes);
        script.whenShown("", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    }

    void expectQuestion(const test::SeenMessage& question) {
        EXPECT_EQ(question.title, "Confirm Action");
        EXPECT_EQ(question.text, "The Sims is running. Save anyway?");
        EXPECT_EQ(question.icon, QMessageBox::Question);
        EXPECT_TRUE(question.yesNo);
    }
};

TEST_F(RunningGameTest, OpeningASimTellsOfEachRunOnce) {
    frmMain& window = showSims(1);
    run({{17, "openbox"}});
    openSim(window);
    EXPECT_TRUE(script.messages().empty());
    run({{17, "openbox"}, {18, "sims.EXE"}});
    script.answer();
    openSim(window);
    openSim(window);
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "The Sims Is Running");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_FALSE(script.messages()[0].yesNo);
    EXPECT_TRUE(script.messages()[0].text.startsWith("The Sims is running.\n"));
    run({{19, "Sims.exe"}});
    script.answer();
    openSim(window);
    EXPECT_EQ(script.messages().size(), 2U);
}

TEST_F(RunningGameTest, AClickOnAnEmptyCellTellsNothing) {
    frmMain& window = showSims(1);
    run({{18, "Sims.exe"}});
    clickCell(window, 5);
    click(window, "cmdSelect");
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(RunningGameTest, ARepairAsksOnceAndEnterLeavesEverySimAlone) {
    test::installGame(folder);
    std::vector<std::string> rows = simRows({});
    rows[28] = "HfLO,HAND=guao_pinkg";
    for (int number = 1; number <= 2; ++number) {
        folder.write(test::simPlace(number), simFile(rows));
    }
    frmMain& window = showFirst();
    run({{18, "Sims.exe"}});
    for (const char* entry : {"smenuFix", "smenuPinkHands"}) {
        sayYesThenEnter();
        chooseCommand(window, entry);
        expectQuestion(script.messages().back());
        EXPECT_FALSE(folder.exists("program/usertemp.iff"));
        EXPECT_TRUE(folder.read(test::simPlace(1)) == simFile(rows));
    }
    EXPECT_EQ(script.messages().size(), 4U);
    script.answer(QMessageBox::Yes);
    script.answer(QMessageBox::Yes);
    script.answer();
    chooseCommand(window, "smenuPinkHands");
    ASSERT_EQ(script.messages().size(), 7U);
    EXPECT_EQ(script.messages()[6].text, "Operation Complete");
    EXPECT_EQ(test::rowsOfFile(folder.read(test::simPlace(2)))[28], "HfLO,HAND=gfao_bride");
}

TEST_F(RunningGameTest, WithoutSimsOrForAnExportNothingIsAsked) {
    frmMain& window = showSims(0);
    run({{18, "Sims.exe"}});
    script.answer(QMessageBox::Yes);
    chooseCommand(window, "smenuFix");
    EXPECT_EQ(script.messages().size(), 1U);
    makeSims("UserData", 1);
    chooseLine(window, 0);
    script.answer();
    chooseCommand(window, "smenuExport");
    EXPECT_EQ(script.messages().back().title, "Export Complete");
}

}  // namespace
}  // namespace marlowick
