#include "foundation/open_game.h"

#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

class OpenGameTest : public ::testing::Test {
  protected:
    OpenGameTest() {
        machine.surroundings.savedGames = machine.at("Saved Games");
        machine.surroundings.documents = machine.at("Documents");
        machine.game("classic");
        machine.neighbourhood("classic/UserData");
        machine.value("HKLM32 Software\\Maxis\\The Sims\\InstallPath",
                      machine.at("classic").text());
        machine.game("legacy");
        machine.folder.write("legacy/eadpsdk.json", "");
        machine.neighbourhood("legacy/UserData");
    }

    test::MadeUpMachine machine;
    const std::string saves = "Saved Games/Electronic Arts/The Sims 25";
};

TEST_F(OpenGameTest, AClassicGameHasItsNeighbourhoodsInItsOwnFolder) {
    openGame(machine.at("classic"), Path());
    EXPECT_EQ(SimsPath, machine.at("classic"));
    EXPECT_EQ(SimsKind, GameKind::Classic);
    EXPECT_EQ(neighbourhoodsPath(), machine.at("classic"));
    EXPECT_EQ(neighbourhoodFolder("UserData2"), machine.at("classic/UserData2"));
    EXPECT_FALSE(waitsForSaves());
    EXPECT_EQ(automaticNeighbourhoods(machine.at("classic")), machine.at("classic"));
    EXPECT_EQ(gameTitle(SimsKind), "The Sims");
}

TEST_F(OpenGameTest, AFolderWithoutAGameIsOpenedAllTheSame) {
    openGame(Path("ERROR"), Path());
    EXPECT_EQ(SimsPath.text(), "ERROR");
    EXPECT_EQ(SimsKind, GameKind::Classic);
    EXPECT_EQ(neighbourhoodsPath().text(), "ERROR");
    EXPECT_FALSE(waitsForSaves());
    openGame(Path(), Path());
    EXPECT_EQ(neighbourhoodsPath(), Path());
}

TEST_F(OpenGameTest, ALegacyGameHasThemAmongTheSaves) {
    machine.neighbourhood(saves + "/UserData3");
    openGame(machine.at("legacy"), Path());
    EXPECT_EQ(SimsPath, machine.at("legacy"));
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(neighbourhoodsPath(), machine.at(saves));
    EXPECT_EQ(neighbourhoodFolder("UserData3"), machine.at(saves + "/UserData3"));
    EXPECT_FALSE(waitsForSaves());
    EXPECT_EQ(automaticNeighbourhoods(machine.at("legacy")), machine.at(saves));
    EXPECT_EQ(gameTitle(SimsKind), "The Sims Legacy Collection");
    openGame(machine.at("classic"), Path());
    EXPECT_EQ(neighbourhoodsPath(), machine.at("classic"));
}

TEST_F(OpenGameTest, SavesThatAreNotThereYetAreWaitedFor) {
    openGame(machine.at("legacy"), Path());
    EXPECT_EQ(neighbourhoodsPath(), machine.at(saves));
    EXPECT_TRUE(waitsForSaves());
    EXPECT_TRUE(waitsForSaves());
    // Some players' come to stand elsewhere than they were expected.
    machine.neighbourhood("Documents/Electronic Arts/The Sims 25/UserData");
    EXPECT_FALSE(waitsForSaves());
    EXPECT_EQ(neighbourhoodsPath(), machine.at("Documents/Electronic Arts/The Sims 25"));
}

TEST_F(OpenGameTest, AChosenFolderCountsForBothKinds) {
    machine.neighbourhood("chosen/UserData4");
    for (const char* game : {"classic", "legacy"}) {
        openGame(machine.at(game), machine.at("chosen"));
        EXPECT_EQ(SimsPath, machine.at(game));
        EXPECT_EQ(neighbourhoodsPath(), machine.at("chosen"));
        EXPECT_FALSE(waitsForSaves());
    }
}

TEST_F(OpenGameTest, ATemplateOrAFolderThatHasGoneIsNoChoice) {
    machine.neighbourhood(saves + "/UserData");
    EXPECT_FALSE(mayChooseNeighbourhoods(machine.at("legacy")));
    EXPECT_FALSE(mayChooseNeighbourhoods(machine.at("gone")));
    EXPECT_FALSE(mayChooseNeighbourhoods(Path()));
    EXPECT_TRUE(mayChooseNeighbourhoods(machine.at(saves)));
    EXPECT_TRUE(mayChooseNeighbourhoods(machine.at("classic")));
    for (const char* chosen : {"legacy", "gone"}) {
        openGame(machine.at("legacy"), machine.at(chosen));
        EXPECT_EQ(neighbourhoodsPath(), machine.at(saves)) << chosen;
        openGame(machine.at("classic"), machine.at(chosen));
        EXPECT_EQ(neighbourhoodsPath(), machine.at("classic")) << chosen;
    }
}

TEST_F(OpenGameTest, TemplatesAreKnown) {
    EXPECT_TRUE(isTemplate(machine.at("legacy/UserData/Characters/User00001.iff")));
    EXPECT_FALSE(isTemplate(machine.at("classic/UserData/Characters/User00001.iff")));
}

}  // namespace
}  // namespace marlowick
