#include "foundation/history_places.h"

#include <gtest/gtest.h>

#include "foundation/game.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

std::optional<KeptKind> kindOf(std::string_view text) {
    const std::optional<KeptPlace> place = keptPlace(text);
    return place ? std::optional(place->kind) : std::nullopt;
}

TEST(HistoryPlacesTest, KnowsTheThreeKindsOfFilesBlindToCase) {
    EXPECT_EQ(kindOf("UserData\\Characters\\user00001.iff"), KeptKind::UserFile);
    EXPECT_EQ(kindOf("USERDATA8\\CHARACTERS\\USER00001.IFF"), KeptKind::UserFile);
    EXPECT_EQ(kindOf("userdata of mine\\characters\\User \xC3\xA9.iff"), KeptKind::UserFile);
    EXPECT_EQ(kindOf("gamedata\\textures\\Textures.far"), KeptKind::Archive);
    EXPECT_EQ(kindOf("GameData\\Textures\\my skins.FAR"), KeptKind::Archive);
    EXPECT_EQ(kindOf("ENS\\Sunday best.ENS"), KeptKind::Ensemble);
    EXPECT_EQ(kindOf("ens\\x.ens"), KeptKind::Ensemble);
}

TEST(HistoryPlacesTest, SlashesCountAsBackslashesAndCaseIsKept) {
    const std::optional<KeptPlace> place = keptPlace("UserData/Characters//User00001.Iff");
    ASSERT_TRUE(place);
    EXPECT_EQ(place->path, "UserData\\Characters\\User00001.Iff");
    EXPECT_EQ(placeKey(*place), placeKey(*keptPlace("userdata\\characters\\user00001.iff")));
    EXPECT_NE(placeKey(*place), placeKey(*keptPlace("userdata2\\characters\\user00001.iff")));
}

// Whatever stands in a text: nothing but these files is ever meant.
TEST(HistoryPlacesTest, AnyOtherTextMeansNothing) {
    const std::string texts[] = {
        "",
        "\\",
        "user00001.iff",
        "Characters\\user00001.iff",
        "UserData\\user00001.iff",
        "UserData\\Characters",
        "UserData\\Characters\\",
        "UserData\\Characters\\user00001.iff\\x",
        "UserData\\Characters\\user00001.iff\\..\\user1.iff",
        "UserData\\Characters\\user00001.iff.exe",
        "UserData\\Characters\\auser00001.iff",
        "UserData\\Characters\\user.if",
        "UserData\\Character\\user00001.iff",
        "UserData\\Characterss\\user00001.iff",
        "MyUserData\\Characters\\user00001.iff",
        "UserDat\\Characters\\user00001.iff",
        "..\\UserData\\Characters\\user00001.iff",
        "UserData\\..\\user00001.iff",
        "UserData\\Characters\\..\\..\\user1.iff",
        "UserData\\Characters.\\user00001.iff",
        "UserData\\Characters\\user00001.iff ",
        "UserData\\Characters\\user00001.iff.",
        "UserData\\Characters\\user:x.iff",
        "UserData\\Characters\\user00001.iff:x.iff",
        "UserData:\\Characters\\user00001.iff",
        "C:\\UserData\\Characters\\user00001.iff",
        "\\UserData\\Characters\\user00001.iff",
        "\\\\UserData\\Characters\\user00001.iff",
        "/UserData/Characters/user00001.iff",
        "\\\\?\\UserData\\Characters\\user00001.iff",
        "UserData\\Characters\\user*.iff",
        "UserData\\Characters\\user?.iff",
        "UserData\\Characters\\user\0.iff"s,
        "UserData\\Characters\\user\n.iff",
        "UserData\\Characters\\user\xFF.iff",          // no UTF-8
        "UserData\\Characters\\user\xE4\xB8\xAD.iff",  // no game could write it
        "UserData\\Characters\\user" + std::string(300, '0') + ".iff",
        "UserData\\Characters\\user" + std::string(100000, '\\') + "1.iff",
        "gamedata\\textures\\sub\\x.far",
        "gamedata\\x.far",
        "gamedata\\textures\\x.far.lnk",
        "gamedata\\textures\\con.far",
        "gamedata\\textures\\COM1.far",
        "gamedata\\textures\\aux .far",
        "gamedata\\textures\\.far.",
        "gamedata2\\textures\\x.far",
        "ExpansionPack\\textures\\x.far",
        "ENS\\..\\x.ens",
        "ENS\\nul.ens",
        "ENS2\\x.ens",
        "ENS\\x.txt",
        "about.json",
    };
    for (const std::string& text : texts) {
        EXPECT_EQ(kindOf(text), std::nullopt) << text;
    }
}

// Elsewhere such a name is one of its own; Windows would take it for that of another neighbourhood.
TEST(HistoryPlacesTest, ANeighbourhoodMayEndInABlankOrADotWhereThatIsAName) {
#ifdef _WIN32
    const std::optional<KeptKind> expected;
#else
    const std::optional<KeptKind> expected = KeptKind::UserFile;
#endif
    for (const char* name : {"UserData4 ", "UserData.", "UserData..", "UserData4. ."}) {
        EXPECT_EQ(kindOf(name + "\\Characters\\user00001.iff"s), expected) << name;
    }
    EXPECT_EQ(kindOf("UserData4 x\\Characters\\user00001.iff"), KeptKind::UserFile);
}

class PlacesOfFilesTest : public ::testing::Test {
  protected:
    std::optional<KeptPlace> placeOf(const std::string& path) const {
        return keptPlaceOf(places, Path(path));
    }

    const HistoryPlaces places{Path("P:\\Marlowick\\History"), Path("C:\\Games\\The Sims"),
                               Path("D:\\Saved Games\\The Sims 25"), Path("P:\\Marlowick")};
};

TEST_F(PlacesOfFilesTest, EachKindLiesBelowItsOwnFolder) {
    EXPECT_EQ(placeOf("D:\\Saved Games\\The Sims 25\\UserData2\\Characters\\User00007.iff"),
              (KeptPlace{KeptKind::UserFile, "UserData2\\Characters\\User00007.iff"}));
    EXPECT_EQ(placeOf("C:\\Games\\The Sims\\gamedata\\textures\\x.far"),
              (KeptPlace{KeptKind::Archive, "gamedata\\textures\\x.far"}));
    EXPECT_EQ(placeOf("P:\\Marlowick\\ENS\\x.ENS"), (KeptPlace{KeptKind::Ensemble, "ENS\\x.ENS"}));
    EXPECT_EQ(placeOf("c:\\GAMES\\the sims\\\\gamedata\\textures\\x.far"),
              (KeptPlace{KeptKind::Archive, "gamedata\\textures\\x.far"}));
}

TEST_F(PlacesOfFilesTest, AnywhereElseIsNoPlace) {
    for (const char* path : {
             "C:\\Games\\The Sims\\UserData\\Characters\\user00001.iff",  // templates of the game
             "D:\\Saved Games\\The Sims 25\\gamedata\\textures\\x.far",
             "D:\\Saved Games\\The Sims 25\\x\\UserData\\Characters\\user00001.iff",
             "D:\\Saved Games\\UserData\\Characters\\user00001.iff",
             "D:\\Saved Games\\The Sims 2\\5\\UserData\\Characters\\user00001.iff",
             "C:\\Games\\The Sims\\ENS\\x.ENS",
             "C:\\Games\\The Sims\\gamedata\\textures\\sub\\x.far",
             "\\\\C:\\Games\\The Sims\\gamedata\\textures\\x.far",
             "x.far",
             "",
         }) {
        EXPECT_EQ(placeOf(path), std::nullopt) << path;
    }
}

TEST_F(PlacesOfFilesTest, ASimWhoseNameCannotBeKeptIsKnown) {
    const auto isUnkeepable = [&](const char* path) { return isUnkeepableSim(places, Path(path)); };
    EXPECT_TRUE(isUnkeepable("D:\\Saved Games\\The Sims 25\\UserData:\\Characters\\user1.iff"));
    EXPECT_TRUE(isUnkeepable("D:\\Saved Games\\The Sims 25\\UserData?\\Characters\\user1.iff"));
    EXPECT_FALSE(isUnkeepable("D:\\Saved Games\\The Sims 25\\UserData\\Characters\\user1.iff"));
    EXPECT_FALSE(isUnkeepable("D:\\Saved Games\\The Sims 25\\x\\UserData:\\Characters\\user1.iff"));
    EXPECT_FALSE(isUnkeepable("C:\\Games\\The Sims\\UserData:\\Characters\\user1.iff"));
    EXPECT_FALSE(isUnkeepable("C:\\Games\\The Sims\\gamedata\\textures\\x:.far"));
    EXPECT_FALSE(isUnkeepable(""));
}

TEST_F(PlacesOfFilesTest, LeadsBackToTheFileAndIntoACommandsFolder) {
    const KeptPlace sim{KeptKind::UserFile, "UserData2\\Characters\\User00007.iff"};
    const KeptPlace archive{KeptKind::Archive, "gamedata\\textures\\x.far"};
    const KeptPlace ensemble{KeptKind::Ensemble, "ENS\\x.ens"};
    EXPECT_EQ(placeInGame(places, sim).text(),
              "D:\\Saved Games\\The Sims 25\\UserData2\\Characters\\User00007.iff");
    EXPECT_EQ(placeInGame(places, archive).text(),
              "C:\\Games\\The Sims\\gamedata\\textures\\x.far");
    EXPECT_EQ(placeInGame(places, ensemble).text(), "P:\\Marlowick\\ENS\\x.ens");
    EXPECT_EQ(placeInEntry(Path("H:\\1"), sim).text(),
              "H:\\1\\UserData2\\Characters\\User00007.iff");
}

TEST(SameFolderTest, TellsByNamesAlone) {
    EXPECT_TRUE(isSameFolder(Path("C:\\A\\b"), Path("c:\\a\\B\\")));
    EXPECT_TRUE(isSameFolder(Path("/home/a"), Path("\\home\\\\a")));
    EXPECT_FALSE(isSameFolder(Path("\\a"), Path("\\\\a")));
    EXPECT_FALSE(isSameFolder(Path("\\a"), Path("a")));
    EXPECT_FALSE(isSameFolder(Path("C:\\a"), Path("C:\\a\\b")));
    EXPECT_TRUE(isSameFolder(Path(), Path("")));
    EXPECT_FALSE(isSameFolder(Path(), Path("\\")));
}

TEST(HistoryPlacesOfTheProgramTest, AreTheRunningGamesAndPrograms) {
    const test::TestFolder folder;
    EXPECT_EQ(historyPlaces().history, folder.path("program\\History"));
    EXPECT_EQ(historyPlaces().game, folder.path("game"));
    EXPECT_EQ(historyPlaces().neighbourhoods, folder.path("game"));
    EXPECT_EQ(historyPlaces().program, folder.path("program"));
    SimsKind = GameKind::Legacy;
    NeighbourhoodsElsewhere = folder.path("saves");
    EXPECT_EQ(historyPlaces().game, folder.path("game"));
    EXPECT_EQ(historyPlaces().neighbourhoods, folder.path("saves"));
    SimsKind = GameKind::Classic;
    NeighbourhoodsElsewhere = Path();
}

}  // namespace
}  // namespace marlowick
