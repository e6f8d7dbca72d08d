#include "system/files.h"

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/one_command.h"

namespace marlowick {
namespace {

using test::errorOf;

class FilesTest : public ::testing::Test {
  protected:
    test::TestFolder folder;
};

TEST_F(FilesTest, FindsNamesWithoutRegardToLetterCase) {
    folder.write("game/GameData/Skins/Face.BMP", "picture");
    EXPECT_EQ(readWholeFile(folder.path("game\\gamedata\\SKINS\\face.bmp")), "picture");
    EXPECT_TRUE(files().fileExists(folder.path("GAME\\GAMEDATA\\skins\\FACE.bmp")));
    EXPECT_TRUE(files().folderExists(folder.path("game\\gameDATA")));
    EXPECT_FALSE(files().fileExists(folder.path("game\\gamedata")));
}

TEST_F(FilesTest, WritesOverAFileOfAnotherCase) {
    folder.write("program/web_image.BMP", "old content");
    writeWholeFile(folder.path("program\\Web_Image.Bmp"), "new");
    EXPECT_EQ(folder.read("program/web_image.BMP"), "new");
}

#ifndef _WIN32
// Windows looks names up by itself.
TEST_F(FilesTest, DoesNotReadAFolderAgainForEachNameThatIsNotThere) {
    for (int i = 0; i < 1500; ++i) {
        folder.write("game/file" + std::to_string(i), "");
    }
    const std::clock_t start = std::clock();
    for (int i = 0; i < 20000; ++i) {
        ASSERT_FALSE(files().fileExists(folder.path("game/none" + std::to_string(i))));
    }
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 3);
}
#endif

TEST_F(FilesTest, AnEmptyPathIsNoFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    folder.write("game/here.bmp", "x");
    std::filesystem::current_path(folder.game());
    EXPECT_TRUE(files().list({}).empty());
    EXPECT_TRUE(searchFilesAndFolders({}, "*").empty());
    EXPECT_FALSE(files().folderExists({}));
    EXPECT_FALSE(files().canWriteInto({}));
    EXPECT_NE(errorOf([] { files().makeFolder({}); }), 0);
    std::filesystem::current_path(before);
}

TEST_F(FilesTest, TreatsADoubledSeparatorAsOne) {
    folder.write("program/temp/a", "x");
    EXPECT_EQ(readWholeFile(folder.path("program\\temp\\\\a")), "x");
}

TEST_F(FilesTest, ListsInTheOrderOfUpperCaseLetters) {
    for (const char* name : {"user2.iff", "USER10.iff", "User1.IFF", "user_1.iff", "other.txt"}) {
        folder.write(std::string("game/c/") + name, "");
    }
    folder.write("game/c/user0.iff/inside", "");
    const std::vector<std::string> expected = {"User1.IFF", "USER10.iff", "user2.iff",
                                               "user_1.iff"};
    EXPECT_EQ(searchFiles(folder.path("game\\c"), "user*.iff"), expected);
    EXPECT_EQ(searchFilesAndFolders(folder.path("game\\c"), "user*.iff").front(), "user0.iff");
    EXPECT_TRUE(searchFiles(folder.path("game\\missing"), "*").empty());
}

TEST_F(FilesTest, ListsAFolderWhosePathEndsInASeparator) {
    folder.write("game/Skins/face.bmp", "");
    EXPECT_EQ(searchFiles(folder.path("game") + "\\skins\\", "*.BMP"),
              std::vector<std::string>{"face.bmp"});
    EXPECT_TRUE(files().folderExists(folder.path("game") + "\\skins\\"));
    EXPECT_TRUE(files().canWriteInto(folder.path("game") + "\\skins\\"));
}

#ifndef _WIN32
TEST_F(FilesTest, ListsANameWithoutAGameTextWithQuestionMarks) {
    folder.write("game/user\xCE\xB1.iff", "");
    EXPECT_EQ(searchFiles(folder.path("game"), "user*.iff"), std::vector<std::string>{"user?.iff"});
}
#endif

TEST_F(FilesTest, RaisesTheClassicNumbers) {
    folder.write("game/file", "x");
    EXPECT_EQ(errorOf([&] { readWholeFile(folder.path("game\\none")); }), 53);
    EXPECT_EQ(errorOf([&] { readWholeFile(folder.path("none\\none")); }), 76);
    EXPECT_EQ(errorOf([&] { readWholeFile(folder.path("game")); }), 75);
    EXPECT_EQ(errorOf([&] { files().remove(folder.path("game\\none")); }), 53);
    EXPECT_EQ(errorOf([&] { files().makeFolder(folder.path("game")); }), 75);
    EXPECT_EQ(errorOf([&] { files().makeFolder(folder.path("none\\x")); }), 76);
    EXPECT_EQ(errorOf([&] { files().length(folder.path("game\\none")); }), 53);
    EXPECT_EQ(errorOf([&] { files().open(folder.path("game\\file"), OpenMode::CreateNew); }), 58);
    const auto file = files().open(folder.path("game\\file"), OpenMode::Input);
    EXPECT_EQ(errorOf([&] { file->seek(-1); }), 63);
}

TEST_F(FilesTest, AFolderIsNoFileToDeleteOrToMeasure) {
    std::filesystem::create_directories(folder.game() / "Folder");
    EXPECT_EQ(errorOf([&] { files().remove(folder.path("game\\folder")); }), 53);
    EXPECT_EQ(errorOf([&] { files().length(folder.path("game\\folder")); }), 53);
    EXPECT_TRUE(folder.exists("game/Folder"));
}

TEST_F(FilesTest, WhatIsGoneHasNoNameAndNoRightsToGive) {
    folder.write("game/there", "x");
    const Path there = folder.path("game\\there");
    const Path gone = folder.path("game\\gone");
    EXPECT_EQ(errorOf([&] { files().rename(gone, there); }), 53);
    files().copyAttributes(gone, there);
    files().clearAttributes(gone);
    EXPECT_FALSE(files().isReadOnly(gone));
    EXPECT_EQ(folder.read("game/there"), "x");
    EXPECT_FALSE(folder.exists("game/gone"));
}

TEST_F(FilesTest, RemovesEmptyFoldersAlone) {
    std::filesystem::create_directories(folder.game() / "Full" / "Empty");
    folder.write("game/file", "x");
    EXPECT_EQ(errorOf([&] { files().removeFolder(folder.path("game\\Full")); }), 75);
    EXPECT_EQ(errorOf([&] { files().removeFolder(folder.path("game\\none")); }), 76);
    EXPECT_EQ(errorOf([&] { files().removeFolder(folder.path("game\\file")); }), 75);
    files().removeFolder(folder.path("game\\full\\EMPTY"));
    EXPECT_FALSE(folder.exists("game/Full/Empty"));
    files().removeFolder(folder.path("game\\Full"));
    EXPECT_FALSE(folder.exists("game/Full"));
}

TEST_F(FilesTest, AFileInAFolderOfTheProgramsOwnIsMadeUnderItsVeryName) {
    std::filesystem::create_directories(folder.game() / "Own");
    const Path path = folder.path("game\\OWN\\Name");
    files().open(path, OpenMode::CreateOwn)->write("content");
    EXPECT_EQ(folder.read("game/Own/Name"), "content");
    EXPECT_EQ(errorOf([&] { files().open(path, OpenMode::CreateOwn); }), 58);
    EXPECT_EQ(errorOf([&] { files().open(folder.path("none\\x"), OpenMode::CreateOwn); }), 76);
}

TEST_F(FilesTest, BinaryAccessMakesAMissingFileAndTruncatesNothing) {
    files().open(folder.path("game\\new"), OpenMode::Binary);
    EXPECT_TRUE(folder.exists("game/new"));
    folder.write("game/old", "0123456789");
    files().open(folder.path("game\\old"), OpenMode::Binary)->write("abc");
    EXPECT_EQ(folder.read("game/old"), "abc3456789");
    EXPECT_EQ(errorOf([&] { files().open(folder.path("none\\new"), OpenMode::Binary); }), 76);
}

TEST_F(FilesTest, ARewrittenFileEndsWhereTheLastWriteEnded) {
    const Path file = folder.path("game\\list.txt");
    files().open(file, OpenMode::Rewrite)->write("made");
    EXPECT_EQ(folder.read("game/list.txt"), "made");
    {
        const auto list = files().open(file, OpenMode::Rewrite);
        list->write("a ");
        list->write("longer one");
    }
    EXPECT_EQ(folder.read("game/list.txt"), "a longer one");
    files().open(folder.path("game\\LIST.txt"), OpenMode::Rewrite)->write("short");
    EXPECT_EQ(folder.read("game/list.txt"), "short");
    files().open(file, OpenMode::Rewrite);
    EXPECT_EQ(folder.read("game/list.txt"), "");
    folder.makeReadOnly("game/list.txt");
    EXPECT_EQ(errorOf([&] { files().open(file, OpenMode::Rewrite); }), 75);
    EXPECT_EQ(errorOf([&] { files().open(folder.path("game"), OpenMode::Rewrite); }), 75);
    EXPECT_EQ(errorOf([&] { files().open(folder.path("no\\list"), OpenMode::Rewrite); }), 76);
}

// The folder is found once for all of them.
TEST_F(FilesTest, FilesInAFolderOfOtherLettersAreFoundThroughoutACommand) {
    const auto path = [&](const std::string& name) {
        return folder.path("game\\userdata\\characters\\" + name);
    };
    folder.write("game/UserData/Characters/user1.iff", "one");
    folder.write("game/UserData/Characters/User2.iff", "two");
    const OneCommand command;
    EXPECT_EQ(readWholeFile(path("user1.iff")), "one");
    EXPECT_EQ(readWholeFile(path("user2.iff")), "two");
    EXPECT_EQ(errorOf([&] { readWholeFile(path("user3.iff")); }), 53);
    EXPECT_EQ(errorOf([&] { readWholeFile(path("sub\\user1.iff")); }), 76);
    folder.write("game/UserData/Characters/user3.iff", "three");
    EXPECT_EQ(readWholeFile(path("user3.iff")), "three");
    std::filesystem::remove(folder.game() / "UserData/Characters/user1.iff");
    EXPECT_FALSE(files().fileExists(path("user1.iff")));
    writeWholeFile(path("user4.iff"), "four");
    EXPECT_EQ(folder.read("game/UserData/Characters/user4.iff"), "four");
    writeWholeFile(path("USER3.iff"), "other");
    EXPECT_EQ(folder.read("game/UserData/Characters/user3.iff"), "other");
    files().rename(path("user4.iff"), path("user5.iff"));
    EXPECT_EQ(readWholeFile(path("USER5.iff")), "four");
    EXPECT_TRUE(files().fileExists(path("user5.iff")));
    EXPECT_FALSE(files().fileExists(path("user4.iff")));
    EXPECT_EQ(readWholeFile(folder.path("game\\UserData\\Characters\\user5.iff")), "four");
    // Another folder of other letters in between.
    folder.write("game/Other/a", "a");
    EXPECT_EQ(readWholeFile(folder.path("game\\other\\A")), "a");
    EXPECT_EQ(readWholeFile(path("user5.iff")), "four");
}

TEST_F(FilesTest, AFolderThatGoesWithinACommandLeadsNowhere) {
    const auto path = [&](const std::string& name) { return folder.path("game\\skins\\" + name); };
    folder.write("game/Skins/a", "a");
    const OneCommand command;
    EXPECT_EQ(readWholeFile(path("a")), "a");
    files().remove(path("a"));
    files().removeFolder(folder.path("game\\SKINS"));
    EXPECT_EQ(errorOf([&] { readWholeFile(path("a")); }), 76);
    files().makeFolder(folder.path("game\\SKINS"));
    writeWholeFile(path("b"), "b");
    EXPECT_EQ(folder.read("game/SKINS/b"), "b");
    std::filesystem::remove_all(folder.game() / "SKINS");
    EXPECT_EQ(errorOf([&] { readWholeFile(path("b")); }), 76);
    EXPECT_FALSE(files().fileExists(path("b")));
}

#ifndef _WIN32
// Only where names of other letters are others.
TEST_F(FilesTest, TheVeryNameComesFirstInTheNextCommandAndWhileOneWaits) {
    const Path path = folder.path("game\\skins\\a");
    folder.write("game/Skins/a", "other letters");
    {
        const OneCommand command;
        EXPECT_EQ(readWholeFile(path), "other letters");
        {
            const OneCommand::Pause question;
            folder.write("game/skins/a", "the very name");
            EXPECT_EQ(readWholeFile(path), "the very name");
        }
        EXPECT_EQ(readWholeFile(path), "the very name");
        std::filesystem::remove_all(folder.game() / "skins");
        EXPECT_EQ(readWholeFile(path), "other letters");
    }
    folder.write("game/skins/a", "once more");
    const OneCommand command;
    EXPECT_EQ(readWholeFile(path), "once more");
}
#endif

TEST_F(FilesTest, HonoursTheReadOnlyMark) {
    folder.write("game/marked", "keep");
    folder.makeReadOnly("game/marked");
    const Path path = folder.path("game\\marked");
    EXPECT_TRUE(files().isReadOnly(path));
    EXPECT_EQ(errorOf([&] { files().remove(path); }), 75);
    EXPECT_EQ(errorOf([&] { writeWholeFile(path, "other"); }), 75);
    {
        const auto file = files().open(path, OpenMode::Binary);
        std::string content(4, ' ');
        EXPECT_EQ(file->read(content.data(), 4), 4U);
        EXPECT_EQ(content, "keep");
        EXPECT_EQ(errorOf([&] { file->write("x"); }), 75);
    }
    files().clearAttributes(path);
    EXPECT_FALSE(files().isReadOnly(path));
    writeWholeFile(path, "other");
    EXPECT_EQ(folder.read("game/marked"), "other");
}

}  // namespace
}  // namespace marlowick
