#include "system/buffered_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/test_folder.h"

namespace marlowick {
namespace {

class BufferedReaderTest : public ::testing::Test {
  protected:
    std::unique_ptr<File> open(std::string_view content) {
        folder.write("file", content);
        return files().open(folder.path("file"), OpenMode::Input);
    }

    test::TestFolder folder;
};

TEST_F(BufferedReaderTest, BytesComeInOrderAcrossTheEdgesOfPieces) {
    const auto file = open("abcdefghij");
    BufferedReader reader(*file, 4);
    EXPECT_EQ(reader.take(3), "abc");
    EXPECT_EQ(reader.take(0), "");
    EXPECT_EQ(reader.take(3), "def");
    EXPECT_EQ(reader.take(1), "g");
    EXPECT_EQ(reader.take(3), "hij");
    EXPECT_EQ(reader.take(0), "");
    EXPECT_EQ(reader.take(1), std::nullopt);
}

TEST_F(BufferedReaderTest, MoreThanAPieceIsTakenAtOnce) {
    const auto file = open("abcdefghij");
    BufferedReader reader(*file, 2);
    EXPECT_EQ(reader.take(1), "a");
    EXPECT_EQ(reader.take(8), "bcdefghi");
    EXPECT_EQ(reader.take(1), "j");
}

TEST_F(BufferedReaderTest, ItBeginsAtTheFilesPosition) {
    const auto file = open("abcdef");
    file->seek(4);
    BufferedReader reader(*file, 100);
    EXPECT_EQ(reader.take(3), std::nullopt);
    EXPECT_EQ(reader.take(2), "ef");
}

TEST_F(BufferedReaderTest, ASizeThatNoFileCouldFillTakesNothingAndAsksForNoMemory) {
    const auto file = open("abc");
    BufferedReader reader(*file, 2);
    EXPECT_EQ(reader.take(1), "a");
    EXPECT_EQ(reader.take(std::size_t{1} << 62U), std::nullopt);
    EXPECT_EQ(reader.take(2), "bc");
}

TEST_F(BufferedReaderTest, BehindTheEndThereIsNothing) {
    const auto file = open("abc");
    file->seek(7);
    BufferedReader reader(*file, 8);
    EXPECT_EQ(reader.take(0), "");
    EXPECT_EQ(reader.take(1), std::nullopt);
}

// A file that the game makes shorter while it is read.
class ShrinkingFile : public File {
  public:
    std::size_t read(char* data, std::size_t size) override {
        const std::size_t count = std::min(size, left_);
        std::fill_n(data, count, 'x');
        left_ -= count;
        return count;
    }
    void write(std::string_view /*data*/) override {}
    void seek(std::int64_t /*position*/) override {}
    std::int64_t position() override { return 0; }
    std::int64_t size() override { return 10; }
    void flush() override {}

  private:
    std::size_t left_ = 6;
};

TEST(ShrinkingFileTest, WhatIsStillThereIsTakenAndNothingMore) {
    ShrinkingFile file;
    BufferedReader reader(file, 4);
    EXPECT_EQ(reader.take(3), "xxx");
    EXPECT_EQ(reader.take(5), std::nullopt);
    EXPECT_EQ(reader.take(3), "xxx");
    EXPECT_EQ(reader.take(1), std::nullopt);
}

}  // namespace
}  // namespace marlowick
