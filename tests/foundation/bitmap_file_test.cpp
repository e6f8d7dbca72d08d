#include "foundation/bitmap_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/bitmap_builder.h"
#include "support/counting_files.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick {
namespace {

using test::BitmapHead;
using test::bitmapHead;
using test::errorOf;
using test::little16;
using test::little32;

class BitmapFileTest : public ::testing::Test {
  protected:
    std::string read(const std::string& content, std::int64_t length = kWholeFile) {
        folder.write("a.bmp", content);
        return readBitmap(folder.path("a.bmp"), length);
    }

    int failureOf(const std::string& content, std::int64_t length = kWholeFile) {
        return errorOf([&] { read(content, length); });
    }

    // The bytes behind the head: so many are enough, and one less isn't.
    void expectNeeded(const BitmapHead& head, std::size_t bytes) {
        const std::string file = bitmapHead(head) + std::string(bytes, 'x');
        EXPECT_EQ(failureOf(file), 0) << bytes;
        EXPECT_EQ(failureOf(file.substr(0, file.size() - 1)), 481) << bytes;
    }

    test::TestFolder folder;
};

TEST_F(BitmapFileTest, TheRowsEndABitmapWhateverItsSizesSay) {
    const std::string bitmap = bitmapHead({}) + "row one..pad" + "row two..pad";
    EXPECT_EQ(read(bitmap), bitmap);
    EXPECT_EQ(read(bitmap + std::string(100, 'x')), bitmap);
}

TEST_F(BitmapFileTest, TheLastRowMayLackItsPadAndNothingElse) {
    const std::string rows = bitmapHead({}) + "row one..pad" + "row two..";
    EXPECT_EQ(read(rows), rows + std::string(3, '\0'));
    EXPECT_EQ(read(rows + "p"), rows + "p" + std::string(2, '\0'));
    EXPECT_EQ(failureOf(rows.substr(0, rows.size() - 1)), 481);
}

TEST_F(BitmapFileTest, OnlyTheFirstBytesCountIfToldSo) {
    const std::string bitmap = bitmapHead({}) + "row one..pad" + "row two..pad";
    EXPECT_EQ(read(bitmap + "old rows", 78), bitmap);
    EXPECT_EQ(read(bitmap, 75),
              bitmapHead({}) + "row one..pad" + "row two.." + std::string(3, '\0'));
    EXPECT_EQ(failureOf(bitmap, 74), 481);
    EXPECT_EQ(failureOf(bitmap, 0), 481);
}

TEST_F(BitmapFileTest, EveryDepthHasItsRows) {
    // Width 5: rows of 1, 3, 5, 10, 15 and 20 bytes, padded to fours; palettes of 2, 16 and 256.
    expectNeeded({.width = 5, .depth = 1}, 8 + 4 + 1);
    expectNeeded({.width = 5, .depth = 4}, 64 + 4 + 3);
    expectNeeded({.width = 5, .depth = 8}, 1024 + 8 + 5);
    expectNeeded({.width = 5, .depth = 16}, 12 + 10);
    expectNeeded({.width = 5, .depth = 24}, 16 + 15);
    expectNeeded({.width = 5, .depth = 32}, 20 + 20);
}

TEST_F(BitmapFileTest, RowsBeginWhereTheHeadSaysButNeverWithinIt) {
    expectNeeded({.offset = 60}, 6 + 12 + 9);
    expectNeeded({.offset = 0}, 12 + 9);
    expectNeeded({.depth = 8, .offset = 0}, 1024 + 4 + 3);
    expectNeeded({.depth = 8, .offset = 0, .colours = 10}, 40 + 4 + 3);
    expectNeeded({.depth = 32, .compression = 3}, 12 + 12 + 12);
    expectNeeded({.offset = 0, .headSize = 108}, 68 + 12 + 9);
    EXPECT_EQ(failureOf(bitmapHead({.offset = 0xFFFFFFFF}) + std::string(1000, 'x')), 481);
}

// Some writers cut the palette and tell of all its colours.
TEST_F(BitmapFileTest, APaletteEndsWhereTheRowsBegin) {
    constexpr unsigned kSixteen = 54 + 16 * 4;
    for (const unsigned stated : {0U, 17U, 256U, 0xFFFFFFFFU}) {
        const BitmapHead head{.depth = 8, .offset = kSixteen, .colours = stated};
        expectNeeded(head, 16 * 4 + 4 + 3);
        const std::string bytes(16 * 4 + 8, 'x');
        EXPECT_EQ(read(bitmapHead(head) + bytes),
                  bitmapHead({.depth = 8, .offset = kSixteen, .colours = 16}) + bytes);
    }
    const BitmapHead fewer{.depth = 8, .offset = kSixteen, .colours = 15};
    EXPECT_EQ(read(bitmapHead(fewer) + std::string(16 * 4 + 8, 'x')),
              bitmapHead(fewer) + std::string(16 * 4 + 8, 'x'));
}

TEST_F(BitmapFileTest, RowsFromTheTopDownCountAlike) {
    expectNeeded({.height = 0xFFFFFFFE}, 12 + 9);
}

TEST_F(BitmapFileTest, TheOldestBitmapsHaveAShortHead) {
    const std::string head = "BM" + little32(0) + little32(0) + little32(26) + little32(12) +
                             little16(3) + little16(2) + little16(1) + little16(24);
    EXPECT_EQ(failureOf(head + std::string(12 + 9, 'x')), 0);
    EXPECT_EQ(failureOf(head + std::string(12 + 8, 'x')), 481);
}

TEST_F(BitmapFileTest, WhatHasNoRowsIsNoBitmap) {
    for (const BitmapHead& head :
         {BitmapHead{.width = 0}, BitmapHead{.height = 0}, BitmapHead{.width = 0xFFFFFFFD},
          BitmapHead{.depth = 0}, BitmapHead{.depth = 99}, BitmapHead{.headSize = 16},
          BitmapHead{.headSize = 0xFFFFFFFF}, BitmapHead{.width = 0x7FFFFFFF, .height = 0x7FFFFFFF},
          BitmapHead{.height = 0x80000000}}) {
        EXPECT_EQ(failureOf(bitmapHead(head) + std::string(200, 'x')), 481);
    }
    for (const char* content : {"", "BM", "BMx", "no picture at all, but a text of some length"}) {
        EXPECT_EQ(failureOf(content), 481) << content;
    }
    EXPECT_EQ(failureOf(bitmapHead({}).substr(0, 53)), 481);
    EXPECT_EQ(failureOf("x" + bitmapHead({}).substr(1) + std::string(200, 'x')), 481);
}

TEST_F(BitmapFileTest, NoMoreIsReadThanTheRowsNeed) {
    folder.write("a.bmp", bitmapHead({}) + std::string(24, 'x'));
    std::filesystem::resize_file(folder.root() / "a.bmp", 70U << 20U);
    test::CountingFiles counting;
    EXPECT_EQ(readBitmap(folder.path("a.bmp"), kWholeFile).size(), 78U);
    EXPECT_EQ(counting.traffic.bytesRead, 78U);
}

TEST_F(BitmapFileTest, RowsOfMoreThanCanBeShownAreNotRead) {
    folder.write("a.bmp", bitmapHead({.width = 10000, .height = 10000}));
    std::filesystem::resize_file(folder.root() / "a.bmp", 54 + 10000 * 30000);
    test::CountingFiles counting;
    EXPECT_EQ(errorOf([&] { readBitmap(folder.path("a.bmp"), kWholeFile); }), 481);
    EXPECT_LE(counting.traffic.bytesRead, 54U);
}

TEST_F(BitmapFileTest, ACompressedBitmapIsGivenAsFarAsItCouldReach) {
    const BitmapHead head{.width = 3, .height = 2, .depth = 8, .compression = 1, .offset = 1078};
    const std::string file = bitmapHead(head) + std::string(1024, 'p') + "runs";
    EXPECT_EQ(read(file), file);
    // Four bytes for each of 3 by 2 pixels, for each end of a row and for the end of all.
    EXPECT_EQ(read(file + std::string(1000, 'x')).size(), 1078U + 4 * 4 * 3);
}

TEST_F(BitmapFileTest, AMissingFileIsItsOwnFailure) {
    EXPECT_EQ(errorOf([&] { readBitmap(folder.path("none.bmp"), kWholeFile); }), 53);
    EXPECT_EQ(errorOf([&] { beginsLikePicture(folder.path("none.bmp"), kWholeFile); }), 53);
}

TEST_F(BitmapFileTest, APictureIsKnownByItsBeginning) {
    const auto begins = [&](const std::string& content, std::int64_t length = kWholeFile) {
        folder.write("a.bmp", content);
        return beginsLikePicture(folder.path("a.bmp"), length);
    };
    for (const char* content : {"BM", "\x89PNG\r\n", "/* XPM */", "\xFF\xD8\xFF\xE0", "GIF89a"}) {
        EXPECT_TRUE(begins(content)) << content;
    }
    EXPECT_FALSE(begins(""));
    EXPECT_FALSE(begins("B"));
    EXPECT_FALSE(begins("a text"));
    EXPECT_FALSE(begins("GIF89a", 3));
}

}  // namespace
}  // namespace marlowick
