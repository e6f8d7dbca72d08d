// Every command that writes, on a game of the Legacy Collection: of the templates in the game's own
// folder no byte changes and none comes or goes, also where a link leads there.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <map>

#include "browser/main_window_test.h"
#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/user_file_builder.h"
#include "widgets/folder_list.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using test::click;
using test::find;

constexpr const char* kSaves = "Saved Games/Electronic Arts/The Sims 25/";
constexpr const char* kSim = "/Characters/user00001.iff";
constexpr const char* kPet = "/Characters/user00002.iff";
constexpr const char* kArchive = "game/GameData/Textures/a.far";

class TemplatesTest : public test::MainWindowTest {
  protected:
    TemplatesTest() {
        surroundings.savedGames = folder.path("Saved Games");
        setGameSurroundings([this] { return surroundings; });
        test::installGame(folder);
        folder.write("game/eadpsdk.json", "{}");
        for (const char* neighbourhood : {"game/UserData", "game/UserData4"}) {
            makeNeighbourhood(neighbourhood, "Template");
        }
        folder.write(kArchive, test::archiveFile({{"a.bmp", test::bitmapFile(8, 8, 0x00FF00), {}},
                                                  {"b.bmp", test::bitmapFile(8, 8, 0xFF), {}}}));
    }

    // A woman who needs both repairs, and a dog.
    void makeNeighbourhood(const std::string& place, const std::string& name) const {
        std::vector<std::string> rows = test::simRows({});
        rows[28] = "HfLO,HAND=guao_pinkg";
        rows[31] = "s001faskn_own,BODY=own";
        folder.write(place + kSim, test::simFile(rows, name, "user00001 - " + name));
        rows = test::simRows({});
        rows[0] = "dog";
        folder.write(place + kPet, test::simFile(rows, "Rex", "user00002 - Rex"));
    }

    // What stands in the game's own neighbourhoods: the content of every file, and the folders.
    std::map<std::string, std::string> templates() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root() / "game")) {
            const std::string name = entry.path().lexically_relative(folder.root()).string();
            if (name.find("UserData") != std::string::npos) {
                contents[name] = entry.is_directory() ? "folder" : folder.read(name);
            }
        }
        return contents;
    }

    // Answers a command's own question and, if it succeeds, its message at the end.
    void expectAnswers(int questions, bool succeeds) {
        for (int i = 0; i < questions; ++i) {
            script.answer(QMessageBox::Yes);
        }
        if (succeeds) {
            script.answer();
        }
    }

    void runTools(frmMain& window, bool succeed) {
        for (const char* entry : {"smenuFix", "smenuPinkHands"}) {
            expectAnswers(1, succeed);
            chooseCommand(window, entry);
        }
    }

    void exportLists(frmMain& window, bool succeeds) {
        expectAnswers(0, succeeds);
        chooseCommand(window, "smenuExport");
    }

    void saveSim(frmMain& window, bool succeeds) {
        clickCell(window, 0);
        script.whenShown("frmEditSim", [this, succeeds](QWidget& editor) {
            expectAnswers(1, false);
            click(editor, "cmdDefaultSwimsuit");
            expectAnswers(1, succeeds);
            click(editor, "cmdSave");
            EXPECT_EQ(editor.isVisible(), !succeeds);
            editor.close();
        });
        click(window, "cmdSelect");
    }

    void savePet(frmMain& window, bool succeeds) {
        clickCell(window, 1);
        script.whenShown("frmEditPet", [this, succeeds](QWidget& editor) {
            expectAnswers(1, succeeds);
            click(editor, "cmdSave");
            EXPECT_EQ(editor.isVisible(), !succeeds);
            editor.close();
        });
        click(window, "cmdSelect");
    }

    // Saves the sim's wardrobe over the ensemble of that name, and deletes it then.
    void saveEnsembleOver(frmMain& window, const QString& name) {
        clickCell(window, 0);
        script.whenShown("frmEditSim", [this, name](QWidget& editor) {
            script.whenShown("frmENS", [this, name](QWidget& ensembles) {
                QTest::keyClicks(find<QLineEdit>(ensembles, "txtFileName"), name);
                script.answer(QMessageBox::Yes);
                click(ensembles, "cmdSaveLoad");
                ensembles.close();
            });
            click(editor, "cmdEnsSave");
            script.whenShown("frmENS", [this, name](QWidget& ensembles) {
                QTest::keyClicks(find<QLineEdit>(ensembles, "txtFileName"), name);
                script.answer(QMessageBox::Yes);
                click(ensembles, "cmdDelete");
                ensembles.close();
            });
            click(editor, "cmdEnsSave");
            editor.close();
        });
        click(window, "cmdSelect");
    }

    // Extracts an entry into a folder, then deletes another and saves the archive.
    void workOnArchive(frmMain& window, const std::string& output, bool saveSucceeds) {
        script.whenShown("frmManageFARs", [this, output, saveSucceeds](QWidget& manager) {
            script.whenShown("frmOpenFAR", [](QWidget& opener) {
                find<QListWidget>(opener, "lstFiles")->setCurrentRow(0);
                click(opener, "cmdSelect");
            });
            click(manager, "cmdOpen");
            find<FolderList>(manager, "dirFiles")->setPath(folder.path(output));
            auto* entries = find<QListWidget>(manager, "lstFiles");
            entries->setCurrentRow(0);
            script.answer();
            click(manager, "cmdExtractFile");
            entries->clearSelection();
            entries->setCurrentRow(1);
            click(manager, "cmdDelete");
            expectAnswers(0, saveSucceeds);
            click(manager, "cmdSave");
            if (!saveSucceeds) {
                script.answer(QMessageBox::Yes);
            }
            manager.close();
        });
        chooseCommand(window, "menuFARs");
    }

    void expectReports(const std::vector<std::string>& wanted) const {
        std::vector<std::string> seen;
        for (const test::Report& report : recorder.reports()) {
            seen.push_back(std::to_string(report.number) + " " + report.module + " " +
                           report.procedure);
        }
        EXPECT_EQ(seen, wanted);
    }

    std::string row(const std::string& file, std::size_t number) const {
        return test::rowsOfFile(folder.read(file))[number - 1];
    }

    GameSurroundings surroundings;
    test::ErrorRecorder recorder;
};

TEST_F(TemplatesTest, EveryCommandChangesTheSavesAlone) {
    makeNeighbourhood(std::string(kSaves) + "UserData", "Anna");
    folder.write("program/ENS/mine.ENS", "old");
    const auto before = templates();
    frmMain& window = showFirst();
    ASSERT_EQ(nameIn(window, 0), "Anna");
    exportLists(window, true);
    runTools(window, true);
    const std::string saved = std::string(kSaves) + "UserData" + kSim;
    EXPECT_EQ(row(saved, 29), "HfLO,HAND=gfao_bride");
    EXPECT_EQ(row(saved, 32), "s100faFIT_original,BODY=s100faFITlgt_original");
    saveEnsembleOver(window, "mine.ENS");
    EXPECT_FALSE(folder.exists("program/ENS/mine.ENS"));
    saveSim(window, true);
    EXPECT_EQ(row(saved, 32), "s100fafit_original,BODY=s100fafitlgt_original");
    savePet(window, true);
    workOnArchive(window, "Saved Games", true);
    EXPECT_TRUE(folder.exists("Saved Games/a.bmp"));
    expectReports({});
    EXPECT_TRUE(templates() == before);
}

TEST_F(TemplatesTest, NothingIsExtractedIntoThem) {
    makeNeighbourhood(std::string(kSaves) + "UserData", "Anna");
    const auto before = templates();
    frmMain& window = showFirst();
    for (const char* place : {"game/UserData/Characters", "game/USERDATA4"}) {
        workOnArchive(window, place, true);
    }
    expectReports({"75 modFARsupport gsExtractFile", "75 modFARsupport gsExtractFile"});
    EXPECT_TRUE(templates() == before);
}

#ifndef _WIN32
TEST_F(TemplatesTest, NoCommandReachesThemThroughALink) {
    const auto link = [this](const std::string& from, const std::string& to) {
        fs::create_directories((folder.root() / from).parent_path());
        if (fs::is_directory(folder.root() / to)) {
            fs::create_directory_symlink(folder.root() / to, folder.root() / from);
        } else {
            fs::create_symlink(folder.root() / to, folder.root() / from);
        }
    };
    fs::create_directories(folder.root() / kSaves);
    link(std::string(kSaves) + "UserData", "game/UserData");
    link("program/ENS/mine.ENS", "game/UserData4/Characters/user00001.iff");
    link("program/headskins.txt", "game/UserData/Characters/user00002.iff");
    fs::rename(folder.root() / kArchive, folder.root() / "game/UserData/a.far");
    link(kArchive, "game/UserData/a.far");
    link("out", "game/UserData4/Characters");
    writeSetting(setting::kBackupSavedFile, "0");
    const auto before = templates();
    frmMain& window = showFirst();
    ASSERT_EQ(nameIn(window, 0), "Template");
    exportLists(window, false);
    runTools(window, false);
    saveEnsembleOver(window, "mine.ENS");
    saveSim(window, false);
    savePet(window, false);
    workOnArchive(window, "out", false);
    expectReports({"75 frmMain smenuExport_Click", "75 frmMain smenuFix_Click",
                   "75 frmMain smenuFix_Click", "75 frmENS cmdSaveLoad_Click",
                   "75 frmEditSim cmdSave_Click", "75 frmEditSim cmdSave_Click",
                   "75 modFARsupport gsExtractFile", "75 frmManageFARs msSaveFile"});
    EXPECT_TRUE(templates() == before);
}

TEST_F(TemplatesTest, NoBackupAndNoLostEnsembleLiesAmongThem) {
    makeNeighbourhood(std::string(kSaves) + "UserData", "Anna");
    folder.write("game/UserData4/mine.ENS", "template");
    fs::create_directories(folder.program());
    for (const char* place : {"Backup", "ENS"}) {
        fs::create_directory_symlink(folder.game() / "UserData4", folder.program() / place);
    }
    const auto before = templates();
    const std::string file = std::string(kSaves) + "UserData" + kSim;
    const std::string saved = folder.read(file);
    frmMain& window = showFirst();
    saveSim(window, false);
    saveEnsembleOver(window, "mine.ENS");
    expectReports({"75 frmEditSim msMakeUserBackup", "75 frmENS cmdSaveLoad_Click"});
    EXPECT_TRUE(folder.read(file) == saved);
    EXPECT_TRUE(templates() == before);
}
#endif

}  // namespace
}  // namespace marlowick
