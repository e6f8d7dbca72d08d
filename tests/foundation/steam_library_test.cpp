#include "foundation/steam_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

std::vector<std::string> texts(const std::vector<Path>& paths) {
    std::vector<std::string> all;
    for (const Path& path : paths) {
        all.push_back(path.text());
    }
    return all;
}

TEST(SteamLibraryTest, ListsLibrariesInTheOrderOfTheText) {
    EXPECT_THAT(texts(librariesOfVdf("\"libraryfolders\"\n{\n"
                                     "\"0\" { \"path\" \"C:\\\\Program Files (x86)\\\\Steam\" "
                                     "\"apps\" { \"path\" \"no\" \"2\" \"no\" } }\n"
                                     "\"2\" { \"label\" \"x\" \"path\" \"D:\\\\Games\\\\Steam\" }\n"
                                     "\"1\" { \"path\" \"/mnt/games/\" } }\n")),
                ElementsAre("C:\\Program Files (x86)\\Steam", "D:\\Games\\Steam", "\\mnt\\games"));
}

TEST(SteamLibraryTest, ReadsTheListOfOldSteamsToo) {
    EXPECT_THAT(texts(librariesOfVdf("\"LibraryFolders\" { \"TimeNextStatsReport\" \"1\" "
                                     "\"ContentStatsID\" \"-5\" \"1\" \"D:\\\\Steam\" }")),
                ElementsAre("D:\\Steam"));
}

TEST(SteamLibraryTest, OtherTextsListNothing) {
    for (const char* text :
         {"", "\"other\" { \"0\" { \"path\" \"C:\\\\x\" } }", "\"libraryfolders\" \"C:\\\\x\"",
          "{\"path\": \"C:\\\\x\"}", "\xFF\xFE"}) {
        EXPECT_THAT(librariesOfVdf(text), ElementsAre()) << text;
    }
}

TEST(SteamLibraryTest, TooManyLibrariesAreCutOff) {
    std::string text = "\"libraryfolders\" {";
    for (int i = 0; i < 5000; ++i) {
        text += " \"1\" { \"path\" \"/x\" }";
    }
    EXPECT_EQ(librariesOfVdf(text).size(), 100U);
}

TEST(SteamLibraryTest, ReadsTheFolderOfAManifest) {
    EXPECT_EQ(installDirOfManifest("\"AppState\" { \"appid\" \"3314060\" \"UserConfig\" { "
                                   "\"installdir\" \"no\" } \"installdir\" \"The Sims\" }"),
              "The Sims");
    EXPECT_EQ(installDirOfManifest("\"Other\" { \"installdir\" \"no\" }"), std::nullopt);
    EXPECT_EQ(installDirOfManifest(""), std::nullopt);
}

class SteamFoldersTest : public ::testing::Test {
  protected:
    test::MadeUpMachine machine;
    BoundedLook look;
};

TEST_F(SteamFoldersTest, SteamsOwnFolderIsALibraryEvenIfNoListSaysSo) {
    fs::create_directories(machine.folder.root() / "steam");
    EXPECT_THAT(steamLibraries({machine.at("steam"), machine.at("none")}, look),
                ElementsAre(machine.at("steam")));
}

TEST_F(SteamFoldersTest, LibrariesComeInOrderAndThoseThatAreGoneAreLeftOut) {
    machine.libraries("steam", {"big", "steam", "gone", "small", "big"});
    fs::create_directories(machine.folder.root() / "big");
    fs::create_directories(machine.folder.root() / "small");
    EXPECT_THAT(steamLibraries({machine.at("steam")}, look),
                ElementsAre(machine.at("big"), machine.at("steam"), machine.at("small")));
}

TEST_F(SteamFoldersTest, TheManifestNamesTheGamesFolder) {
    EXPECT_EQ(gameOfLibrary(machine.at("steam"), look), std::nullopt);
    machine.steamGame("steam");
    EXPECT_EQ(gameOfLibrary(machine.at("steam"), look),
              machine.at("steam/steamapps/common/The Sims Legacy Collection"));
}

// Each leads to a folder that is there.
TEST_F(SteamFoldersTest, AManifestNamesNoFolderOutsideItsLibrary) {
    machine.game("steam/steamapps/common/The Sims");
    machine.game("elsewhere");
    for (const std::string& name :
         {std::string("../../../elsewhere"), std::string("..\\\\..\\\\..\\\\elsewhere"),
          std::string("."), std::string(".."), std::string(""), std::string("The Sims/"),
          machine.quoted("elsewhere"), std::string("The Sims\\n")}) {
        machine.manifest("steam", name);
        EXPECT_EQ(gameOfLibrary(machine.at("steam"), look), std::nullopt) << name;
    }
    machine.manifest("steam", "the sims");
    EXPECT_EQ(gameOfLibrary(machine.at("steam"), look),
              machine.at("steam/steamapps/common/The Sims"));
}

TEST_F(SteamFoldersTest, AnEnormousTextIsNotRead) {
    machine.steamGame("steam");
    const fs::path manifest =
        machine.folder.root() / "steam" / "steamapps" / "appmanifest_3314060.acf";
    fs::resize_file(manifest, std::uintmax_t{1} << 20U);
    EXPECT_NE(gameOfLibrary(machine.at("steam"), look), std::nullopt);
    fs::resize_file(manifest, (std::uintmax_t{1} << 20U) + 1);
    EXPECT_EQ(gameOfLibrary(machine.at("steam"), look), std::nullopt);
}

TEST_F(SteamFoldersTest, TheLibraryOfAGameIsKnownByItsPath) {
    EXPECT_EQ(libraryAround(Path("\\x\\SteamApps\\Common\\The Sims"))->text(), "\\x");
    EXPECT_EQ(libraryAround(Path("\\x\\common\\The Sims")), std::nullopt);
    EXPECT_EQ(libraryAround(Path("")), std::nullopt);
    EXPECT_EQ(steamPrefix(Path("\\x")).text(), "\\x\\steamapps\\compatdata\\3314060\\pfx");
}

}  // namespace
}  // namespace marlowick
