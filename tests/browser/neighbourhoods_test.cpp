#include "browser/neighbourhoods.h"

#include <gtest/gtest.h>

#include "foundation/game.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick {
namespace {

TEST(NeighbourhoodsTest, LinesBearANumberAndTheFolder) {
    EXPECT_EQ(neighbourhoodLine("UserData"), "Neighborhood 01   (UserData)");
    EXPECT_EQ(neighbourhoodLine("UserData2"), "Neighborhood 02   (UserData2)");
    EXPECT_EQ(neighbourhoodLine("USERDATA10"), "Neighborhood 10   (USERDATA10)");
    EXPECT_EQ(neighbourhoodLine("UserData007"), "Neighborhood 07   (UserData007)");
    EXPECT_EQ(neighbourhoodLine("UserDataOld"), "Neighborhood Old   (UserDataOld)");
}

TEST(NeighbourhoodsTest, TheFolderComesBackOutOfItsLine) {
    for (const char* folder : {"UserData", "userdata2", "USERDATA10", "UserDataOld"}) {
        EXPECT_EQ(folderOfLine(neighbourhoodLine(folder)), folder);
    }
}

TEST(NeighbourhoodsTest, FilesThatFitThePatternAreListedToo) {
    const test::TestFolder folder;
    folder.write("game/USERDATA/x", "");
    folder.write("game/UserData10/x", "");
    folder.write("game/UserData2/x", "");
    folder.write("game/userdata.txt", "");
    folder.write("game/Other/x", "");
    const List<std::string> dirs = findUserDataDirs();
    ASSERT_EQ(dirs.bound(), 4);
    EXPECT_EQ(dirs[1], "USERDATA");
    EXPECT_EQ(dirs[2], "userdata.txt");
    EXPECT_EQ(dirs[3], "UserData10");
    EXPECT_EQ(dirs[4], "UserData2");
    EXPECT_EQ(findSimFiles("userdata.txt").bound(), 0);
}

TEST(NeighbourhoodsTest, TheyAreThoseOfTheFolderWhereTheOpenGameKeepsThem) {
    const test::TestFolder folder;
    folder.write("game/UserData/Characters/user00001.iff", "template");
    folder.write("saves/UserData3/Characters/user00003.iff", "bad");
    NeighbourhoodsElsewhere = folder.path("saves");
    const List<std::string> dirs = findUserDataDirs();
    ASSERT_EQ(dirs.bound(), 1);
    EXPECT_EQ(dirs[1], "UserData3");
    EXPECT_EQ(findSimFiles("UserData").bound(), 0);
    EXPECT_EQ(findSimFiles("UserData3").bound(), 1);
    EXPECT_EQ(charactersFolder("UserData3"), folder.path("saves\\UserData3\\characters"));
}

TEST(NeighbourhoodsTest, SimFilesAreListedInOrderWithoutOpeningThem) {
    const test::TestFolder folder;
    folder.write("game/UserData/CHARACTERS/User00002.IFF", "bad");
    folder.write("game/UserData/CHARACTERS/user00001.iff", "");
    folder.write("game/UserData/CHARACTERS/notes.txt", "");
    const List<std::string> sims = findSimFiles("UserData");
    ASSERT_EQ(sims.bound(), 2);
    EXPECT_EQ(sims[1], "user00001.iff");
    EXPECT_EQ(sims[2], "User00002.IFF");
    EXPECT_EQ(findSimFiles("UserData9").bound(), 0);
}

TEST(NeighbourhoodsTest, AFolderWithoutAPathHasNoSims) {
    const test::TestFolder folder;
    for (const char* name : {"UserData?", "UserData:2", "UserData\t", ""}) {
        EXPECT_EQ(test::errorOf([&] { EXPECT_EQ(findSimFiles(name).bound(), 0) << name; }), 0);
    }
}

TEST(NeighbourhoodsTest, TheStrictListingSortsOutWhatIsNoUserFile) {
    const test::TestFolder folder;
    folder.write("game/UserData/Characters/user1.iff", test::simFile(test::simRows({})));
    folder.write("game/UserData/Characters/user2.iff",
                 test::fileHead(0) + test::segment("OBJD", 1, 1, "chair", ""));
    folder.write("game/UserData/Characters/user3.iff", test::fileHead(0) + "xx");
    IffFile iff;
    List<std::string> good;
    List<BadFile> bad;
    for (const char* name : {"user1.iff", "user2.iff", "user3.iff", "user?.iff"}) {
        sortOutSimFile(iff, "UserData", name, good, bad);
    }
    ASSERT_EQ(good.bound(), 1);
    EXPECT_EQ(good[1], "user1.iff");
    EXPECT_EQ(badFileReport(bad),
              "The following sim files can not be loaded by Marlowick:\r\n"
              "\r\n"
              "user2.iff\r\n"
              "User IFF File Not Valid\r\n"
              "\r\n"
              "user3.iff\r\n"
              "Error 5 - Invalid procedure call or argument\r\n"
              "\r\n"
              "user?.iff\r\n"
              "Error 52 - Bad file name or number\r\n"
              "\r\n"
              "The files did not pass the data validation procedure.\r\n");
}

// A folder of more names than a 16-bit counter holds.
class CrowdedFiles : public test::FaultyFiles {
  public:
    CrowdedFiles() : FaultyFiles(0, Fault::Fail) {}
    std::vector<FolderEntry> list(const Path& /*folder*/) override {
        std::vector<FolderEntry> entries;
        for (int i = 0; i < 32768; ++i) {
            entries.push_back({"UserData" + std::to_string(i), true});
            entries.push_back({"user" + std::to_string(i) + ".iff", false});
        }
        return entries;
    }
};

TEST(NeighbourhoodsTest, MoreNamesThanSixteenBitsCountOverflow) {
    const test::TestFolder folder;
    const CrowdedFiles crowded;
    EXPECT_EQ(test::errorOf([] { findUserDataDirs(); }), 6);
    EXPECT_EQ(test::errorOf([] { findSimFiles("UserData"); }), 6);
    IffFile iff;
    List<std::string> good;
    List<BadFile> bad;
    bad.resize(32766);
    EXPECT_EQ(test::errorOf([&] { sortOutSimFile(iff, "UserData", "user?.iff", good, bad); }), 0);
    EXPECT_EQ(test::errorOf([&] { sortOutSimFile(iff, "UserData", "user?.iff", good, bad); }), 6);
}

}  // namespace
}  // namespace marlowick
