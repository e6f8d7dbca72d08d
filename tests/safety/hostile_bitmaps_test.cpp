// Bitmaps of strangers: shown if they are valid, else a failed picture; never a hang, nor memory
// that their bytes don't account for.
#include <gtest/gtest.h>

#include <QImage>
#include <chrono>
#include <iostream>

#include "foundation/bitmap_file.h"
#include "support/bitmap_builder.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

using test::bitmapHead;
using test::errorOf;

class HostileBitmapsTest : public ::testing::Test {
  protected:
    // The error of showing the file; 0 if it is shown.
    int errorOfShowing(const std::string& content) {
        folder.write("a.bmp", content);
        const auto start = std::chrono::steady_clock::now();
        const int failure =
            errorOf([&] { image = decodePicture(folder.path("a.bmp"), kWholeFile); });
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10))
            << content.size();
        EXPECT_TRUE(failure == 0 || failure == 481) << failure;
        EXPECT_LE(image.sizeInBytes(), 256LL << 20U);
        ++shown;
        return failure;
    }
    ~HostileBitmapsTest() override { std::cout << "[ BITMAPS  ] " << shown << '\n'; }

    test::TestFolder folder;
    QImage image;
    int shown = 0;
};

TEST_F(HostileBitmapsTest, AreTruncatedAnywhere) {
    const std::string whole = bitmapHead({4, 4}) + std::string(48, '\x40');
    ASSERT_EQ(errorOfShowing(whole), 0);
    EXPECT_EQ(image.size(), QSize(4, 4));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(errorOfShowing(whole.substr(0, length)), 481) << length;
    }
}

TEST_F(HostileBitmapsTest, TellOfHugeSizesInASmallFile) {
    for (const unsigned width :
         {0U, 1U, 4U, 32767U, 65536U, 1U << 20U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        for (const unsigned height : {0U, 1U, 4U, 32767U, 65536U, 1U << 20U, 0x7FFFFFFFU,
                                      0x80000000U, 0x80000001U, 0xFFFFFFFFU}) {
            const bool isSmall = width - 1 < 4U && (height - 1 < 4U || height == 0xFFFFFFFFU);
            const std::string file = bitmapHead({width, height}) + std::string(48, 'x');
            EXPECT_EQ(errorOfShowing(file), isSmall ? 0 : 481) << width << " x " << height;
        }
    }
}

TEST_F(HostileBitmapsTest, HaveTheirRowsFromTheTopDown) {
    std::string rows;
    for (const char* row : {"\x01", "\x02", "\x03", "\x04"}) {
        rows += std::string(12, *row);
    }
    ASSERT_EQ(errorOfShowing(bitmapHead({4, static_cast<unsigned>(-4)}) + rows), 0);
    EXPECT_EQ(image.pixel(0, 0), qRgb(1, 1, 1));
    EXPECT_EQ(image.pixel(0, 3), qRgb(4, 4, 4));
    ASSERT_EQ(errorOfShowing(bitmapHead({4, 4}) + rows), 0);
    EXPECT_EQ(image.pixel(0, 0), qRgb(4, 4, 4));
}

TEST_F(HostileBitmapsTest, HaveOddDepths) {
    for (unsigned depth = 0; depth <= 70; ++depth) {
        const std::string file =
            bitmapHead({.depth = depth, .offset = 54 + 1024}) + std::string(1024 + 400, 'x');
        const bool isKnown =
            depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
        EXPECT_EQ(errorOfShowing(file), isKnown ? 0 : 481) << depth;
    }
    EXPECT_EQ(errorOfShowing(bitmapHead({.depth = 0xFFFF}) + std::string(400, 'x')), 481);
}

TEST_F(HostileBitmapsTest, HavePalettesThatAreNotThere) {
    for (const unsigned colours : {1U, 255U, 256U, 257U, 0xFFFFU, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        errorOfShowing(bitmapHead({.depth = 8, .offset = 54, .colours = colours}) +
                       std::string(16, 'x'));
        errorOfShowing(bitmapHead({.depth = 8, .offset = 54 + 1024, .colours = colours}) +
                       std::string(1024 + 16, 'x'));
    }
}

// Run-length rows have no length of their own.
TEST_F(HostileBitmapsTest, AreRunLengthCodedAndLie) {
    const std::string palette(1024, 'p');
    const auto runs = [&](unsigned width, unsigned height, const std::string& data) {
        return bitmapHead({width, height, 8, 1, 1078}) + palette + data;
    };
    const std::string end("\0\1", 2);
    ASSERT_EQ(errorOfShowing(runs(4, 2, "\4\7" + std::string("\0\0", 2) + "\4\11" + end)), 0);
    EXPECT_EQ(image.pixelIndex(0, 1), 7);
    EXPECT_EQ(image.pixelIndex(3, 0), 9);
    // Beyond the row, beyond the picture, a jump out of it, a piece that isn't there, no end.
    for (const std::string& data :
         {std::string(400, '\xFF'), "\xFF\x01" + end, std::string("\0\2\xFF\xFF", 4) + "\4\7" + end,
          std::string("\0\xFF", 2) + "ab", std::string("\0\2", 2), std::string("\0", 1),
          std::string(400, '\0'), std::string()}) {
        errorOfShowing(runs(4, 2, data));
        errorOfShowing(runs(11000, 11000, data));
        errorOfShowing(runs(0x7FFFFFFF, 1, data));
        errorOfShowing(runs(1, 0x7FFFFFFF, data));
        errorOfShowing(runs(4, static_cast<unsigned>(-2), data));
    }
    // Rows that begin where the file has ended already are none.
    EXPECT_EQ(errorOfShowing(bitmapHead({4, 2, 8, 1, 5000}) + palette + "\4\7" + end), 481);
    EXPECT_EQ(errorOfShowing(bitmapHead({4, 2, 8, 1, 0x7FFFFFFF}) + palette + "\4\7" + end), 481);
    EXPECT_EQ(errorOfShowing(runs(4, 2, "")), 481);
    // Two pixels a byte.
    errorOfShowing(bitmapHead({16000, 16000, 4, 2, 118}) + std::string(64, 'p') + "\4\7" + end);
    errorOfShowing(bitmapHead({4, 4, 24, 1, 54}) + std::string(48, 'x'));
    errorOfShowing(bitmapHead({4, 4, 4, 1, 118}) + std::string(64 + 48, 'x'));
    errorOfShowing(bitmapHead({4, 4, 16, 2, 54}) + std::string(48, 'x'));
}

TEST_F(HostileBitmapsTest, AreDamagedAnywhere) {
    const std::string whole = bitmapHead({.depth = 8, .compression = 1, .offset = 1078}) +
                              std::string(1024, 'p') + "\4\7" + std::string("\0\1", 2);
    unsigned state = 7;
    for (int round = 0; round < 300; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 3; ++i) {
            state = state * 1664525 + 1013904223;
            damaged[(state >> 8U) % 54] = static_cast<char>(state >> 24U);
        }
        errorOfShowing(damaged);
        if (HasFailure()) {
            return;
        }
    }
}

}  // namespace
}  // namespace marlowick
