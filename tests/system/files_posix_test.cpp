// What only a system without drives has among its files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/files.h"

namespace marlowick {
namespace {

using test::errorOf;

// Nobody writes into it: who opened it to read would wait for ever.
TEST(FilesPosixTest, APipeIsNoFileAndIsntWaitedFor) {
    const test::TestFolder folder;
    ASSERT_EQ(::mkfifo((folder.game() / "pipe").c_str(), 0600), 0);
    for (const OpenMode mode : {OpenMode::Input, OpenMode::Binary, OpenMode::Output}) {
        EXPECT_EQ(errorOf([&] { files().open(folder.path("game\\pipe"), mode); }), 75);
        EXPECT_EQ(errorOf([&] { files().open(folder.path("game\\PIPE"), mode); }), 75);
    }
}

TEST(FilesPosixTest, AFileOfOtherLettersIsOpenedAsItStands) {
    const test::TestFolder folder;
    folder.write("game/Face.BMP", "old");
    files().open(folder.path("game\\face.bmp"), OpenMode::Binary)->write("new");
    EXPECT_EQ(folder.read("game/Face.BMP"), "new");
    EXPECT_FALSE(folder.exists("game/face.bmp"));
    EXPECT_EQ(readWholeFile(folder.path("GAME\\FACE.bmp")), "new");
}

}  // namespace
}  // namespace marlowick
