// The surroundings of a real Windows.
#include "support/moved_saved_games.h"
// After windows.h.
#include <gtest/gtest.h>

#include <filesystem>

#include "foundation/game_surroundings.h"
#include "foundation/open_game.h"
#include "support/test_folder.h"
#include "system/places.h"

namespace marlowick {
namespace {

class ThisMachineTest : public ::testing::Test {
  protected:
    ThisMachineTest() { setGameSurroundings({}); }

    test::TestFolder folder;
};

TEST_F(ThisMachineTest, HasDrivesAndFoldersAndNoHomeOfLinux) {
    const GameSurroundings machine = gameSurroundings();
    EXPECT_FALSE(machine.fixedDrives.empty());
    EXPECT_FALSE(machine.programData.empty());
    EXPECT_FALSE(machine.documents.empty());
    EXPECT_TRUE(machine.home.empty());
    ASSERT_TRUE(machine.registry);
    EXPECT_TRUE(machine.registry(RegistryHive::LocalMachine, RegistryView::Of64Bit,
                                 "Software\\Microsoft\\Windows NT\\CurrentVersion",
                                 "CurrentVersion"));
}

TEST_F(ThisMachineTest, AMovedFolderOfSavedGamesHasTheNeighbourhoods) {
    folder.write("legacy/Sims.exe", "");
    folder.write("legacy/eadpsdk.json", "");
    folder.write("moved \xC3\xBC/Electronic Arts/The Sims 25/UserData/Characters/User00001.iff",
                 "");
    const test::MovedSavedGames moved((folder.root() / L"moved \u00FC").wstring());
    openGame(folder.path("legacy"), Path());
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(neighbourhoodsPath(), folder.path("moved \xC3\xBC/Electronic Arts/The Sims 25"));
    EXPECT_FALSE(waitsForSaves());
}

}  // namespace
}  // namespace marlowick
