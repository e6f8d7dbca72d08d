#include "foundation/wine_prefixes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/made_up_machine.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class WinePrefixesTest : public ::testing::Test {
  protected:
    // The prefixes of the home folder as a person names them.
    std::vector<std::string> shown() {
        std::vector<std::string> names;
        for (const WinePrefix& prefix : winePrefixes(machine.at("home"), look)) {
            names.push_back(prefix.shown);
        }
        return names;
    }

    std::vector<std::string> savedGames(const std::string& login = "player") {
        std::vector<std::string> folders;
        for (const PrefixFolders& all : prefixFolders(machine.at("p"), login, look)) {
            folders.push_back(all.savedGames.text());
        }
        return folders;
    }

    void user(const std::string& name) {
        fs::create_directories(machine.folder.root() / "p" / "drive_c" / "users" / name);
    }

    std::string onDriveC(const std::string& path) { return machine.at("p/drive_c/" + path).text(); }

    test::MadeUpMachine machine;
    BoundedLook look;
};

TEST_F(WinePrefixesTest, EachKindComesInItsTurnAndByName) {
    for (const char* name : {".wine", "Games/zoo", "Games/Anno", ".local/share/bottles/bottles/b",
                             ".var/app/com.usebottles.bottles/data/bottles/bottles/a",
                             "Games/Heroic/Prefixes/h", "Games/Heroic/Prefixes/default/d"}) {
        machine.prefix(std::string("home/") + name);
    }
    fs::create_directories(machine.folder.root() / "home" / "Games" / "no prefix");
    machine.folder.write("home/Games/file", "");
    EXPECT_THAT(
        shown(),
        ElementsAre("~/.wine", "~/Games/Anno", "~/Games/zoo", "~/.local/share/bottles/bottles/b",
                    "~/.var/app/com.usebottles.bottles/data/bottles/bottles/a",
                    "~/Games/Heroic/Prefixes/h", "~/Games/Heroic/Prefixes/default/d"));
}

TEST_F(WinePrefixesTest, WhatIsNoPrefixTakesNoPrefixsPlace) {
    for (int i = 0; i < 250; ++i) {
        fs::create_directories(machine.folder.root() / "home/Games" / ("a" + std::to_string(i)));
    }
    machine.prefix("home/Games/sims");
    EXPECT_THAT(shown(), ElementsAre("~/Games/sims"));
}

TEST_F(WinePrefixesTest, APrefixOfSteamsWineIsOneFolderDeeper) {
    machine.prefix("home/Games/Heroic/Prefixes/default/Sims/pfx");
    EXPECT_THAT(shown(), ElementsAre("~/Games/Heroic/Prefixes/default/Sims"));
    EXPECT_EQ(winePrefixes(machine.at("home"), look).front().folder,
              machine.at("home/Games/Heroic/Prefixes/default/Sims/pfx"));
}

TEST_F(WinePrefixesTest, NoHomeNoPrefixes) {
    EXPECT_TRUE(winePrefixes(Path(), look).empty());
    EXPECT_TRUE(winePrefixes(machine.at("home"), look).empty());
}

TEST_F(WinePrefixesTest, ThePrefixOfAFolderIsKnownByItsPath) {
    EXPECT_EQ(prefixAround(Path("\\x\\.wine\\Drive_C\\Games\\Sims"))->text(), "\\x\\.wine");
    EXPECT_EQ(prefixAround(Path("\\x\\drive_c"))->text(), "\\x");
    EXPECT_EQ(prefixAround(Path("\\x\\drive_cc\\y")), std::nullopt);
    EXPECT_EQ(prefixAround(Path("")), std::nullopt);
}

TEST_F(WinePrefixesTest, TheRegistryNamesTheClassicGame) {
    machine.prefix("p");
    EXPECT_EQ(registeredGame(machine.at("p"), look), std::nullopt);
    machine.prefix(
        "p", test::MadeUpMachine::installPath("C:\\\\Program Files\\\\Maxis\\\\The Sims\\\\"));
    EXPECT_EQ(registeredGame(machine.at("p"), look), std::nullopt);
    machine.game("p/drive_c/Program Files/Maxis/The Sims");
    EXPECT_EQ(registeredGame(machine.at("p"), look)->text(),
              onDriveC("Program Files/Maxis/The Sims"));
}

TEST_F(WinePrefixesTest, AValueThatIsNoPathNamesNothing) {
    machine.game("p/drive_c/Sims");
    for (const char* value : {"", "Sims", "C:Sims", "\\\\Sims", "Q:\\\\Sims", "%ProgramFiles%\\\\x",
                              "C:\\\\Sims\\0x", "/"}) {
        machine.prefix("p", test::MadeUpMachine::installPath(value));
        EXPECT_EQ(registeredGame(machine.at("p"), look), std::nullopt) << value;
    }
    machine.prefix("p", test::MadeUpMachine::installPath("c:/sims"));
    EXPECT_EQ(registeredGame(machine.at("p"), look)->text(), onDriveC("Sims"));
}

TEST_F(WinePrefixesTest, SteamsUserComesFirstThenTheOwnThenOthersByName) {
    machine.prefix("p");
    for (const char* name : {"zoe", "Public", "Anna", "player", "steamuser"}) {
        user(name);
    }
    machine.folder.write("p/drive_c/users/file", "");
    EXPECT_THAT(
        savedGames(),
        ElementsAre(onDriveC("users/steamuser/Saved Games"), onDriveC("users/player/Saved Games"),
                    onDriveC("users/Anna/Saved Games"), onDriveC("users/zoe/Saved Games")));
    EXPECT_EQ(prefixFolders(machine.at("p"), "player", look)[1].documents.text(),
              onDriveC("users/player/Documents"));
}

TEST_F(WinePrefixesTest, AUserInOtherLettersIsNotAnotherOne) {
    machine.prefix("p");
    user("SteamUser");
    user("Player");
    user("zoe");
    EXPECT_EQ(savedGames().size(), 3U);
}

TEST_F(WinePrefixesTest, WithoutAnybodyItIsTheOneWhoWillBeThere) {
    EXPECT_THAT(savedGames(), ElementsAre(onDriveC("users/player/Saved Games")));
    EXPECT_THAT(savedGames(""), ElementsAre(onDriveC("users/steamuser/Saved Games")));
    const Path steams = machine.at("c/pfx");
    EXPECT_EQ(prefixFolders(steams, "player", look).front().savedGames.text(),
              steams.text() + "\\drive_c\\users\\steamuser\\Saved Games");
}

TEST_F(WinePrefixesTest, AMovedFolderStandsInTheUsersRegistry) {
    user("player");
    machine.prefix(
        "p", "",
        test::MadeUpMachine::shellFolders("\"Personal\"=\"C:\\\\My Documents\"\n"
                                          "\"{4C5C32FF-BB9D-43b0-b5b4-2d72e54eaaa4}\"=str(2):"
                                          "\"%USERPROFILE%\\\\Spiele\"\n"));
    EXPECT_THAT(savedGames(), ElementsAre(onDriveC("users/player/Spiele")));
    EXPECT_EQ(prefixFolders(machine.at("p"), "player", look).front().documents.text(),
              onDriveC("My Documents"));
}

TEST_F(WinePrefixesTest, AValueThatLeadsNowhereMovesNothing) {
    user("player");
    for (const char* value :
         {"\"C:\\\\x\\0\"", "str(2):\"%APPDATA%\\\\x\"", "\"%USERPROFILE%\\\\x\"", "\"Q:\\\\x\"",
          "\"x\"", "\"\"", "dword:00000001"}) {
        machine.prefix(
            "p", "",
            test::MadeUpMachine::shellFolders(
                std::string("\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=") + value + "\n"));
        EXPECT_THAT(savedGames(), ElementsAre(onDriveC("users/player/Saved Games"))) << value;
    }
}

#ifndef _WIN32
TEST_F(WinePrefixesTest, DrivesMapThroughTheirLinks) {
    user("player");
    fs::create_directories(machine.folder.root() / "p" / "dosdevices");
    fs::create_directories(machine.folder.root() / "disk");
    machine.game("disk/Games/Sims");
    fs::create_directory_symlink("../../disk", machine.folder.root() / "p" / "dosdevices" / "d:");
    machine.prefix("p", test::MadeUpMachine::installPath("D:\\\\Games\\\\Sims"),
                   test::MadeUpMachine::shellFolders(
                       "\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=\"d:\\\\Saves\"\n"));
    EXPECT_EQ(registeredGame(machine.at("p"), look), machine.at("disk/Games/Sims"));
    EXPECT_THAT(savedGames(), ElementsAre(machine.at("disk/Saves").text()));
    fs::create_directory_symlink("/", machine.folder.root() / "p" / "dosdevices" / "z:");
    machine.prefix("p", test::MadeUpMachine::installPath("z:" + machine.quoted("disk/Games/Sims")),
                   test::MadeUpMachine::shellFolders(
                       "\"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}\"=\"z:\\\\Saves\"\n"));
    EXPECT_EQ(registeredGame(machine.at("p"), look), machine.at("disk/Games/Sims"));
    EXPECT_THAT(savedGames(), ElementsAre("\\Saves"));
}

TEST_F(WinePrefixesTest, APrefixUnderTwoNamesIsOne) {
    machine.prefix("home/.wine");
    fs::create_directories(machine.folder.root() / "home" / "Games");
    fs::create_directory_symlink("../.wine", machine.folder.root() / "home" / "Games" / "link");
    EXPECT_THAT(shown(), ElementsAre("~/.wine"));
}
#endif

}  // namespace
}  // namespace marlowick
