// What only a system without drives has among its files.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <memory>
#include <vector>

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

TEST(FilesPosixTest, AFileThatIsOpenForWritingAloneCannotBeRead) {
    const test::TestFolder folder;
    const auto file = files().open(folder.path("game\\new"), OpenMode::CreateNew);
    file->write("abc");
    file->seek(0);
    char byte = 'z';
    EXPECT_EQ(errorOf([&] { file->read(&byte, 1); }), 57);
    EXPECT_EQ(byte, 'z');
}

// Not more files than the process may have; those that are open go at the end.
TEST(FilesPosixTest, TooManyOpenFilesAreErrorSixtySeven) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers open files of their own to look at what is raised.";
#endif
    const test::TestFolder folder;
    folder.write("game/there", "x");
    const Path there = folder.path("game\\there");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{64, before.rlim_max};
    std::vector<std::unique_ptr<File>> held;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const int whileTaking = errorOf([&] {
        for (int i = 0; i < 100; ++i) {
            held.push_back(files().open(there, OpenMode::Input));
        }
    });
    const int asBinary = errorOf([&] { files().open(there, OpenMode::Binary); });
    const int asOutput = errorOf([&] { files().open(there, OpenMode::Output); });
    held.clear();
    const int afterwards = errorOf([&] { files().open(there, OpenMode::Binary); });
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(whileTaking, 67);
    EXPECT_EQ(asBinary, 67);
    EXPECT_EQ(asOutput, 67);
    EXPECT_EQ(afterwards, 0);
    EXPECT_EQ(folder.read("game/there"), "x");
}

}  // namespace
}  // namespace marlowick
