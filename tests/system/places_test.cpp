#include "system/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/test_folder.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class PlacesTest : public ::testing::Test {
  protected:
    PlacesTest() {
        folder.write("disk/Games/Sims.exe", "x");
        folder.write("disk/Other/Sims.exe", "x");
    }

    Path at(const std::string& name) const { return folder.path(name); }

    std::optional<Path> local(const std::string& name) { return places.place(at(name)); }

    // The folder as the program finds it once every link above it is followed.
    Path real(const std::string& name) const { return placeOf(at(name)).value_or(Path("none")); }

    test::TestFolder folder;
    LocalPlaces places{{}};
};

TEST_F(PlacesTest, FindsWhatIsThereAndNothingElse) {
    EXPECT_TRUE(placeOf(at("disk/Games/Sims.exe")));
    EXPECT_EQ(placeOf(at("disk/Games/none")), std::nullopt);
    EXPECT_EQ(placeOf(Path()), std::nullopt);
    EXPECT_EQ(local("disk/Games/Sims.exe"), real("disk/Games/Sims.exe"));
    EXPECT_EQ(local("disk/Games/none"), std::nullopt);
    EXPECT_EQ(local("disk/none/Sims.exe"), std::nullopt);
    EXPECT_EQ(local("disk/Games/Sims.exe/more"), std::nullopt);
}

TEST_F(PlacesTest, GivesNamesAsTheyStandOnTheDisk) {
    EXPECT_EQ(local("DISK/games/SIMS.EXE"), real("disk/Games/Sims.exe"));
    EXPECT_EQ(places.place(Path(at("disk").text() + "/games\\\\.\\x\\..\\")), std::nullopt);
    EXPECT_EQ(places.place(Path(at("disk").text() + "/games\\\\.\\Sims.exe\\..\\")),
              real("disk/Games"));
}

TEST_F(PlacesTest, TakesFullPathsAlone) {
    for (const char* text : {"", "Games", "..", "C:", "C:Games", "\\\\server\\share\\x",
                             "\\\\?\\C:\\Windows", "\\\\.\\C:", "1:\\x"}) {
        EXPECT_EQ(places.place(Path(text)), std::nullopt) << text;
    }
    for (const char* text : {"", ".", "..", "C:", "1:\\x"}) {
        EXPECT_EQ(placeOf(Path(text)), std::nullopt) << text;
    }
    const Path withZero(at("disk/Games").text() + std::string("\0x", 2));
    EXPECT_EQ(places.place(withZero), std::nullopt);
    EXPECT_EQ(placeOf(withZero), std::nullopt);
}

TEST_F(PlacesTest, KnowsOneFolderUnderTwoNames) {
    EXPECT_TRUE(isSamePlace(at("disk/Games"), at("DISK/games")));
    EXPECT_FALSE(isSamePlace(at("disk/Games"), at("disk/Other")));
    EXPECT_FALSE(isSamePlace(at("disk/none"), at("disk/none")));
}

TEST_F(PlacesTest, AsksForNothingBehindARemoteRoot) {
    LocalPlaces careful({at("disk/Games"), Path("\\\\")});
    EXPECT_EQ(careful.place(at("disk/Games/Sims.exe")), std::nullopt);
    EXPECT_EQ(careful.place(at("disk/Games")), std::nullopt);
    EXPECT_EQ(careful.place(at("disk/GAMES/../Other")), std::nullopt);
    EXPECT_EQ(careful.place(at("disk/Other/Sims.exe")), real("disk/Other/Sims.exe"));
}

TEST_F(PlacesTest, ListsNamesInOrderAndNotTooMany) {
    folder.write("list/b.item", "");
    folder.write("list/A.item", "");
    folder.write("list/c/x", "");
    folder.write("list/\xD0\xB6", "");  // a letter that the game has not
    EXPECT_THAT(namesIn(at("list"), 10), ElementsAre("A.item", "b.item", "c", "\xD0\xB6"));
    EXPECT_THAT(namesIn(at("list"), 2), ElementsAre("A.item", "b.item"));
    EXPECT_THAT(namesIn(at("none"), 2), ElementsAre());
    EXPECT_THAT(namesIn(at("list") + "\\", 2), ElementsAre("A.item", "b.item"));
}

// A character beyond 16 bits is two units there, and both lie before the last letters of one.
TEST_F(PlacesTest, NamesAreOrderedByUnitsOf16Bits) {
    folder.write("list/\xEF\xBD\x9E", "");
    folder.write("list/\xF0\x9F\x98\x82", "");
    folder.write("list/\xF0\x9F\x98\x80", "");
    folder.write("list/\xEC\xA0\x80", "");
    EXPECT_THAT(namesIn(at("list"), 10), ElementsAre("\xEC\xA0\x80", "\xF0\x9F\x98\x80",
                                                     "\xF0\x9F\x98\x82", "\xEF\xBD\x9E"));
}

TEST_F(PlacesTest, ANameOutOfATextStaysInItsFolder) {
    const Path top("\\top");
    EXPECT_EQ(childNamed(top, "The Sims")->text(), "\\top\\The Sims");
    EXPECT_EQ(childNamed(top, "\xD0\xB6")->text(), "\\top\\\xD0\xB6");
    for (const char* name : {"", ".", "..", "a\\b", "a/b", "..\\a", "C:", "a\nb", "con", "COM1.txt",
                             "COM\xC2\xB9", "a?", "*"}) {
        EXPECT_EQ(childNamed(top, name), std::nullopt) << name;
    }
}

// Links, where the system has some that a test may make.
class LinksTest : public PlacesTest {
  protected:
    void SetUp() override {
        std::error_code failure;
        fs::create_directory_symlink("disk", folder.root() / "probe", failure);
        if (failure) {
            GTEST_SKIP() << "no links here";
        }
    }

    void link(const std::string& target, const std::string& name) {
        fs::create_directory_symlink(target, folder.root() / name);
    }
};

TEST_F(LinksTest, FollowsLinksWhereverTheyStand) {
    link("disk", "way");
    link((folder.root() / "way").string(), "long way");
    link("Games", "disk/Favourites");
    EXPECT_EQ(local("long way/favourites/Sims.exe"), real("disk/Games/Sims.exe"));
    EXPECT_EQ(placeOf(at("long way/favourites/Sims.exe")), real("disk/Games/Sims.exe"));
    EXPECT_TRUE(isSamePlace(at("long way/favourites"), at("disk/Games")));
    EXPECT_EQ(local("long way/../disk"), real("disk"));
}

TEST_F(LinksTest, ALinkToItselfLeadsNowhere) {
    link("two", "one");
    link("one", "two");
    link("self/x", "self");
    link("none", "broken");
    for (const char* name : {"one", "two", "self", "broken", "self/x"}) {
        EXPECT_EQ(local(name), std::nullopt) << name;
    }
}

TEST_F(LinksTest, ALongRowOfLinksIsGivenUp) {
    link("disk", "link0");
    for (int i = 1; i <= 60; ++i) {
        link("link" + std::to_string(i - 1), "link" + std::to_string(i));
    }
    EXPECT_EQ(LocalPlaces({}).place(at("link20")), real("disk"));
    EXPECT_EQ(LocalPlaces({}).place(at("link60")), std::nullopt);
}

TEST_F(LinksTest, FollowsEachLinkOnce) {
    link("disk", "way");
    EXPECT_EQ(local("way/Games"), real("disk/Games"));
    fs::remove(folder.root() / "way");
    link("disk/Games", "way");
    // As it was led before.
    EXPECT_EQ(local("way/Other"), real("disk/Other"));
    EXPECT_EQ(LocalPlaces({}).place(at("way/Other")), std::nullopt);
}

TEST_F(LinksTest, ALinkBehindARemoteRootIsTurnedAwayToo) {
    link("disk/Games", "way");
    LocalPlaces careful({at("disk/Games")});
    EXPECT_EQ(careful.place(at("way/Sims.exe")), std::nullopt);
}

}  // namespace
}  // namespace marlowick
