#include "foundation/saves_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSaves = "/Electronic Arts/The Sims 25";

class SavesFolderTest : public ::testing::Test {
  protected:
    Path savesOf(const std::string& install) {
        BoundedLook look;
        return savesFolder(machine.at(install), machine.surroundings, look);
    }

    void saves(const std::string& folder) { machine.neighbourhood(folder + kSaves + "/UserData"); }

    Path savesIn(const std::string& folder) { return machine.at(folder + kSaves); }

    bool holds(const std::string& folder) {
        BoundedLook look;
        return holdsNeighbourhood(machine.at(folder), look);
    }

    test::MadeUpMachine machine;
};

TEST_F(SavesFolderTest, ANeighbourhoodHasCharactersOrAFileOfItsOwn) {
    EXPECT_FALSE(holds("none"));
    fs::create_directories(machine.folder.root() / "s" / "UserData");
    machine.folder.write("s/Other/Characters/x", "");
    machine.folder.write("s/UserData9", "a file");
    EXPECT_FALSE(holds("s"));
    machine.folder.write("s/userdata2/neighborhood.IFF", "");
    EXPECT_TRUE(holds("s"));
    fs::create_directories(machine.folder.root() / "t" / "UserData8" / "characters");
    EXPECT_TRUE(holds("t"));
}

// Windows.

TEST_F(SavesFolderTest, OnWindowsSavedGamesComeFirstThenDocuments) {
    machine.game("game");
    machine.surroundings.savedGames = machine.at("moved/Saved Games");
    machine.surroundings.documents = machine.at("OneDrive/Documents");
    EXPECT_EQ(savesOf("game"), savesIn("moved/Saved Games"));
    saves("OneDrive/Documents");
    EXPECT_EQ(savesOf("game"), savesIn("OneDrive/Documents"));
    fs::create_directories(machine.folder.root() /
                           "moved/Saved Games/Electronic Arts/The Sims 25/UserData");
    EXPECT_EQ(savesOf("game"), savesIn("OneDrive/Documents"));
    saves("moved/Saved Games");
    EXPECT_EQ(savesOf("game"), savesIn("moved/Saved Games"));
}

// Linux.

TEST_F(SavesFolderTest, OfAPrefixThoseOfThePrefixThatTheGameLiesIn) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    const std::string install = "home/Games/sims/drive_c/Program Files/EA Games/The Sims Legacy";
    machine.prefix("home/Games/sims");
    machine.game(install);
    saves("home/.wine/drive_c/users/player/Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("home/Games/sims/drive_c/users/player/Saved Games"));
    saves("home/Games/sims/drive_c/users/anna/Documents");
    EXPECT_EQ(savesOf(install), savesIn("home/Games/sims/drive_c/users/anna/Documents"));
    saves("home/Games/sims/drive_c/users/player/Documents");
    EXPECT_EQ(savesOf(install), savesIn("home/Games/sims/drive_c/users/player/Documents"));
    saves("home/Games/sims/drive_c/users/player/Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("home/Games/sims/drive_c/users/player/Saved Games"));
    saves("home/Games/sims/drive_c/users/steamuser/Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("home/Games/sims/drive_c/users/steamuser/Saved Games"));
}

TEST_F(SavesFolderTest, AMovedFolderOfAPrefixIsTheOneThatCounts) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    const std::string install = "p/drive_c/Program Files/EA Games/The Sims Legacy";
    machine.game(install);
    machine.prefix("p", "",
                   test::MadeUpMachine::shellFolders(
                       "\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=\"C:\\\\Spiele\"\n"));
    // Left behind where they were before the move.
    saves("p/drive_c/users/player/Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("p/drive_c/Spiele"));
    saves("p/drive_c/Spiele");
    EXPECT_EQ(savesOf(install), savesIn("p/drive_c/Spiele"));
}

TEST_F(SavesFolderTest, OfSteamThoseOfTheLibrarysOwnPrefix) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    machine.libraries("home/.local/share/Steam", {"home/.local/share/Steam", "big"});
    machine.steamGame("big");
    const std::string install = "big/steamapps/common/The Sims Legacy Collection";
    const std::string user = "/steamapps/compatdata/3314060/pfx/drive_c/users/steamuser/";
    // Nothing is there yet.
    EXPECT_EQ(savesOf(install), savesIn("big" + user + "Saved Games"));
    // The prefix in another library.
    saves("home/.local/share/Steam" + user + "Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("home/.local/share/Steam" + user + "Saved Games"));
    saves("big" + user + "Documents");
    EXPECT_EQ(savesOf(install), savesIn("big" + user + "Documents"));
    saves("big" + user + "Saved Games");
    EXPECT_EQ(savesOf(install), savesIn("big" + user + "Saved Games"));
}

TEST_F(SavesFolderTest, AGameOutsideOfAnyPrefixTakesTheFirstPrefixWithSaves) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    machine.game("disk/Sims");
    EXPECT_EQ(savesOf("disk/Sims"), savesIn("home/.wine/drive_c/users/player/Saved Games"));
    machine.prefix("home/.wine");
    machine.prefix("home/Games/sims");
    saves("home/Games/sims/drive_c/users/player/Saved Games");
    EXPECT_EQ(savesOf("disk/Sims"), savesIn("home/Games/sims/drive_c/users/player/Saved Games"));
}

#ifndef _WIN32
TEST_F(SavesFolderTest, AGameThatIsReachedThroughALinkIsStillSteams) {
    machine.surroundings.home = machine.at("home");
    machine.steamGame("steam");
    const std::string user =
        "steam/steamapps/compatdata/3314060/pfx/drive_c/users/steamuser/Saved Games";
    saves(user);
    fs::create_directory_symlink("steam/steamapps/common/The Sims Legacy Collection",
                                 machine.folder.root() / "sims");
    EXPECT_EQ(savesOf("sims"), savesIn(user));
    // And one that Steam reaches through a link.
    fs::rename(machine.folder.root() / "steam/steamapps/common/The Sims Legacy Collection",
               machine.folder.root() / "big");
    fs::create_directory_symlink(
        "../../../big",
        machine.folder.root() / "steam/steamapps/common/The Sims Legacy Collection");
    EXPECT_EQ(savesOf("steam/steamapps/common/The Sims Legacy Collection"), savesIn(user));
}
#endif

}  // namespace
}  // namespace marlowick
