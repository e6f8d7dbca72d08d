#include "system/block_copy.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

using test::errorOf;

class BlockCopyTest : public ::testing::Test {
  protected:
    BlockCopyTest() {
        content.resize(700000);
        for (std::size_t i = 0; i < content.size(); ++i) {
            content[i] = static_cast<char>(i * 7 + i / 251);
        }
        folder.write("game/source", content);
    }

    std::unique_ptr<File> open(const char* name, OpenMode mode) {
        return files().open(folder.path(name), mode);
    }

    test::TestFolder folder;
    std::string content;
};

TEST_F(BlockCopyTest, CopiesFromPositionToPositionInBlocks) {
    int blocks = 0;
    {
        const auto source = open("game\\source", OpenMode::Input);
        const auto target = open("game\\target", OpenMode::Output);
        source->seek(10);
        target->write("head");
        EXPECT_EQ(copyBlocks(*source, *target, 524289, [&] { ++blocks; }), 524289);
        EXPECT_EQ(source->position(), 524299);
    }
    EXPECT_EQ(folder.read("game/target"), "head" + content.substr(10, 524289));
    EXPECT_EQ(blocks, 3);
}

TEST_F(BlockCopyTest, EndsWhereTheSourceEnds) {
    const auto source = open("game\\source", OpenMode::Input);
    source->seek(699990);
    EXPECT_EQ(copyBlocks(*source, *open("game\\target", OpenMode::Output), 100), 10);
    EXPECT_EQ(folder.read("game/target"), content.substr(699990));
    source->seek(800000);
    EXPECT_EQ(copyBlocks(*source, *open("game\\none", OpenMode::Output), 100), 0);
    EXPECT_EQ(folder.read("game/none"), "");
}

TEST_F(BlockCopyTest, ANegativeSizeIsNoSize) {
    EXPECT_EQ(errorOf([&] {
                  copyBlocks(*open("game\\source", OpenMode::Input),
                             *open("game\\target", OpenMode::Output), -1);
              }),
              5);
}

TEST_F(BlockCopyTest, CopiesTheRest) {
    int blocks = 0;
    const auto source = open("game\\source", OpenMode::Input);
    source->seek(1);
    EXPECT_EQ(copyRest(*source, *open("game\\target", OpenMode::Output), [&] { ++blocks; }),
              699999);
    EXPECT_EQ(folder.read("game/target"), content.substr(1));
    EXPECT_EQ(blocks, 3);
}

TEST_F(BlockCopyTest, CopiesAFileOverALongerOne) {
    folder.write("game/copy", std::string(800000, 'x'));
    copyFile(folder.path("game\\source"), folder.path("game\\copy"));
    EXPECT_EQ(folder.read("game/copy"), content);
}

}  // namespace
}  // namespace marlowick
