// The control that shows a figure, under mouse and keys.
#include "preview/worn_view.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>
#include <limits>

#include "support/worn_game.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

using test::ColourSeen;

constexpr int kSize = 200;

std::shared_ptr<const Texture> oneColour(std::uint32_t rgb) {
    return std::make_shared<const Texture>(Texture{1, 1, {rgb}});
}

// A board that faces the front: right and left are its own.
FigurePart board(float right, float left, std::uint32_t rgb) {
    const auto at = [](float x, float y) { return FigureVertex{{x, y, 0}, {0, 0, 1}, 0, 0}; };
    return {{at(right, 4), at(left, 4), at(left, 0), at(right, 0)},
            {{0, 1, 2}, {0, 2, 3}},
            oneColour(rgb)};
}

// Blue, with a red left arm.
std::shared_ptr<const Figure> armedFigure() {
    return std::make_shared<const Figure>(
        makeFigure({board(-1, 1, 0x2040E0), board(1.2F, 1.8F, 0xE02020)}));
}

class WornViewTest : public ::testing::Test {
  protected:
    WornViewTest() {
        view.resize(kSize, kSize);
        view.setFigure(armedFigure(), "Normal outfit worn");
        view.show();
    }

    void drag(QPoint from, QPoint way, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&view, button, Qt::NoModifier, from);
        for (int step = 1; step <= 4; ++step) {
            const QPoint place = from + way * step / 4;
            QMouseEvent move(QEvent::MouseMove, place, view.mapToGlobal(place), Qt::NoButton,
                             button, Qt::NoModifier);
            QApplication::sendEvent(&view, &move);
        }
        QTest::mouseRelease(&view, button, Qt::NoModifier, from + way);
    }
    void wheel(int delta) {
        const QPointF middle(kSize / 2, kSize / 2);
        QWheelEvent event(middle, view.mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }

    WornView view;
};

TEST_F(WornViewTest, ARedLeftArmIsAtTheRightFromTheFrontAndAtTheLeftFromBehind) {
    const ColourSeen front = test::redSeen(view);
    EXPECT_GT(front.right, 500);
    EXPECT_EQ(front.left, 0);
    EXPECT_GT(test::blueSeen(view).all(), 2000);
    for (int i = 0; i < 12; ++i) {
        QTest::keyClick(&view, Qt::Key_Right);
    }
    EXPECT_FLOAT_EQ(view.view().yaw, 180);
    const ColourSeen behind = test::redSeen(view);
    EXPECT_GT(behind.left, 300);
    EXPECT_EQ(behind.right, 0);
}

TEST_F(WornViewTest, DraggingRightTurnsTheFrontToTheRight) {
    drag({100, 100}, {50, 0});
    // A quarter of the width is a quarter of half a turn.
    EXPECT_FLOAT_EQ(view.view().yaw, 45);
    EXPECT_FLOAT_EQ(view.view().pitch, 0);
    // The left arm, which is at the right, moves away: the front looks to the right.
    const int arm = test::redSeen(view).right;
    drag({100, 100}, {-100, 0});
    EXPECT_FLOAT_EQ(view.view().yaw, 315);
    EXPECT_GT(test::redSeen(view).right, arm);
}

TEST_F(WornViewTest, DraggingUpAndDownEndsAtThirtyDegrees) {
    drag({100, 10}, {0, 20});
    EXPECT_FLOAT_EQ(view.view().pitch, 18);
    drag({100, 10}, {0, 180});
    EXPECT_FLOAT_EQ(view.view().pitch, 30);
    drag({100, 190}, {0, -180});
    EXPECT_FLOAT_EQ(view.view().pitch, -30);
    EXPECT_FLOAT_EQ(view.view().yaw, 0);
}

TEST_F(WornViewTest, OnlyTheLeftButtonAndOnlyWhileItIsHeldTurns) {
    drag({100, 100}, {50, 20}, Qt::RightButton);
    EXPECT_FLOAT_EQ(view.view().yaw, 0);
    QMouseEvent move(QEvent::MouseMove, QPointF(150, 100), QPointF(150, 100), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &move);
    EXPECT_FLOAT_EQ(view.view().yaw, 0);
}

TEST_F(WornViewTest, WheelPlusAndMinusComeNearer) {
    const int whole = test::blueSeen(view).all();
    wheel(120);
    EXPECT_FLOAT_EQ(view.view().zoom, 1.2F);
    EXPECT_GT(test::blueSeen(view).all(), whole);
    wheel(-120);
    EXPECT_FLOAT_EQ(view.view().zoom, 1);
    wheel(-1200);
    EXPECT_FLOAT_EQ(view.view().zoom, 1);
    QTest::keyClick(&view, Qt::Key_Plus);
    EXPECT_FLOAT_EQ(view.view().zoom, 1.2F);
    QTest::keyClick(&view, Qt::Key_Equal);
    EXPECT_FLOAT_EQ(view.view().zoom, 1.44F);
    QTest::keyClick(&view, Qt::Key_Minus);
    EXPECT_FLOAT_EQ(view.view().zoom, 1.2F);
    wheel(120 * 1000);
    EXPECT_FLOAT_EQ(view.view().zoom, kNearestZoom);
}

TEST_F(WornViewTest, ArrowsTurnByFifteenDegrees) {
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_FLOAT_EQ(view.view().yaw, 15);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_FLOAT_EQ(view.view().yaw, 345);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_FLOAT_EQ(view.view().pitch, 15);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_FLOAT_EQ(view.view().pitch, -15);
}

TEST_F(WornViewTest, ADoubleClickAndHomeFaceFront) {
    const auto isFront = [&] {
        return view.view().yaw == 0 && view.view().pitch == 0 && view.view().zoom == 1;
    };
    drag({100, 100}, {50, 10});
    wheel(240);
    EXPECT_FALSE(isFront());
    QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, {100, 100});
    EXPECT_TRUE(isFront());
    drag({100, 100}, {50, 10});
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_TRUE(isFront());
}

TEST_F(WornViewTest, OtherKeysAreLeftToTheWindow) {
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&view, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST_F(WornViewTest, TheNameTellsInWordsWhatIsShown) {
    EXPECT_EQ(view.accessibleName(), "Normal outfit worn, seen from the front");
    struct Seen {
        int turns;
        const char* from;
    };
    for (const Seen& row : {Seen{3, "from the front and its right"}, Seen{3, "from its right"},
                            Seen{3, "from behind and its right"}, Seen{3, "from behind"},
                            Seen{3, "from behind and its left"}, Seen{3, "from its left"},
                            Seen{3, "from the front and its left"}, Seen{2, "from the front"}}) {
        for (int i = 0; i < row.turns; ++i) {
            QTest::keyClick(&view, Qt::Key_Right);
        }
        EXPECT_EQ(view.accessibleName(), QString("Normal outfit worn, seen ") + row.from);
    }
    view.setFigure(nullptr, "No figure");
    EXPECT_EQ(view.accessibleName(), "No figure");
}

TEST_F(WornViewTest, AnotherFigureIsSeenFromTheSamePlace) {
    drag({100, 100}, {50, 10});
    wheel(120);
    const View before = view.view();
    view.setFigure(armedFigure(), "other clothes");
    EXPECT_EQ(view.view().yaw, before.yaw);
    EXPECT_EQ(view.view().pitch, before.pitch);
    EXPECT_EQ(view.view().zoom, before.zoom);
}

TEST_F(WornViewTest, IsDrawnAtTheScaleOfTheScreen) {
    const QImage image = view.grab().toImage();
    const qreal scale = view.devicePixelRatio();
    const QRect inside = view.contentsRect();
    const int width = qCeil(inside.width() * scale);
    const int height = qCeil(inside.height() * scale);
    const QPoint corner(qRound(inside.x() * scale), qRound(inside.y() * scale));
    // Each pixel of the screen is one of the drawing; nothing is scaled.
    Raster raster;
    const std::vector<std::uint32_t>& drawn = raster.draw(*view.figure(), {}, width, height);
    int compared = 0;
    for (int i = 0; i < width * height; ++i) {
        const std::uint32_t pixel = drawn[static_cast<std::size_t>(i)];
        if (pixel >> 24U == 255) {
            ASSERT_EQ(image.pixel(corner + QPoint(i % width, i / width)), pixel) << i;
            ++compared;
        }
    }
    EXPECT_GT(compared, width * height / 4);
}

TEST_F(WornViewTest, CoversAControlOfAnySize) {
    QWidget window;
    window.resize(500, 400);
    QWidget flat(&window);
    flat.resize(100, 120);
    view.cover(flat);
    EXPECT_EQ(view.parentWidget(), &flat);
    EXPECT_EQ(view.geometry(), QRect(0, 0, 100, 120));
    window.show();
    flat.resize(130, 90);
    EXPECT_EQ(view.geometry(), QRect(0, 0, 130, 90));
    QWidget other(&window);
    other.resize(50, 60);
    view.cover(other);
    flat.resize(200, 200);
    EXPECT_EQ(view.geometry(), QRect(0, 0, 50, 60));
    view.setParent(nullptr);
}

TEST_F(WornViewTest, WhatCantBeDrawnDoesNoHarm) {
    view.setFigure(nullptr, {});
    view.grab();
    view.setFigure(std::make_shared<const Figure>(), {});
    view.grab();
    view.resize(0, 0);
    view.grab();
    view.setFigure(armedFigure(), {});
    view.resize(1, 1);
    view.grab();
    view.resize(kSize, kSize);
    EXPECT_GT(test::redSeen(view).right, 500);
}

TEST(TextureTest, IsTheImage) {
    QImage image(2, 2, QImage::Format_RGB888);
    image.setPixel(0, 0, 0xFF010203);
    image.setPixel(1, 0, 0xFF040506);
    image.setPixel(0, 1, 0xFF070809);
    image.setPixel(1, 1, 0xFF0A0B0C);
    const auto texture = textureOf(image);
    ASSERT_TRUE(texture);
    EXPECT_EQ(texture->width, 2);
    EXPECT_EQ(texture->height, 2);
    std::vector<std::uint32_t> colours;
    for (const std::uint32_t pixel : texture->pixels) {
        colours.push_back(pixel & 0xFFFFFFU);
    }
    EXPECT_EQ(colours, (std::vector<std::uint32_t>{0x010203, 0x040506, 0x070809, 0x0A0B0C}));
    EXPECT_FALSE(textureOf(QImage()));
}

TEST(TextureTest, BytesAreDecodedAsAPictureBoxDoes) {
    const std::string bitmap = test::bitmapFile(5, 3, 0x123456);
    const auto texture = decodeTexture(bitmap + "more");
    ASSERT_TRUE(texture);
    EXPECT_EQ(texture->width, 5);
    EXPECT_EQ(texture->height, 3);
    EXPECT_EQ(texture->pixels.at(14) & 0xFFFFFFU, 0x123456U);
    // A bitmap that lacks a part of its last row, and what is none.
    EXPECT_THROW(decodeTexture(bitmap.substr(0, bitmap.size() - 8)), RuntimeError);
    EXPECT_THROW(decodeTexture("GIF89a"), RuntimeError);
    EXPECT_THROW(decodeTexture(""), RuntimeError);
}

TEST(WornWordsTest, TellClothesAndPieces) {
    const Worn sim{"adult", {"b001fafit_01", "b001fafitlgt_01"}, {}, {}, {}};
    Scene scene;
    EXPECT_EQ(wornWords(sim, scene),
              "body b001fafit_01, skin b001fafitlgt_01, without head and hands");
    scene.hasLeftHand = true;
    EXPECT_EQ(wornWords(sim, scene).section(", ", 2), "with left hand");
    scene.hasRightHand = true;
    EXPECT_EQ(wornWords(sim, scene).section(", ", 2), "with hands");
    scene.hasHead = true;
    EXPECT_EQ(wornWords(sim, scene).section(", ", 2), "with head and hands");
    EXPECT_EQ(wornWords({"dog", {"b001dog_01", "coat"}, {}, {}, {}}, Scene()),
              "body b001dog_01, skin coat");
}

}  // namespace
}  // namespace marlowick
