#include "foundation/game_kind.h"

#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

class GameKindTest : public ::testing::Test {
  protected:
    bool isLegacy(const std::string& install) {
        BoundedLook look;
        return kindOfGame(machine.at(install), machine.surroundings, look) == GameKind::Legacy;
    }

    bool isTemplate(const std::string& path) {
        BoundedLook look;
        return isLegacyTemplate(machine.at(path), machine.surroundings, look);
    }

    bool mayHold(const std::string& path) {
        BoundedLook look;
        return mayHoldNeighbourhoods(machine.at(path), machine.surroundings, look);
    }

    void legacyGame(const std::string& install) {
        machine.game(install);
        machine.folder.write(install + "/eadpsdk.json", "{}");
        machine.neighbourhood(install + "/UserData");
    }

    void link(const std::string& target, const std::string& name) {
        fs::create_directory_symlink(machine.folder.root() / target, machine.folder.root() / name);
    }

    test::MadeUpMachine machine;
};

TEST_F(GameKindTest, TheProgramTellsThatAGameIsThere) {
    BoundedLook look;
    EXPECT_FALSE(isGame(machine.at("g"), look));
    machine.folder.write("g/SIMS.EXE", "");
    EXPECT_TRUE(isGame(machine.at("g"), look));
    fs::create_directories(machine.folder.root() / "h" / "Sims.exe");
    EXPECT_FALSE(isGame(machine.at("h"), look));
    EXPECT_FALSE(isGame(Path(), look));
    EXPECT_FALSE(isGame(Path("ERROR"), look));
}

TEST_F(GameKindTest, WithoutAnySignItIsClassic) {
    machine.game("g");
    machine.surroundings.home = machine.at("home");
    EXPECT_FALSE(isLegacy("g"));
    machine.folder.write("none/eadpsdk.json", "");
    EXPECT_FALSE(isLegacy("none"));
}

TEST_F(GameKindTest, TheFileBesideTheProgramTells) {
    machine.game("g");
    machine.folder.write("g/EADPSDK.JSON", "");
    EXPECT_TRUE(isLegacy("g"));
}

TEST_F(GameKindTest, SteamsManifestTells) {
    machine.steamGame("big");
    EXPECT_TRUE(isLegacy("big/steamapps/common/The Sims Legacy Collection"));
    machine.game("big/steamapps/common/The Sims");
    EXPECT_FALSE(isLegacy("big/steamapps/common/The Sims"));
}

TEST_F(GameKindTest, TheEaAppsNameTells) {
    for (const char* install :
         {"c/Program Files/EA Games/The Sims Legacy", "d/EA GAMES/the sims legacy collection"}) {
        machine.game(install);
        EXPECT_TRUE(isLegacy(install)) << install;
    }
    for (const char* install : {"c/EA Games/The Sims", "c/Other/The Sims Legacy"}) {
        machine.game(install);
        EXPECT_FALSE(isLegacy(install)) << install;
    }
}

TEST_F(GameKindTest, EpicsManifestTells) {
    machine.game("Epic Games/TheSims");
    machine.surroundings.programData = machine.at("data");
    EXPECT_FALSE(isLegacy("Epic Games/TheSims"));
    machine.epicItem("data", "1.item", "Epic Games/TheSims");
    EXPECT_TRUE(isLegacy("Epic Games/TheSims"));
    machine.game("other");
    EXPECT_FALSE(isLegacy("other"));
}

TEST_F(GameKindTest, SavesTellUnlessTheRegistryNamesTheFolder) {
    machine.game("g");
    machine.surroundings.savedGames = machine.at("saved");
    machine.surroundings.documents = machine.at("documents");
    machine.neighbourhood("documents/Electronic Arts/The Sims 25/UserData");
    EXPECT_FALSE(isLegacy("g"));
    machine.neighbourhood("saved/Electronic Arts/The Sims 25/UserData2");
    EXPECT_FALSE(isLegacy("g"));
    machine.neighbourhood("saved/Electronic Arts/The Sims 25/UserData");
    EXPECT_TRUE(isLegacy("g"));
    machine.value("HKLM32 Software\\Maxis\\The Sims\\InstallPath", machine.at("other").text());
    EXPECT_TRUE(isLegacy("g"));
    machine.value("HKCU64 Software\\Maxis\\The Sims\\InstallPath", machine.at("G").text() + "/");
    EXPECT_FALSE(isLegacy("g"));
    // What tells for certain isn't asked for the registry.
    machine.folder.write("g/eadpsdk.json", "");
    EXPECT_TRUE(isLegacy("g"));
}

TEST_F(GameKindTest, InAPrefixItsSavesAndItsRegistryTell) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    machine.prefix("p");
    machine.game("p/drive_c/Sims");
    EXPECT_FALSE(isLegacy("p/drive_c/Sims"));
    machine.neighbourhood(
        "p/drive_c/users/player/Saved Games/Electronic Arts/The Sims 25/UserData");
    EXPECT_TRUE(isLegacy("p/drive_c/Sims"));
    machine.prefix("p", test::MadeUpMachine::installPath("C:\\\\sims"));
    EXPECT_FALSE(isLegacy("p/drive_c/Sims"));
}

// Those saves are of another game.
TEST_F(GameKindTest, AGameOutsideOfAnyPrefixIsNotToldByThePrefixesSaves) {
    machine.surroundings.home = machine.at("home");
    machine.surroundings.login = "player";
    machine.prefix("home/.wine");
    machine.neighbourhood(
        "home/.wine/drive_c/users/player/Saved Games/Electronic Arts/The Sims 25/UserData");
    machine.game("disk/The Sims");
    EXPECT_FALSE(isLegacy("disk/The Sims"));
}

TEST_F(GameKindTest, TheInstallsNeighbourhoodsAreTemplates) {
    legacyGame("g");
    EXPECT_TRUE(isTemplate("g/UserData"));
    EXPECT_TRUE(isTemplate("g/userdata/Characters/User00001.iff"));
    EXPECT_TRUE(isTemplate("g/UserData7/Characters/none.iff"));
    EXPECT_FALSE(isTemplate("g"));
    EXPECT_FALSE(isTemplate("g/GameData/Skins"));
    EXPECT_FALSE(isTemplate("UserData/g"));
    machine.neighbourhood("saves/UserData");
    EXPECT_FALSE(isTemplate("saves/UserData/Characters"));
    machine.game("classic");
    machine.neighbourhood("classic/UserData");
    EXPECT_FALSE(isTemplate("classic/UserData/Characters/User00001.iff"));
}

TEST_F(GameKindTest, ANeighbourhoodThatIsNoTemplateMakesAFolderFit) {
    legacyGame("g");
    EXPECT_FALSE(mayHold("g"));
    EXPECT_FALSE(mayHold("none"));
    machine.folder.write("files/UserData", "a file");
    machine.folder.write("files/Other/x", "");
    EXPECT_FALSE(mayHold("files"));
    machine.neighbourhood("saves/UserData3");
    EXPECT_TRUE(mayHold("saves"));
    machine.game("classic");
    machine.neighbourhood("classic/UserData");
    EXPECT_TRUE(mayHold("classic"));
    BoundedLook look;
    EXPECT_FALSE(mayHoldNeighbourhoods(Path(), machine.surroundings, look));
}

#ifndef _WIN32
TEST_F(GameKindTest, SteamsManifestTellsAlsoThroughALink) {
    machine.surroundings.home = machine.at("home");
    machine.libraries("home/.steam/steam", {"big"});
    machine.steamGame("big");
    fs::rename(machine.folder.root() / "big/steamapps/common/The Sims Legacy Collection",
               machine.folder.root() / "moved");
    link("moved", "big/steamapps/common/The Sims Legacy Collection");
    EXPECT_TRUE(isLegacy("moved"));
    link("moved", "desk");
    EXPECT_TRUE(isLegacy("desk"));
}

// A library in a network may take long to answer, and a game on this machine isn't out of it.
TEST_F(GameKindTest, ALibraryInANetworkIsNotAskedForAGameElsewhere) {
    machine.game("g");
    machine.libraries("home/.steam/steam", {"nas"});
    machine.manifest("nas", "The Sims Legacy Collection");
    fs::create_directories(machine.folder.root() / "nas/steamapps/common");
    link("g", "nas/steamapps/common/The Sims Legacy Collection");
    machine.surroundings.home = machine.at("home");
    EXPECT_TRUE(isLegacy("g"));
    machine.surroundings.remoteRoots = {machine.at("nas")};
    EXPECT_FALSE(isLegacy("g"));
    // One that lies there is asked for like any other.
    machine.steamGame("nas/own");
    EXPECT_TRUE(isLegacy("nas/own/steamapps/common/The Sims Legacy Collection"));
}

TEST_F(GameKindTest, TemplatesAreKnownBehindLinks) {
    legacyGame("g");
    fs::create_directories(machine.folder.root() / "s/UserData2");
    link("g/UserData", "s/UserData");
    link("g/UserData/Characters", "s/UserData2/Characters");
    link("g", "way");
    link("s", "to saves");
    EXPECT_TRUE(isTemplate("s/UserData/Characters/User00001.iff"));
    EXPECT_TRUE(isTemplate("s/UserData2/Characters/User00001.iff"));
    EXPECT_TRUE(isTemplate("s/UserData/Characters/none.iff"));
    EXPECT_TRUE(isTemplate("way/UserData"));
    EXPECT_TRUE(isTemplate("to saves/UserData"));
    EXPECT_FALSE(isTemplate("s/UserData2"));
    EXPECT_FALSE(mayHold("way"));
    fs::remove_all(machine.folder.root() / "s/UserData2");
    EXPECT_FALSE(mayHold("s"));
    EXPECT_FALSE(mayHold("to saves"));
    machine.neighbourhood("s/UserData3");
    EXPECT_TRUE(mayHold("to saves"));
}

// A neighbourhood of the install that leads out of it is still the install's.
TEST_F(GameKindTest, ALinkInTheInstallIsATemplateToo) {
    legacyGame("g");
    machine.neighbourhood("saves/UserData");
    link("saves/UserData", "g/UserData2");
    EXPECT_TRUE(isTemplate("g/UserData2/Characters"));
    EXPECT_FALSE(isTemplate("saves/UserData/Characters"));
}
#endif

}  // namespace
}  // namespace marlowick
