#include "foundation/epic_manifests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

TEST(EpicItemTest, ReadsTheFolderOfTheOutermostObject) {
    EXPECT_EQ(
        installLocationOfItem("{\"a\": [1, -2, -2.5, true, null, {\"InstallLocation\": \"no\"}],"
                              " \"InstallLocation\": \"C:\\\\Games\\\\Caf\\u00e9\","
                              " \"b\": {\"InstallLocation\": \"no\"}}"),
        "C:\\Games\\Caf\xC3\xA9");
    EXPECT_EQ(installLocationOfItem("\xEF\xBB\xBF{\"InstallLocation\":\"/x\"}"), "/x");
    EXPECT_EQ(installLocationOfItem("{\"InstallLocation\":\"\"}"), "");
}

TEST(EpicItemTest, OtherTextsTellNothing) {
    for (const char* text :
         {"", "{}", "[]", "x", "\"InstallLocation\"", "[\"InstallLocation\", \"C:\\\\x\"]",
          "[{\"InstallLocation\": \"C:\\\\x\"}]", "{\"InstallLocation\": 1}",
          "{\"InstallLocation\": [\"C:\\\\x\"]}", "{\"InstallLocation\": {\"a\": \"C:\\\\x\"}}",
          "{\"installlocation\": \"C:\\\\x\"}", "{\"InstallLocation\": null, \"b\": \"C:\\\\x\"}",
          "{\"InstallLocation\": \"C:\\\\x\"", "{\"InstallLocation\": \"C:\\\\x\"}}",
          "{\"InstallLocation\": \"C:\\x\"}", "{\"InstallLocation\": \"\xFF\"}",
          "{\"InstallLocation\": \"C:\\\\x\", }",
          "{\"a\": 1e999, \"InstallLocation\": \"C:\\\\x\"}"}) {
        EXPECT_EQ(installLocationOfItem(text), std::nullopt) << text;
    }
}

TEST(EpicItemTest, DeepTextsAreGivenUp) {
    const auto nested = [](const std::string& open, const std::string& close, int depth) {
        std::string text = "{\"InstallLocation\":\"/x\",\"a\":";
        for (int i = 0; i < depth; ++i) {
            text += open;
        }
        text += "1";
        for (int i = 0; i < depth; ++i) {
            text += close;
        }
        return text + "}";
    };
    EXPECT_EQ(installLocationOfItem(nested("[", "]", 63)), "/x");
    EXPECT_EQ(installLocationOfItem(nested("[", "]", 64)), std::nullopt);
    EXPECT_EQ(installLocationOfItem(nested("{\"a\":", "}", 64)), std::nullopt);
    EXPECT_EQ(installLocationOfItem(nested("[", "]", 500000)), std::nullopt);
    EXPECT_EQ(installLocationOfItem(std::string(1U << 20U, '[')), std::nullopt);
    EXPECT_EQ(installLocationOfItem(std::string(1U << 20U, '"')), std::nullopt);
}

class EpicInstallsTest : public ::testing::Test {
  protected:
    std::vector<Path> found() {
        BoundedLook look;
        return epicInstalls(machine.at("data"), look);
    }

    test::MadeUpMachine machine;
};

TEST_F(EpicInstallsTest, GivesTheFoldersThatAreThereInTheOrderOfTheManifests) {
    machine.game("Sims");
    machine.game("Other");
    machine.epicItem("data", "2.item", "Sims");
    machine.epicItem("data", "1.ITEM", "Other");
    machine.epicItem("data", "3.item", "gone");
    machine.epicItem("data", "4.item.bak", "Sims");
    machine.folder.write("data/Epic/EpicGamesLauncher/Data/Manifests/0.item", "{");
    EXPECT_THAT(found(), ElementsAre(machine.at("Other"), machine.at("Sims")));
}

TEST_F(EpicInstallsTest, TakesFullPathsAlone) {
    for (const char* text : {"Sims", ".", "..", "", "\\u0000"}) {
        machine.folder.write("data/Epic/EpicGamesLauncher/Data/Manifests/1.item",
                             std::string("{\"InstallLocation\":\"") + text + "\"}");
        EXPECT_THAT(found(), ElementsAre()) << text;
    }
    machine.game("Sims");
    machine.folder.write("data/Epic/EpicGamesLauncher/Data/Manifests/1.item",
                         "{\"InstallLocation\":\"" + machine.quoted("Sims") + "\\u0000x\"}");
    EXPECT_THAT(found(), ElementsAre());
}

TEST_F(EpicInstallsTest, NoLauncherNoGames) {
    EXPECT_THAT(found(), ElementsAre());
    BoundedLook look;
    EXPECT_THAT(epicInstalls(Path(), look), ElementsAre());
}

TEST_F(EpicInstallsTest, AnEnormousManifestIsNotRead) {
    machine.game("Sims");
    const std::string item = "{\"InstallLocation\":\"" + machine.quoted("Sims") + "\"}";
    const std::string name = "data/Epic/EpicGamesLauncher/Data/Manifests/1.item";
    machine.folder.write(name, item + std::string((1U << 20U) - item.size(), ' '));
    EXPECT_EQ(found().size(), 1U);
    machine.folder.write(name, item + std::string((1U << 20U) - item.size() + 1, ' '));
    EXPECT_EQ(found().size(), 0U);
}

}  // namespace
}  // namespace marlowick
