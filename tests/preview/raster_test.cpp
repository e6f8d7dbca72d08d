#include "preview/raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace marlowick {
namespace {

constexpr int kSize = 100;

std::shared_ptr<const Texture> texture(int width, int height, std::vector<std::uint32_t> pixels) {
    return std::make_shared<const Texture>(Texture{width, height, std::move(pixels)});
}

const auto kWhite = texture(1, 1, {0x00FFFFFF});

FigureVertex vertex(float x, float y, float z, float u = 0, float v = 0) {
    return {{x, y, z}, {}, u, v};
}

// A square facing +z, one to each side of the middle; its texture fills it once.
FigurePart square(std::shared_ptr<const Texture> picture, float z = 0, float half = 1) {
    return {{vertex(-half, half, z, 0, 0), vertex(half, half, z, 1, 0),
             vertex(half, -half, z, 1, 1), vertex(-half, -half, z, 0, 1)},
            {{0, 1, 2}, {0, 2, 3}},
            std::move(picture)};
}

class RasterTest : public ::testing::Test {
  protected:
    void draw(std::vector<FigurePart> parts, const View& view = {}, std::uint32_t background = 0) {
        pixels = raster.draw(makeFigure(std::move(parts)), view, kSize, kSize, background);
    }
    std::uint32_t at(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y * kSize + x));
    }
    unsigned alpha(int x, int y) const { return at(x, y) >> 24U; }
    unsigned red(int x, int y) const { return at(x, y) >> 16U & 0xFFU; }

    Raster raster;
    std::vector<std::uint32_t> pixels;
};

// A surface without a normal gets 0.46 + 0.54 * 0.35 / 1.35 = 0.6 of the light: 153 of 256, and of
// 255 that leaves 152.
constexpr unsigned kLit = 152;
constexpr std::uint32_t kLitWhite = 0xFF989898;

// The corners lie at (-1, 1), (1, -1) and (-1, -1), and the root of 2 from the middle, the eye five
// times as far. The rings through them, of radius 1, reach 1 / (7.0711 - 1) = 0.16472 up and down
// there, which has to fit in 94 of 100 pixels: 285.34 pixels for 1. So the triangle, at a distance
// of 7.0711, spans 285.34 / 7.0711 = 40.35 pixels from the middle to each side: from 9.65 to 90.35.
TEST_F(RasterTest, ALoneTriangle) {
    draw({{{vertex(-1, 1, 0), vertex(1, -1, 0), vertex(-1, -1, 0)}, {{0, 1, 2}}, kWhite}});
    EXPECT_EQ(at(20, 80), kLitWhite);
    EXPECT_EQ(at(11, 14), kLitWhite);
    EXPECT_EQ(at(85, 89), kLitWhite);
    for (const auto& [x, y] : {std::pair{20, 10}, {60, 50}, {8, 50}, {50, 91}, {92, 92}, {0, 0}}) {
        EXPECT_EQ(at(x, y), 0U) << x << ' ' << y;
    }
    // Of the pixels of column 9, which begins at 9, the samples at 9.75 are inside, those at 9.25
    // are not: half of the four. Likewise those of row 90, which ends at 90.35: the upper two.
    EXPECT_EQ(at(9, 50), 0x804C4C4CU);
    EXPECT_EQ(at(50, 90), 0x804C4C4CU);
    // On the slope, which leads through the middles of samples, the lower left one of the four is
    // inside; what lies on the line itself belongs to what would be on its other side.
    EXPECT_EQ(at(50, 50), 0x40262626U);
}

TEST_F(RasterTest, TheBackgroundLiesBehind) {
    draw({{{vertex(-1, 1, 0), vertex(1, -1, 0), vertex(-1, -1, 0)}, {{0, 1, 2}}, kWhite}}, {},
         0xFF0000FF);
    EXPECT_EQ(at(0, 0), 0xFF0000FFU);
    EXPECT_EQ(at(20, 80), kLitWhite);
    // Half of 152, and of blue half of 255 more: what 255 - 128 leaves of it is 127.
    EXPECT_EQ(at(9, 50), 0xFF4C4C00U | (0x4CU + 127U));
    draw({}, {}, 0x80112233);
    EXPECT_TRUE(std::all_of(pixels.begin(), pixels.end(),
                            [](std::uint32_t pixel) { return pixel == 0x80112233; }));
}

TEST_F(RasterTest, TrianglesThatMeetLeaveNoGapAndShareNoPixel) {
    // A fan around the middle; where faces meet, a sample that two drew or none would show.
    FigurePart fan{{vertex(0, 0, 0)}, {}, kWhite};
    for (std::uint32_t i = 0; i < 36; ++i) {
        fan.vertices.push_back(
            vertex(sineOf(static_cast<float>(i) * 10), cosineOf(static_cast<float>(i) * 10), 0));
        fan.faces.push_back({0, i + 1, (i + 1) % 36 + 1});
    }
    draw({fan});
    for (int y = 25; y < 75; ++y) {
        for (int x = 25; x < 75; ++x) {
            EXPECT_EQ(at(x, y), kLitWhite) << x << ' ' << y;
        }
    }
}

// Each face alone, and all of them together: the samples that it has of a pixel are as many
// quarters of its alpha.
TEST_F(RasterTest, EverySampleOfAMeshBelongsToOneTriangle) {
    FigurePart fan{{vertex(0.137F, -0.211F, 0.05F)}, {}, kWhite};
    constexpr std::uint32_t kFaces = 23;
    for (std::uint32_t i = 0; i < kFaces; ++i) {
        const float angle = static_cast<float>(i) * 360 / kFaces;
        fan.vertices.push_back(vertex(sineOf(angle), cosineOf(angle), 0));
        fan.faces.push_back({0, i + 1, (i + 1) % kFaces + 1});
    }
    const Figure whole = makeFigure({fan});
    for (const View& view : {View{}, View{17, 9, 1}, View{-31, -20, 1.7F}, View{3, 0, 8}}) {
        std::vector<unsigned> samples(kSize * kSize);
        for (const FigureFace& face : fan.faces) {
            Figure alone = whole;
            alone.parts[0].faces = {face};
            pixels = raster.draw(alone, view, kSize, kSize);
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                samples[i] += ((pixels[i] >> 24U) + 1) / 64;
            }
        }
        pixels = raster.draw(whole, view, kSize, kSize);
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            ASSERT_EQ(samples[i], ((pixels[i] >> 24U) + 1) / 64) << i % kSize << ' ' << i / kSize;
        }
        EXPECT_EQ(alpha(55, 55), 255U);
    }
}

// The square spans from 9.65 to 90.35, so 0.0124 is a pixel's middle, at 50.5: of the four samples
// two lie at 50.25 and two at 50.75.
TEST_F(RasterTest, APixelOfTwoTrianglesShowsBothByTheirShares) {
    const auto red = texture(1, 1, {0x00FF0000});
    const auto green = texture(1, 1, {0x0000FF00});
    constexpr float kPlace = 0.0124F;
    FigurePart left = square(red);
    left.vertices[1].position.x = left.vertices[2].position.x = kPlace;
    FigurePart right = square(green);
    right.vertices[0].position.x = right.vertices[3].position.x = kPlace;
    draw({left, right});
    for (const int y : {15, 49, 50, 84}) {
        EXPECT_EQ(at(49, y), 0xFF980000U) << y;
        EXPECT_EQ(at(50, y), 0xFF4C4C00U) << y;
        EXPECT_EQ(at(51, y), 0xFF009800U) << y;
    }
    // A red one before a green one, of which its corner leaves three of the pixel's samples: 152 /
    // 4 and 3 * 152 / 4.
    FigurePart corner = square(red, 0.001F);
    for (FigureVertex& point : corner.vertices) {
        point.position.x = std::max(point.position.x, kPlace);
        point.position.y = std::min(point.position.y, -kPlace);
    }
    draw({square(green), corner});
    EXPECT_EQ(at(50, 50), 0xFF267200U);
    EXPECT_EQ(at(51, 51), 0xFF980000U);
    EXPECT_EQ(at(49, 50), 0xFF009800U);
    EXPECT_EQ(at(50, 49), 0xFF009800U);
}

TEST_F(RasterTest, WhatIsHiddenLeavesNoTrace) {
    std::vector<std::uint32_t> noise(64 * 64);
    std::uint32_t state = 7;
    for (std::uint32_t& pixel : noise) {
        state = state * 1664525 + 1013904223;
        pixel = state >> 8U;
    }
    const auto picture = texture(64, 64, noise);
    // Behind it: a front, a lining, and many small ones of both.
    FigurePart lining = square(kWhite, -0.3F, 0.6F);
    lining.faces = {{0, 2, 1}, {0, 3, 2}};
    FigurePart crumbs{{}, {}, kWhite};
    for (std::uint32_t i = 0; i < 300; ++i) {
        const float x = static_cast<float>(i % 20) * 0.08F - 0.8F;
        const float y = static_cast<float>(i / 20) * 0.1F - 0.7F;
        crumbs.vertices.insert(
            crumbs.vertices.end(),
            {vertex(x, y, -0.1F), vertex(x + 0.07F, y, -0.1F), vertex(x, y - 0.07F, -0.1F)});
        crumbs.faces.push_back(i % 2 == 0 ? FigureFace{3 * i, 3 * i + 1, 3 * i + 2}
                                          : FigureFace{3 * i, 3 * i + 2, 3 * i + 1});
    }
    Figure figure = makeFigure({square(kWhite, -0.2F, 0.7F), lining, crumbs, square(picture)});
    for (const View& view : {View{}, View{4, -5, 1}, View{-5, 3, 2.5F}, View{0, 0, 8}}) {
        figure.parts =
            makeFigure({square(kWhite, -0.2F, 0.7F), lining, crumbs, square(picture)}).parts;
        pixels = raster.draw(figure, view, 101, 97);
        figure.parts.erase(figure.parts.begin(), figure.parts.begin() + 3);
        EXPECT_EQ(pixels, raster.draw(figure, view, 101, 97)) << view.yaw;
    }
}

// Three pixels of the texture and more fall on one of the picture: of as many black as white ones
// that leaves (2 * 255 + 2) / 4 = 128 in the first halved copy, 76 of which are lit.
TEST_F(RasterTest, AChequeredTextureIsEvenFromAfar) {
    std::vector<std::uint32_t> chequers(256 * 256);
    for (std::size_t i = 0; i < chequers.size(); ++i) {
        chequers[i] = (i + i / 256) % 2 == 0 ? 0x00FFFFFFU : 0U;
    }
    const FigurePart part = square(texture(256, 256, chequers));
    for (const float yaw : {0.0F, 0.5F, 7.0F, 20.0F, 40.0F}) {
        draw({part}, {yaw, 0, 1});
        for (int y = 20; y < 80; ++y) {
            for (int x = 25; x < 75; ++x) {
                ASSERT_EQ(at(x, y), 0xFF4C4C4CU) << yaw << ": " << x << ' ' << y;
            }
        }
    }
}

// A little more and up to nearly twice as many of the texture's pixels, each way, fall on 80.7 of
// the picture. The four samples of a pixel lie half of the texture's from each other and more:
// together they tell little of chequers, which change from each to the next. Taken once a pixel
// these would be black and white in patches, which run over the picture while it turns.
TEST_F(RasterTest, AChequeredTextureIsEvenWhereNoHalvedCopyIsTaken) {
    for (const auto& [side, most] :
         {std::pair{86, 25U}, {96, 25U}, {106, 25U}, {113, 25U}, {130, 4U}, {152, 4U}}) {
        std::vector<std::uint32_t> chequers(static_cast<std::size_t>(side * side));
        for (int i = 0; i < side * side; ++i) {
            chequers[static_cast<std::size_t>(i)] = (i + i / side) % 2 == 0 ? 0x00FFFFFFU : 0U;
        }
        draw({square(texture(side, side, chequers))});
        for (int y = 20; y < 80; ++y) {
            for (int x = 20; x < 80; ++x) {
                ASSERT_NEAR(red(x, y), kLit / 2, most) << side << ": " << x << ' ' << y;
            }
        }
    }
}

// One and a half of the texture's pixels fall on one of the picture: too few for a halved copy, in
// which these stripes, of two pixels each, would be grey.
TEST_F(RasterTest, WhatIsALittleLargerThanThePictureStaysSharp) {
    constexpr std::size_t kSide = 128;
    std::vector<std::uint32_t> stripes(kSide * kSide);
    for (std::size_t i = 0; i < stripes.size(); ++i) {
        stripes[i] = (i % kSide + 1) / 2 % 2 == 0 ? 0x00FFFFFFU : 0U;
    }
    draw({square(texture(kSide, kSide, stripes))});
    unsigned darkest = 255;
    unsigned brightest = 0;
    for (int x = 40; x < 60; ++x) {
        darkest = std::min(darkest, red(x, 50));
        brightest = std::max(brightest, red(x, 50));
    }
    EXPECT_LT(darkest, 30U);
    EXPECT_GT(brightest, kLit - 30);
}

// Two times three stripes in 80.7 pixels, each 13.45 wide from 9.65 on.
TEST_F(RasterTest, TexturesOfOddSizesRepeat) {
    FigurePart twice = square(texture(3, 1, {0x00FF0000, 0x0000FF00, 0x000000FF}));
    for (FigureVertex& corner : twice.vertices) {
        corner.u = corner.u * 2 - 1;
    }
    draw({twice});
    for (const int left : {0, 40}) {
        EXPECT_NEAR(at(left + 16, 50) >> 16U & 0xFFU, kLit, 9);
        EXPECT_NEAR(at(left + 29, 50) >> 8U & 0xFFU, kLit, 9);
        EXPECT_NEAR(at(left + 43, 50) & 0xFFU, kLit, 9);
    }
    // Where it begins anew, the last one and the first one mix: at 50, half of each.
    EXPECT_NEAR(at(50, 50) & 0xFFU, kLit / 2, 7);
    EXPECT_NEAR(at(50, 50) >> 16U & 0xFFU, kLit / 2, 7);
    EXPECT_EQ(at(50, 50) >> 8U & 0xFFU, 0U);
}

TEST_F(RasterTest, WhatIsNearerHidesWhatIsFurther) {
    const auto red = texture(1, 1, {0x00FF0000});
    const auto blue = texture(1, 1, {0x000000FF});
    const std::uint32_t expected = 0xFF000000U | kLit << 16U;
    draw({square(red, 0.5F, 0.5F), square(blue, -0.5F, 0.5F)});
    EXPECT_EQ(at(50, 50), expected);
    draw({square(blue, -0.5F, 0.5F), square(red, 0.5F, 0.5F)});
    EXPECT_EQ(at(50, 50), expected);
    // From behind the other one is nearer.
    draw({square(blue, -0.5F, 0.5F), square(red, 0.5F, 0.5F)}, {180, 0, 1});
    EXPECT_EQ(at(50, 50) & 0x00FF0000U, 0U);
    EXPECT_NE(at(50, 50) & 0xFFU, 0U);
}

TEST_F(RasterTest, AFaceSeenFromBehindIsALining) {
    draw({square(kWhite)}, {180, 0, 1});
    EXPECT_EQ(alpha(50, 50), 255U);
    EXPECT_LT(red(50, 50), kLit * 2 / 3);
    EXPECT_GT(red(50, 50), kLit / 3);
    // It may lie before a front, which comes first.
    FigurePart lining = square(kWhite, 0.3F, 0.4F);
    lining.faces = {{0, 2, 1}, {0, 3, 2}};
    draw({square(kWhite), lining});
    EXPECT_EQ(at(20, 20), kLitWhite);
    EXPECT_LT(red(40, 50), kLit * 2 / 3);
    EXPECT_LT(red(60, 55), kLit * 2 / 3);
    // Where a front lies in the same place, it is what is seen, whichever comes first.
    FigurePart both = square(kWhite);
    both.faces = {{0, 2, 1}, {0, 3, 2}, {0, 1, 2}, {0, 2, 3}};
    draw({both});
    for (int i = 15; i < 85; ++i) {
        EXPECT_EQ(at(i, i), kLitWhite) << i;
        EXPECT_EQ(at(i, 99 - i), kLitWhite) << i;
    }
}

// The sim's own left is on the right of the picture, and the picture's left half at the left.
TEST_F(RasterTest, TheTextureReadsTheRightWayRound) {
    draw({square(texture(2, 2, {0x00FF0000, 0x0000FF00, 0x000000FF, 0x00FFFFFF}))});
    // In the middle of each of its pixels there is little of the others.
    const auto isOf = [&](int x, int y, unsigned r, unsigned g, unsigned b) {
        EXPECT_NEAR(at(x, y) >> 16U & 0xFFU, r * kLit, 7) << x << ' ' << y;
        EXPECT_NEAR(at(x, y) >> 8U & 0xFFU, g * kLit, 7) << x << ' ' << y;
        EXPECT_NEAR(at(x, y) & 0xFFU, b * kLit, 7) << x << ' ' << y;
    };
    isOf(29, 29, 1, 0, 0);
    isOf(70, 29, 0, 1, 0);
    isOf(29, 70, 0, 0, 1);
    isOf(70, 70, 1, 1, 1);
}

// The square spans 80.7 pixels; half way between the middles of two pixels both count alike.
TEST_F(RasterTest, ColoursBetweenPixelsAreMixed) {
    draw({square(texture(2, 1, {0x00000000, 0x00FFFFFF}))});
    EXPECT_NEAR(red(50, 50), kLit / 2, 2);
    EXPECT_NEAR(red(40, 50), kLit / 4, 3);
    EXPECT_NEAR(red(60, 50), kLit * 3 / 4, 3);
    EXPECT_NEAR(red(30, 50), 0, 2);
    EXPECT_NEAR(red(70, 50), kLit, 2);
    // It repeats: at its edge the other edge begins.
    EXPECT_NEAR(red(10, 50), kLit / 2, 4);
}

TEST_F(RasterTest, CoordinatesBeyondTheTextureRepeatIt) {
    const auto stripes = texture(4, 1, {0x00000000, 0x00000000, 0x00FFFFFF, 0x00FFFFFF});
    FigurePart once = square(stripes);
    draw({once});
    const std::vector<std::uint32_t> expected = pixels;
    for (FigureVertex& corner : once.vertices) {
        corner.u -= 3;
        corner.v += 2;
    }
    draw({once});
    EXPECT_EQ(pixels, expected);
    for (FigureVertex& corner : once.vertices) {
        corner.u += 2003;
    }
    draw({once});
    EXPECT_NEAR(red(25, 50), 0, 2);
    EXPECT_NEAR(red(75, 50), kLit, 2);
    FigurePart twice = square(stripes);
    for (FigureVertex& corner : twice.vertices) {
        corner.u *= 2;
    }
    draw({twice});
    EXPECT_NEAR(red(20, 50), 0, 2);
    EXPECT_NEAR(red(40, 50), kLit, 2);
    EXPECT_NEAR(red(60, 50), 0, 2);
    EXPECT_NEAR(red(80, 50), kLit, 2);
}

// As a bitmap of two colours may be. Its left half is black, its right half white.
TEST_F(RasterTest, AVeryWideTexture) {
    constexpr int kWide = 1 << 23U;
    std::vector<std::uint32_t> halves(kWide);
    std::fill(halves.begin() + kWide / 2, halves.end(), 0x00FFFFFFU);
    draw({square(texture(kWide, 1, std::move(halves)))});
    EXPECT_EQ(at(30, 50), 0xFF000000U);
    EXPECT_EQ(at(70, 50), kLitWhite);
}

// The middle of a square that is turned away stays in the middle of the picture, though its further
// half takes less room; without regard to distance it would shift, and differently in each
// triangle.
TEST_F(RasterTest, TexturesFollowThePerspective) {
    std::vector<std::uint32_t> halves(64, 0x00000000);
    std::fill(halves.begin() + 32, halves.end(), 0x00FFFFFFU);
    draw({square(texture(64, 1, halves))}, {60, 0, 1});
    for (const int y : {20, 50, 80}) {
        EXPECT_LT(red(48, y), 10U) << y;
        EXPECT_GT(red(51, y), kLit - 10) << y;
    }
}

TEST_F(RasterTest, TurningTheFrontToTheRight) {
    // A small square in front of a large one.
    const auto red = texture(1, 1, {0x00FF0000});
    const auto blue = texture(1, 1, {0x000000FF});
    const auto middleOfRed = [&](const View& view) {
        draw({square(red, 1, 0.2F), square(blue, 0, 1)}, view);
        long long x = 0;
        long long y = 0;
        long long count = 0;
        for (int i = 0; i < kSize * kSize; ++i) {
            if ((pixels[static_cast<std::size_t>(i)] & 0xFFFF0000U) > 0xFF400000U) {
                x += i % kSize;
                y += i / kSize;
                ++count;
            }
        }
        EXPECT_GT(count, 0);
        return std::pair(x / std::max(1LL, count), y / std::max(1LL, count));
    };
    const auto [x, y] = middleOfRed({});
    EXPECT_EQ(x, 49);  // the middle of the pixels 0 to 99, rounded down
    EXPECT_GT(middleOfRed({30, 0, 1}).first, 58);
    EXPECT_LT(middleOfRed({-30, 0, 1}).first, 42);
    // Looked down upon, what is in front comes lower.
    EXPECT_GT(middleOfRed({0, 30, 1}).second, y + 5);
    EXPECT_LT(middleOfRed({0, -30, 1}).second, y - 5);
    EXPECT_EQ(middleOfRed({0, 90, 1}), middleOfRed({0, 30, 1}));
}

TEST_F(RasterTest, TheLightComesFromTheUpperLeft) {
    const auto lit = [&](const Vector& normal) {
        FigurePart part = square(kWhite);
        for (FigureVertex& corner : part.vertices) {
            corner.normal = unit(normal);
        }
        draw({part});
        return red(50, 50);
    };
    EXPECT_GT(lit({-0.35F, 0.5F, 0.79F}), 250U);
    EXPECT_GT(lit({-1, 0, 1}), lit({1, 0, 1}));
    EXPECT_GT(lit({0, 1, 1}), lit({0, -1, 1}));
    // 0.46 of 255 where it doesn't reach.
    EXPECT_EQ(lit({0.35F, -0.5F, -0.79F}), 116U);
}

// Whatever way it faces, the whole figure is in the picture, with a margin that isn't large.
TEST_F(RasterTest, TheWholeFigureIsFramed) {
    FigurePart box{{}, {}, kWhite};
    for (int corner = 0; corner < 8; ++corner) {
        box.vertices.push_back(vertex((corner & 1) != 0 ? 1.0F : -1.0F,
                                      (corner & 2) != 0 ? 5.0F : -1.0F,
                                      (corner & 4) != 0 ? 3.0F : -0.5F));
    }
    box.faces = {{0, 1, 3}, {0, 3, 2}, {4, 5, 7}, {4, 7, 6}, {0, 1, 5}, {0, 5, 4},
                 {2, 3, 7}, {2, 7, 6}, {0, 2, 6}, {0, 6, 4}, {1, 3, 7}, {1, 7, 5}};
    int highest = kSize;
    int widest = kSize;
    for (int yaw = 0; yaw < 360; yaw += 15) {
        for (const int pitch : {-30, 0, 30}) {
            draw({box}, {static_cast<float>(yaw), static_cast<float>(pitch), 1});
            for (int i = 0; i < kSize; ++i) {
                for (const auto& [x, y] :
                     {std::pair{i, 0}, {i, kSize - 1}, {0, i}, {kSize - 1, i}}) {
                    ASSERT_EQ(at(x, y), 0U) << yaw << ' ' << pitch;
                }
            }
            for (int i = 0; i < kSize * kSize; ++i) {
                if (pixels[static_cast<std::size_t>(i)] != 0) {
                    highest = std::min(highest, i / kSize);
                    widest = std::min(widest, i % kSize);
                }
            }
        }
    }
    EXPECT_LE(highest, 6);
    EXPECT_LE(widest, 25);
}

TEST_F(RasterTest, ComingNearerShowsTheChest) {
    FigurePart person = square(texture(1, 4, {0x00FF0000, 0x0000FF00, 0x000000FF, 0x00FFFFFF}));
    for (FigureVertex& corner : person.vertices) {
        corner.position.y *= 3;
    }
    draw({person}, {0, 0, 3});
    const auto covered =
        std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel != 0; });
    EXPECT_GT(covered, kSize * kSize * 8 / 10);
    // The second quarter from above.
    EXPECT_GT(at(50, 45) & 0x0000FF00U, 0x4000U);
    draw({person}, {0, 0, 1000});
    const std::vector<std::uint32_t> nearest = pixels;
    draw({person}, {0, 0, kNearestZoom});
    EXPECT_EQ(pixels, nearest);
    draw({person}, {0, 0, 0.01F});
    const std::vector<std::uint32_t> furthest = pixels;
    draw({person}, {0, 0, 1});
    EXPECT_EQ(pixels, furthest);
}

// A picture follows its figure alone, whatever was drawn before it.
TEST_F(RasterTest, NothingIsLeftOfTheLastPicture) {
    draw({square(kWhite, 0, 0.3F)}, {45, 20, 1});
    const std::vector<std::uint32_t> expected = pixels;
    draw({square(kWhite, 0, 2)});
    raster.draw(makeFigure({square(kWhite)}), {}, 37, 251, 0xFFFFFFFF);
    draw({square(kWhite, 0, 0.3F)}, {45, 20, 1});
    EXPECT_EQ(pixels, expected);
}

TEST_F(RasterTest, PicturesOfAllSizes) {
    const Figure figure = makeFigure({square(kWhite)});
    EXPECT_TRUE(raster.draw(figure, {}, 0, 10).empty());
    EXPECT_TRUE(raster.draw(figure, {}, 10, -1).empty());
    EXPECT_EQ(raster.draw(figure, {}, 1, 1).size(), 1U);
    EXPECT_EQ(raster.draw(figure, {}, 149, 126).size(), 149U * 126U);
    EXPECT_EQ(raster.draw(figure, {}, 3, 2000).size(), 6000U);
}

TEST_F(RasterTest, OddFiguresAndViewsDoNoHarm) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinite = std::numeric_limits<float>::infinity();
    draw({square(kWhite)}, {kNan, kNan, kNan});
    const std::vector<std::uint32_t> front = pixels;
    draw({square(kWhite)});
    EXPECT_EQ(pixels, front);
    draw({square(kWhite)}, {kInfinite, -kInfinite, kInfinite});
    // No area: a point, a line, a sliver, a plane seen from its edge.
    FigurePart flat = square(kWhite, 0, 0);
    draw({flat});
    flat.vertices[1].position.x = 1;
    draw({flat});
    draw({square(kWhite)}, {90, 0, 1});
    FigurePart sliver = square(kWhite);
    sliver.vertices[1].position = {-1, 0.9999F, 0};
    sliver.vertices[0].u = 1000;
    sliver.vertices[2].v = -1000;
    draw({sliver}, {89.99F, 30, 8});
    // As far as a vertex may be.
    FigurePart huge = square(kWhite, 0, 1000);
    huge.vertices[0].position.z = 1000;
    for (int yaw = 0; yaw < 360; yaw += 7) {
        draw({huge, square(kWhite)}, {static_cast<float>(yaw), 30, 8});
    }
}

// Each face as large as the picture: the rest is left out before anybody waits.
TEST_F(RasterTest, TooManyLargeFacesEndInTime) {
    FigurePart part = square(kWhite);
    part.faces.clear();
    for (std::uint32_t i = 0; i < 65536; ++i) {
        part.faces.push_back(i % 2 == 0 ? FigureFace{0, 1, 2} : FigureFace{0, 3, 2});
    }
    const Figure figure = makeFigure({part, part, part, part});
    const auto start = std::chrono::steady_clock::now();
    raster.draw(figure, {0, 0, 8}, 320, 320);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

// Finding out that each of them is hidden takes its time as well.
TEST_F(RasterTest, TooManyHiddenFacesEndInTime) {
    FigurePart lining = square(kWhite, -0.1F, 0.9F);
    lining.faces.assign(65536, {0, 2, 1});
    const Figure figure = makeFigure({square(kWhite), lining, lining, lining, lining});
    const auto start = std::chrono::steady_clock::now();
    pixels = raster.draw(figure, {0, 0, 8}, 1000, 1000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_TRUE(std::all_of(pixels.begin(), pixels.end(),
                            [](std::uint32_t pixel) { return pixel == kLitWhite; }));
}

// One number for the whole picture of a turned and tilted box in a texture of noise. It was noted
// on one system; all others have to come to the same.
TEST_F(RasterTest, ThePixelsAreTheSameOnEverySystem) {
    std::vector<std::uint32_t> noise(64 * 64);
    std::uint32_t state = 1;
    for (std::uint32_t& pixel : noise) {
        state = state * 1664525 + 1013904223;
        pixel = state >> 8U;
    }
    FigurePart ball{{}, {}, texture(64, 64, noise)};
    constexpr std::uint32_t kRings = 12;
    for (std::uint32_t ring = 0; ring <= kRings; ++ring) {
        for (std::uint32_t step = 0; step <= kRings; ++step) {
            const float down = 180.0F * static_cast<float>(ring) / kRings;
            const float round = 360.0F * static_cast<float>(step) / kRings;
            const Vector place{sineOf(down) * sineOf(round), cosineOf(down),
                               sineOf(down) * cosineOf(round)};
            ball.vertices.push_back({place, place, static_cast<float>(step) / kRings,
                                     static_cast<float>(ring) / kRings});
            if (ring < kRings && step < kRings) {
                const std::uint32_t first = ring * (kRings + 1) + step;
                ball.faces.push_back({first, first + 1, first + kRings + 1});
                ball.faces.push_back({first + 1, first + kRings + 2, first + kRings + 1});
            }
        }
    }
    draw({ball}, {37, -11, 1.3F}, 0xFF204060);
    std::uint32_t sum = 2166136261U;
    for (const std::uint32_t pixel : pixels) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            sum = (sum ^ (pixel >> shift & 0xFFU)) * 16777619U;
        }
    }
    EXPECT_EQ(sum, 3786585722U);
}

}  // namespace
}  // namespace marlowick
