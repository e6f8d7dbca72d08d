#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "system/files.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

TEST(ShownPathTest, NamesHaveSlashesAndTheLettersOfTheDisk) {
    const test::TestFolder folder;
    folder.write("game/GameData/Sk\xC3\xA4ns/A b.BMP", "");
    const std::string game = folder.game().string();
    EXPECT_EQ(shownPath(folder.path("game\\gamedata\\SK\xC3\x84NS\\a B.bmp")),
              game + "/GameData/Sk\xC3\xA4ns/A b.BMP");
    EXPECT_EQ(shownPath(folder.path("game\\GAMEDATA")), game + "/GameData");
    EXPECT_EQ(shownPath(folder.path("game\\GameData")), game + "/GameData");
    EXPECT_EQ(shownPath(Path("\\")), "/");
}

TEST(ShownPathTest, WhatIsntThereStaysAsItIsWritten) {
    const test::TestFolder folder;
    folder.write("game/GameData/x.txt", "");
    const std::string game = folder.game().string();
    EXPECT_EQ(shownPath(folder.path("game\\gamedata\\None\\X.TXT")), game + "/GameData/None/X.TXT");
    EXPECT_EQ(shownPath(Path("\\no such folder\\GameData")), "/no such folder/GameData");
}

// Of two names that differ in case alone, the one that is written.
TEST(ShownPathTest, ANameThatStandsAsWrittenIsNotExchanged) {
    const test::TestFolder folder;
    folder.write("game/Skins/x.bmp", "");
    folder.write("game/SKINS/x.bmp", "");
    EXPECT_EQ(shownPath(folder.path("game\\Skins")), folder.game().string() + "/Skins");
    EXPECT_EQ(shownPath(folder.path("game\\SKINS")), folder.game().string() + "/SKINS");
}

// A folder that may be entered, but not listed.
TEST(ShownPathTest, ANameInAFolderThatCantBeListedStaysToo) {
    const test::TestFolder folder;
    folder.write("game/Locked/Inside/x.bmp", "");
    std::filesystem::permissions(folder.game() / "Locked", std::filesystem::perms::owner_exec);
    EXPECT_EQ(shownPath(folder.path("game\\locked\\Inside\\X.bmp")),
              folder.game().string() + "/Locked/Inside/x.bmp");
}

TEST(ShownPathTest, WhatIsNoWholePathIsLeftAlone) {
    for (const char* text :
         {"", "ERROR", "UserData\\characters\\user1.iff", "C:\\Games\\Sims", "C:/Games", "a/b"}) {
        EXPECT_EQ(shownPath(Path(text)), text);
        EXPECT_EQ(typedPath(text).text(), text);
    }
}

TEST(ShownPathTest, APathMayBeWrittenWithEitherSeparator) {
    for (const char* text : {"/home/a b/Sims", "\\home\\a b\\Sims", "/home\\a b/Sims",
                             "//home/a b//Sims/", "\\home\\a b\\Sims\\\\"}) {
        EXPECT_EQ(typedPath(text).text(), "\\home\\a b\\Sims") << text;
    }
    EXPECT_EQ(typedPath("/").text(), "\\");
    EXPECT_EQ(typedPath("//").text(), "\\");
}

TEST(ShownPathTest, WhatIsShownLeadsToTheSameFile) {
    const test::TestFolder folder;
    folder.write("game/GameData/x.txt", "content");
    const Path written = folder.path("game\\GAMEDATA\\X.txt");
    EXPECT_EQ(readWholeFile(typedPath(shownPath(written))), "content");
}

}  // namespace
}  // namespace marlowick
