// The sims and pets of the sample game as they are worn.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <algorithm>
#include <set>

#include "browser/neighbourhoods.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "preview/raster.h"
#include "preview/scene.h"
#include "support/test_folder.h"
#include "system/files.h"

namespace marlowick {
namespace {

constexpr int kSize = 200;

// White, with a large F where a shirt is drawn; a child's is further down.
Texture letter(int down) {
    Texture texture{100, 100, std::vector<std::uint32_t>(100 * 100, 0x00FFFFFF)};
    const auto fill = [&](int left, int top, int right, int bottom) {
        for (int y = top + down; y < bottom + down; ++y) {
            std::fill_n(texture.pixels.begin() + y * 100 + left, right - left, 0U);
        }
    };
    fill(44, 38, 47, 58);
    fill(47, 38, 57, 42);
    fill(47, 46, 54, 49);
    return texture;
}

std::optional<Texture> decode(const std::string& bytes) {
    const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                          static_cast<int>(bytes.size()))
                             .convertToFormat(QImage::Format_RGB32);
    if (image.isNull()) {
        return std::nullopt;
    }
    Texture texture{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        texture.pixels.insert(texture.pixels.end(), line, line + image.width());
    }
    return texture;
}

StrSegment wardrobeOf(const Path& file) {
    IffFile iff;
    gsResetIFF(iff);
    StrSegment strings;
    if (gfstrQuickReadIFF(iff, file).empty()) {
        readWardrobeTable(iff, strings);
    }
    return strings;
}

// Faces are clockwise seen from outside: what would be their own direction leads against their
// normals. At a sharp edge, where those are of several faces, a face may be an exception.
void expectOutsideOut(const Figure& figure) {
    for (const FigurePart& part : figure.parts) {
        std::size_t odd = 0;
        for (const auto& [a, b, c] : part.faces) {
            const FigureVertex& first = part.vertices[a];
            const FigureVertex& second = part.vertices[b];
            const FigureVertex& third = part.vertices[c];
            odd += dot(cross(second.position - first.position, third.position - first.position),
                       first.normal + second.normal + third.normal) > 0
                       ? 1
                       : 0;
        }
        ASSERT_LE(odd * 50, part.faces.size());
    }
}

class WornSimsTest : public ::testing::Test {
  protected:
    WornSimsTest() {
        const QString game = QString::fromStdString(folder.game().string());
        EXPECT_EQ(QProcess::execute(MAKE_SAMPLE_GAME, {game, "--skins", "1", "--sims", "36",
                                                       "--archive-entries", "2"}),
                  0);
    }

    void expectAllWorn();
    void expectNeck(const Worn& worn);
    void expectLetter(const std::string& kind, const std::string& suit);
    void expectBrokenBodies();

    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * kSize + x)]; }
    void draw(const Scene& scene, float yaw) {
        pixels = raster.draw(*scene.figure, {yaw, 0, 1}, kSize, kSize);
    }

    test::TestFolder folder;
    Raster raster;
    std::vector<std::uint32_t> pixels;
    std::set<std::string> bodies;  // what was worn
};

// From the head to the belt a figure hangs together: some way straight down leads through no hole,
// and the head reaches up to where such a way begins.
void WornSimsTest::expectNeck(const Worn& worn) {
    const Scene scene = makeScene(worn, {}, decode);
    for (const float yaw : {0.0F, 90.0F, 180.0F}) {
        draw(scene, yaw);
        int waysDown = 0;
        for (int x = 0; x < kSize; ++x) {
            int y = kSize / 10;
            while (y < kSize * 6 / 10 && at(x, y) >> 24U == 255U) {
                ++y;
            }
            waysDown += y == kSize * 6 / 10 ? 1 : 0;
        }
        EXPECT_GE(waysDown, 4) << worn.body.suit << ' ' << yaw;
    }
}

void WornSimsTest::expectAllWorn() {
    int outfits = 0;
    for (const char* neighbourhood : {"UserData", "UserData2"}) {
        const List<std::string> sims = findSimFiles(neighbourhood);
        for (int i = 1; i <= sims.bound(); ++i) {
            const StrSegment rows = wardrobeOf(charactersFolder(neighbourhood).child(sims[i]));
            const std::optional<Worn> normal = normalClothes(rows);
            if (!normal) {
                EXPECT_EQ(rows.Entries.bound(), 0) << sims[i];  // a damaged file
                continue;
            }
            const bool isPet = isPetKind(normal->kind);
            for (const int row : {2, 16, 17, 28, 31, 32, 33, 34, 35}) {
                if (row > rows.Entries.bound() || (isPet && row != 2)) {
                    continue;
                }
                Worn worn = *normal;
                const std::string& text = rows.Entries[row].Text;
                const auto body = clothes(splitRow(text.substr(0, text.find(';'))), normal->body);
                if (!body || text == "game row" || body->suit == "s777fafit_lost") {
                    continue;
                }
                worn.body = *body;
                const Scene scene = makeScene(worn, {}, decode);
                ASSERT_TRUE(scene.figure) << sims[i] << ": " << text;
                EXPECT_EQ(scene.hasHead && scene.hasLeftHand && scene.hasRightHand, !isPet)
                    << sims[i] << ": " << text;
                expectOutsideOut(*scene.figure);
                ++outfits;
                if (bodies.insert(body->suit).second && !isPet) {
                    expectNeck(worn);
                }
            }
        }
    }
    EXPECT_GT(outfits, 200);
    EXPECT_GT(bodies.size(), 60U);
}

// The letter is dark on white: its upright is at the left, its arms lead to the right, the upper
// one further than the lower one.
void WornSimsTest::expectLetter(const std::string& kind, const std::string& suit) {
    const Worn worn{kind, {suit, "none"}, {}, {}, {}};
    const Scene scene =
        makeScene(worn, std::make_shared<const Texture>(letter(kind == "adult" ? 0 : 10)), decode);
    ASSERT_TRUE(scene.figure) << suit;
    draw(scene, 0);
    const auto isDark = [&](int x, int y) {
        return at(x, y) >> 24U == 255 && (at(x, y) & 0xFFU) < 0x40;
    };
    int left = kSize;
    int right = 0;
    int top = kSize;
    int bottom = 0;
    for (int i = 0; i < kSize * kSize; ++i) {
        if (isDark(i % kSize, i / kSize)) {
            left = std::min(left, i % kSize);
            right = std::max(right, i % kSize);
            top = std::min(top, i / kSize);
            bottom = std::max(bottom, i / kSize);
        }
    }
    ASSERT_LT(left + 4, right) << suit;
    ASSERT_LT(top + 8, bottom) << suit;
    const auto darkInColumn = [&](int x) {
        int count = 0;
        for (int y = top; y <= bottom; ++y) {
            count += isDark(x, y) ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(darkInColumn(left + 1), (bottom - top) * 8 / 10) << suit;
    EXPECT_LT(darkInColumn(right - 1), (bottom - top) / 2) << suit;
    const auto darkInRow = [&](int y) {
        int count = 0;
        for (int x = left; x <= right; ++x) {
            count += isDark(x, y) ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(darkInRow(top + 1), (right - left) * 8 / 10) << suit;
    EXPECT_LT(darkInRow(bottom - 1), (right - left) * 5 / 10) << suit;
    EXPECT_LT((top + bottom) / 2, kSize * 6 / 10) << suit;
    draw(scene, 180);
    for (int i = 0; i < kSize * kSize; ++i) {
        ASSERT_FALSE(isDark(i % kSize, i / kSize)) << suit;
    }
}

void WornSimsTest::expectBrokenBodies() {
    for (const char* model : {"b303fafit", "b304mafit"}) {
        const std::string name = model;
        const std::string variant = name == "b303fafit" ? "_torn" : "_tangled";
        const Scene scene = makeScene(
            Worn{"adult", {name + variant, name + "lgt" + variant}, {}, {}, {}}, {}, decode);
        EXPECT_FALSE(scene.figure) << name;
        EXPECT_EQ(scene.why, NoFigure::NoBody) << name;
    }
}

// The making of the game takes most of the time, so one serves all.
TEST_F(WornSimsTest, EverySimChildAndPetIsSeenWorn) {
    expectAllWorn();
    expectLetter("adult", "b001fafit_01");
    expectLetter("adult", "b301mafat_loose");
    expectLetter("child", "b001mcchd_01");
    expectBrokenBodies();
}

}  // namespace
}  // namespace marlowick
