#include "system/folder_names_posix.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "support/test_folder.h"
#include "system/files.h"
#include "system/held_folder.h"
#include "system/one_command.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

class FolderNamesTest : public ::testing::Test {
  protected:
    FolderNamesTest() { fs::create_directories(place); }

    void make(const std::string& name) const { std::ofstream(place / name) << "x"; }
    std::string find(const std::string& wanted) { return names.find(place.string(), wanted); }
    std::string findUnwatched(const std::string& wanted) {
        return unwatched.find(place.string(), wanted);
    }

    test::TestFolder folder;
    const fs::path place = folder.root() / "place";
    FolderNames names;
    FolderNames unwatched{false};
};

TEST_F(FolderNamesTest, FindsANameInAnyCaseAndTheFirstOfSeveral) {
    make("Face.BMP");
    make("\xC3\x89t\xC3\xA9");
    make("BODY");
    make("Body");
    for (FolderNames* each : {&names, &unwatched}) {
        for (int time = 1; time <= 2; ++time) {
            EXPECT_EQ(each->find(place.string(), "fACE.bmp"), "Face.BMP");
            EXPECT_EQ(each->find(place.string() + "/", "\xC3\xA9T\xC3\x89"), "\xC3\x89t\xC3\xA9");
            EXPECT_EQ(each->find(place.string(), "body"), "BODY");
            EXPECT_EQ(each->find(place.string(), "boDY"), "BODY");
            EXPECT_EQ(each->find(place.string(), "Body"), "Body");
            EXPECT_EQ(each->find(place.string(), "face"), "");
            EXPECT_EQ(each->find(place.string() + "/none", "face"), "");
            EXPECT_EQ(each->find((place / "BODY").string(), "face"), "");
        }
    }
}

// However soon behind the question before.
TEST_F(FolderNamesTest, KnowsWhatOthersDidInTheFolder) {
    for (FolderNames* each : {&names, &unwatched}) {
        const auto found = [&] { return each->find(place.string(), "face.bmp"); };
        for (int time = 1; time <= 3; ++time) {
            EXPECT_EQ(found(), "");
            make("FACE.bmp");
            EXPECT_EQ(found(), "FACE.bmp");
            fs::rename(place / "FACE.bmp", place / "Face.bmp");
            EXPECT_EQ(found(), "Face.bmp");
            fs::rename(place / "Face.bmp", folder.root() / "Face.bmp");
            EXPECT_EQ(found(), "");
            fs::rename(folder.root() / "Face.bmp", place / "fAce.bmp");
            EXPECT_EQ(found(), "fAce.bmp");
            make("FACE.BMP");
            EXPECT_EQ(found(), "FACE.BMP");
            fs::remove(place / "FACE.BMP");
            EXPECT_EQ(found(), "fAce.bmp");
            fs::remove(place / "fAce.bmp");
            fs::create_directory(place / "FACE.BMP");
            EXPECT_EQ(found(), "FACE.BMP");
            fs::remove(place / "FACE.BMP");
        }
    }
}

// The kernel tells of two renamings, there and back, behind which one name would be left.
TEST_F(FolderNamesTest, TwoNamesThatAreExchangedBothStayThere) {
    make("A");
    make("B");
    EXPECT_EQ(find("a"), "A");
    const auto exchange = [this](const char* one, const char* other) {
        return ::renameat2(AT_FDCWD, (place / one).c_str(), AT_FDCWD, (place / other).c_str(),
                           RENAME_EXCHANGE) == 0;
    };
    if (!exchange("A", "B")) {
        GTEST_SKIP() << "the file system can't exchange names";
    }
    EXPECT_EQ(find("a"), "A");
    EXPECT_EQ(find("b"), "B");
    ASSERT_TRUE(exchange("B", "A"));
    fs::remove(place / "A");
    EXPECT_EQ(find("a"), "");
    EXPECT_EQ(find("b"), "B");
}

TEST_F(FolderNamesTest, AnotherFolderOfTheSameNameIsAnotherFolder) {
    make("A");
    EXPECT_EQ(find("a"), "A");
    fs::rename(place, folder.root() / "old");
    EXPECT_EQ(find("a"), "");
    fs::create_directory(place);
    make("B");
    EXPECT_EQ(find("a"), "");
    EXPECT_EQ(find("b"), "B");
    EXPECT_EQ(names.find((folder.root() / "old").string(), "a"), "A");
    for (int time = 1; time <= 20; ++time) {
        fs::remove_all(place);
        EXPECT_EQ(find("b"), "");
        fs::create_directory(place);
        EXPECT_EQ(find("b"), "");
        make("B");
        EXPECT_EQ(find("b"), "B");
    }
}

TEST_F(FolderNamesTest, TwoPathsMayLeadToOneFolder) {
    make("A");
    fs::create_directory_symlink(place, folder.root() / "link");
    EXPECT_EQ(find("a"), "A");
    EXPECT_EQ(names.find((folder.root() / "link").string(), "a"), "A");
    make("B");
    EXPECT_EQ(names.find((folder.root() / "link").string(), "b"), "B");
    EXPECT_EQ(find("b"), "B");
}

TEST_F(FolderNamesTest, MoreChangesThanTheKernelHoldsAreNotMissed) {
    make("first");
    EXPECT_EQ(find("FIRST"), "first");
    make("x");
    for (int i = 0; i < 5000; ++i) {
        fs::rename(place / "x", place / "y");
        fs::rename(place / "y", place / "x");
    }
    fs::remove(place / "first");
    make("Last");
    EXPECT_EQ(find("LAST"), "Last");
    EXPECT_EQ(find("FIRST"), "");
    make("Later");
    EXPECT_EQ(find("LATER"), "Later");
}

TEST_F(FolderNamesTest, ManyFoldersTakeTurns) {
    const auto at = [&](int i) { return place / std::to_string(i); };
    for (int i = 0; i < 30; ++i) {
        fs::create_directory(at(i));
        std::ofstream(at(i) / "A") << "x";
        EXPECT_EQ(names.find(at(i).string(), "a"), "A");
    }
    for (int i = 0; i < 30; ++i) {
        fs::remove(at(i) / "A");
        std::ofstream(at(i) / "B") << "x";
    }
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(names.find(at(i).string(), "a"), "");
        EXPECT_EQ(names.find(at(i).string(), "b"), "B");
    }
}

TEST_F(FolderNamesTest, AHeldFolderIsReadOnceAndTakesWhatTheProgramMakes) {
    make("Old");
    unwatched.hold(place.string());
    EXPECT_EQ(findUnwatched("OLD"), "Old");
    // Not read again, so that this one isn't known ...
    make("Foreign");
    EXPECT_EQ(findUnwatched("FOREIGN"), "");
    make("Own");
    unwatched.added((place / "Own").string());
    EXPECT_EQ(findUnwatched("OWN"), "Own");
    unwatched.added((folder.root() / "elsewhere").string());
    EXPECT_EQ(findUnwatched("ELSEWHERE"), "");
    // ... but what has gone is no answer.
    fs::remove(place / "Old");
    EXPECT_EQ(findUnwatched("OLD"), "");
    EXPECT_EQ(findUnwatched("FOREIGN"), "Foreign");
    unwatched.release();
    make("Later");
    EXPECT_EQ(findUnwatched("LATER"), "Later");
}

TEST_F(FolderNamesTest, AllNamesOfACommandAreLookedUpInOneReadingOfAFolder) {
    const fs::path other = folder.root() / "other";
    fs::create_directories(other);
    make("Old");
    std::ofstream(other / "There") << "x";
    unwatched.setCommands(1);
    EXPECT_EQ(findUnwatched("OLD"), "Old");
    EXPECT_EQ(unwatched.find(other.string(), "THERE"), "There");
    // Neither is read again, so that these aren't known ...
    make("Foreign");
    std::ofstream(other / "Foreign") << "x";
    EXPECT_EQ(findUnwatched("FOREIGN"), "");
    EXPECT_EQ(unwatched.find(other.string(), "FOREIGN"), "");
    // ... but what the program makes is.
    make("Own");
    unwatched.added((place / "Own").string());
    EXPECT_EQ(findUnwatched("OWN"), "Own");
    EXPECT_EQ(unwatched.find(other.string(), "OWN"), "");
    // What has gone is no answer.
    fs::remove(place / "Old");
    EXPECT_EQ(findUnwatched("OLD"), "");
    EXPECT_EQ(findUnwatched("FOREIGN"), "Foreign");
    // One command in another ends nothing.
    unwatched.setCommands(2);
    unwatched.setCommands(1);
    EXPECT_EQ(unwatched.find(other.string(), "FOREIGN"), "");
    unwatched.setCommands(0);
    EXPECT_EQ(unwatched.find(other.string(), "FOREIGN"), "Foreign");
}

TEST_F(FolderNamesTest, AfterACommandTheFolderIsReadForEachQuestionAgain) {
    unwatched.setCommands(1);
    EXPECT_EQ(findUnwatched("A"), "");
    unwatched.setCommands(0);
    make("a");
    EXPECT_EQ(findUnwatched("A"), "a");
    make("b");
    EXPECT_EQ(findUnwatched("B"), "b");
}

// A watched folder misses nothing while a command runs, and neither does the file system that the
// program uses.
TEST_F(FolderNamesTest, ACommandOnAWatchedFolderSeesWhatOthersMake) {
    names.setCommands(1);
    EXPECT_EQ(find("a"), "");
    make("A");
    EXPECT_EQ(find("a"), "A");
    const OneCommand command;
    EXPECT_FALSE(files().fileExists(folder.path("place/b")));
    make("B");
    EXPECT_TRUE(files().fileExists(folder.path("place/b")));
    const OneCommand::Pause pause;
    fs::remove(place / "B");
    EXPECT_FALSE(files().fileExists(folder.path("place/b")));
}

// The folder of a path is found once a command. Meanwhile another program gives it another name.
TEST_F(FolderNamesTest, ACommandFollowsAFolderToANameInOtherLetters) {
    make("a");
    const OneCommand command;
    EXPECT_EQ(readWholeFile(folder.path("pLACE/a")), "x");
    fs::path current = place;
    for (const char* name : {"PLACE", "Place", "place"}) {
        fs::rename(current, folder.root() / name);
        current = folder.root() / name;
        EXPECT_TRUE(files().fileExists(folder.path("pLACE/a")));
        EXPECT_EQ(readWholeFile(folder.path("pLACE/a")), "x");
    }
}

TEST_F(FolderNamesTest, ACommandSeesAFolderThatIsMadeAsItIsWritten) {
    folder.write("place/a", "other letters");
    const OneCommand command;
    EXPECT_EQ(readWholeFile(folder.path("PLACE/a")), "other letters");
    EXPECT_FALSE(files().fileExists(folder.path("PLACE/b")));
    folder.write("PLACE/a", "as written");
    folder.write("PLACE/b", "new");
    EXPECT_EQ(readWholeFile(folder.path("PLACE/b")), "new");
    EXPECT_TRUE(files().fileExists(folder.path("PLACE/b")));
    EXPECT_EQ(readWholeFile(folder.path("PLACE/a")), "as written");
}

TEST_F(FolderNamesTest, AWatchedFolderThatIsHeldMissesNothing) {
    names.hold(place.string());
    EXPECT_EQ(find("a"), "");
    make("A");
    EXPECT_EQ(find("a"), "A");
    names.release();
    make("B");
    EXPECT_EQ(find("b"), "B");
}

// Through the file system that the program uses.
TEST_F(FolderNamesTest, AFileThatCameUpInOtherLettersIsWrittenOver) {
    writeWholeFile(folder.path("place\\first"), "1");
    make("SECOND");
    writeWholeFile(folder.path("place\\second"), "2");
    fs::remove(place / "SECOND");
    writeWholeFile(folder.path("place\\second"), "3");
    {
        const HeldFolder held(folder.path("PLACE"));
        writeWholeFile(folder.path("place\\Third"), "4");
        writeWholeFile(folder.path("place\\THIRD"), "5");
        writeWholeFile(folder.path("place\\FIRST"), "6");
    }
    EXPECT_EQ(searchFiles(folder.path("place"), "*"),
              (std::vector<std::string>{"first", "second", "Third"}));
    EXPECT_EQ(folder.read("place/Third"), "5");
    EXPECT_EQ(folder.read("place/first"), "6");
    EXPECT_EQ(folder.read("place/second"), "3");
}

}  // namespace
}  // namespace marlowick
