#include "preview/texture_levels.h"

#include <gtest/gtest.h>

#include <memory>

#include "preview/figure.h"

namespace marlowick {
namespace {

using Pixels = std::vector<std::uint32_t>;

TEST(TextureLevelsTest, RowsAndColumnsGoOnWithTheFirstOne) {
    const TextureLevels levels = levelsOf({3, 2, {1, 2, 3, 4, 5, 6}});
    EXPECT_EQ(levels.front().width, 3);
    EXPECT_EQ(levels.front().height, 2);
    EXPECT_EQ(levels.front().stride(), 4);
    EXPECT_FALSE(levels.front().isPowerOfTwo);
    EXPECT_EQ(levels.front().pixels, (Pixels{1, 2, 3, 1, 4, 5, 6, 4, 1, 2, 3, 1}));
}

TEST(TextureLevelsTest, ACopysPixelIsTheMeanOfFour) {
    // Each channel on its own: 4 * 60, (255 + 1) / 4 and (3 * 1) / 4, which is nearer to 1.
    const TextureLevels levels = levelsOf({4,
                                           2,
                                           {0x00100000, 0x0020FF01, 0x00000000, 0x000000F0,  //
                                            0x00300001, 0x00400101, 0x00000000, 0x00000000}});
    ASSERT_EQ(levels.size(), 3U);
    EXPECT_EQ(levels[1].width, 2);
    EXPECT_EQ(levels[1].height, 1);
    EXPECT_TRUE(levels[1].isPowerOfTwo);
    EXPECT_EQ(levels[1].pixels,
              (Pixels{0x00284001, 0x0000003C, 0x00284001, 0x00284001, 0x0000003C, 0x00284001}));
    // (0x01 + 0x3C) / 2 is 30.5.
    EXPECT_EQ(levels[2].pixels, Pixels(4, 0x0014201F));
}

TEST(TextureLevelsTest, WhatCantBeHalvedEvenlyIsSharedByHowMuchIsCovered) {
    // Five pixels become two, of two and a half each: (0 + 50 + 100 / 2) / 2.5 and so on.
    const TextureLevels five = levelsOf({5, 1, {0, 50, 100, 150, 200}});
    ASSERT_EQ(five.size(), 3U);
    EXPECT_EQ(five[1].pixels, (Pixels{40, 160, 40, 40, 160, 40}));
    EXPECT_EQ(five[2].pixels, Pixels(4, 100));
    // One of nine.
    const TextureLevels nine = levelsOf({3, 3, {0, 0, 0, 0, 0x005A0900, 0, 0, 0, 0}});
    ASSERT_EQ(nine.size(), 2U);
    EXPECT_EQ(nine[1].pixels, Pixels(4, 0x000A0100));
}

TEST(TextureLevelsTest, GoDownToASinglePixel) {
    EXPECT_EQ(levelsOf({1, 1, {7}}).size(), 1U);
    EXPECT_EQ(levelsOf({256, 256, Pixels(65536)}).size(), 9U);
    const TextureLevels levels = levelsOf({100, 7, Pixels(700, 0x00123456)});
    ASSERT_EQ(levels.size(), 7U);  // 100, 50, 25, 12, 6, 3, 1
    for (const TextureLevel& level : levels) {
        for (const std::uint32_t pixel : level.pixels) {
            ASSERT_EQ(pixel, 0x00123456U) << level.width;
        }
    }
    EXPECT_EQ(levels[2].width, 25);
    EXPECT_EQ(levels[2].height, 1);
}

TEST(TextureLevelsTest, PartsOfAFigureShareThem) {
    const auto one = std::make_shared<const Texture>(Texture{1, 1, {5}});
    const auto other = std::make_shared<const Texture>(Texture{1, 1, {6}});
    const Figure figure = makeFigure({{{}, {}, one}, {{}, {}, other}, {{}, {}, one}});
    EXPECT_EQ(figure.parts[0].levels, figure.parts[2].levels);
    EXPECT_EQ(figure.parts[0].levels->front().pixels, Pixels(4, 5));
    EXPECT_EQ(figure.parts[1].levels->front().pixels, Pixels(4, 6));
}

}  // namespace
}  // namespace marlowick
