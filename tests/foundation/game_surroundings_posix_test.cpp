// The surroundings of a real machine, but for its home folder.
#include <gtest/gtest.h>

#include <cstdlib>

#include "foundation/game_search.h"
#include "foundation/open_game.h"
#include "support/made_up_machine.h"

namespace marlowick {
namespace {

class ThisMachineTest : public ::testing::Test {
  protected:
    ThisMachineTest() : before_(std::getenv("HOME")) {
        setGameSurroundings({});
        ::setenv("HOME", (machine.folder.root() / "home").c_str(), 1);
    }
    ~ThisMachineTest() override { ::setenv("HOME", before_.c_str(), 1); }

    test::MadeUpMachine machine;

  private:
    std::string before_;
};

TEST_F(ThisMachineTest, HasAHomeAndNothingOfWindows) {
    const GameSurroundings surroundings = gameSurroundings();
    EXPECT_EQ(surroundings.home, machine.folder.path("home"));
    EXPECT_FALSE(surroundings.login.empty());
    EXPECT_TRUE(surroundings.fixedDrives.empty());
    EXPECT_TRUE(surroundings.savedGames.empty());
    EXPECT_TRUE(surroundings.programData.empty());
    EXPECT_EQ(steamFolders(surroundings).size(), 7U);
    EXPECT_TRUE(registeredPaths(surroundings).empty());
}

TEST_F(ThisMachineTest, TheGameOfItsHomeIsFoundAndOpened) {
    const std::string steam = "home/.local/share/Steam";
    machine.steamGame(steam);
    const std::string saves =
        steam +
        "/steamapps/compatdata/3314060/pfx/drive_c/users/steamuser/Saved Games/"
        "Electronic Arts/The Sims 25";
    machine.neighbourhood(saves + "/UserData");
    const std::vector<FoundGame> games = findGames(gameSurroundings());
    ASSERT_EQ(games.size(), 1U);
    EXPECT_EQ(foundGameText(games.front()), "The Sims Legacy Collection (Steam)");
    openGame(games.front().folder, Path());
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(neighbourhoodsPath(), machine.at(saves));
}

TEST_F(ThisMachineTest, AMovedFolderOfThePrefixHasTheNeighbourhoods) {
    const std::string prefix = "home/Games/sims";
    const std::string install = prefix + "/drive_c/Program Files/EA Games/The Sims Legacy";
    machine.game(install);
    machine.prefix(prefix, "",
                   test::MadeUpMachine::shellFolders(
                       "\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=\"E:\\\\Spiele\"\n"));
    std::filesystem::create_directories(machine.folder.root() / prefix / "dosdevices");
    std::filesystem::create_directory_symlink(machine.folder.root() / "disk",
                                              machine.folder.root() / prefix / "dosdevices/e:");
    machine.neighbourhood("disk/Spiele/Electronic Arts/The Sims 25/UserData");
    openGame(machine.at(install), Path());
    EXPECT_EQ(neighbourhoodsPath(), machine.at("disk/Spiele/Electronic Arts/The Sims 25"));
}

}  // namespace
}  // namespace marlowick
