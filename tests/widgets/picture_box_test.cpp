#include "widgets/picture_box.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include "support/error_recorder.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

constexpr int kBorder = 2;

class PictureBoxTest : public ::testing::Test {
  protected:
    PictureBoxTest() { box.resize(104, 54); }

    // What a person sees, border and all.
    QImage look() { return box.grab().toImage(); }
    // A pixel of the page.
    QRgb at(int x, int y) { return look().pixel(kBorder + x, kBorder + y); }

    PictureBox box;
};

TEST_F(PictureBoxTest, TheFirstPixelLiesInsideTheBorder) {
    const QImage blank = look();
    box.fill({0, 0, 100, 50}, Qt::red);
    const QImage filled = look();
    for (int y = 0; y < 54; ++y) {
        for (int x = 0; x < 104; ++x) {
            const bool onPage = QRect(kBorder, kBorder, 100, 50).contains(x, y);
            ASSERT_EQ(filled.pixel(x, y), onPage ? 0xFFFF0000U : blank.pixel(x, y))
                << x << "," << y;
        }
    }
    EXPECT_EQ(box.painted().size(), QSize(100, 50));
}

TEST_F(PictureBoxTest, NothingIsPaintedOverTheBorder) {
    const QImage blank = look();
    box.fill({-5, -5, 200, 200}, Qt::red);
    box.outline({-1, -1, 102, 52}, Qt::white);
    const QImage filled = look();
    for (int x = 0; x < 104; ++x) {
        EXPECT_EQ(filled.pixel(x, 1), blank.pixel(x, 1)) << x;
        EXPECT_EQ(filled.pixel(x, 52), blank.pixel(x, 52)) << x;
    }
}

TEST_F(PictureBoxTest, APictureOfThePagesSizeIsShownWhole) {
    QImage picture(100, 50, QImage::Format_RGB32);
    picture.fill(Qt::red);
    box.setPicture(picture);
    for (const QPoint corner : {QPoint(0, 0), QPoint(99, 0), QPoint(0, 49), QPoint(99, 49)}) {
        EXPECT_EQ(at(corner.x(), corner.y()), 0xFFFF0000U);
    }
}

TEST_F(PictureBoxTest, AnOutlineIsDrawnOnceAndRemovedWhole) {
    const QImage blank = look();
    const QRect square(10, 10, 20, 20);
    box.outline(square, Qt::white);
    box.outline(square, Qt::blue);
    EXPECT_EQ(at(10, 10), 0xFF0000FFU);
    EXPECT_EQ(at(29, 10), 0xFF0000FFU);
    EXPECT_EQ(at(10, 29), 0xFF0000FFU);
    EXPECT_EQ(at(29, 29), 0xFF0000FFU);
    EXPECT_NE(at(11, 11), 0xFF0000FFU);
    EXPECT_NE(at(30, 10), 0xFF0000FFU);
    EXPECT_EQ(box.outlineAt(square), QColor(Qt::blue));
    box.removeOutline(square);
    EXPECT_TRUE(look() == blank);
    EXPECT_FALSE(box.outlineAt(square).isValid());
    box.removeOutline(square);
    EXPECT_TRUE(box.painted().isNull());
}

// The colour of the ground is a colour like any other.
TEST_F(PictureBoxTest, AnOutlineInTheColourOfTheGroundIsDrawn) {
    const QColor ground = box.palette().color(QPalette::Button);
    box.fill({0, 0, 100, 50}, Qt::red);
    box.outline({10, 10, 20, 20}, ground);
    EXPECT_EQ(at(10, 10), ground.rgb());
    box.removeOutline({10, 10, 20, 20});
    EXPECT_EQ(at(10, 10), 0xFFFF0000U);
}

TEST_F(PictureBoxTest, APressCountsFromTheFirstPixelAndNotOnTheBorder) {
    const QSignalSpy presses(&box, &PictureBox::mouseDown);
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, {kBorder, kBorder});
    ASSERT_EQ(presses.size(), 1);
    EXPECT_EQ(presses[0][0].toPoint(), QPoint(0, 0));
    QTest::mouseClick(&box, Qt::RightButton, Qt::NoModifier, {101, 51});
    ASSERT_EQ(presses.size(), 2);
    EXPECT_EQ(presses[1][0].toPoint(), QPoint(99, 49));
    for (const QPoint edge : {QPoint(1, 20), QPoint(102, 20), QPoint(20, 1), QPoint(20, 52)}) {
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, edge);
    }
    EXPECT_EQ(presses.size(), 2);
}

TEST_F(PictureBoxTest, ADoubleClickOnTheBorderIsNone) {
    const QSignalSpy presses(&box, &PictureBox::mouseDown);
    const QSignalSpy doubles(&box, &PictureBox::doubleClicked);
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, {20, kBorder});
    QTest::mouseDClick(&box, Qt::LeftButton, Qt::NoModifier, {20, 1});
    EXPECT_EQ(doubles.size(), 0);
    QTest::mouseDClick(&box, Qt::LeftButton, Qt::NoModifier, {20, kBorder});
    EXPECT_EQ(doubles.size(), 1);
    EXPECT_EQ(presses.size(), 1);
}

TEST_F(PictureBoxTest, MovesCountOnTheBorderAndBeyondIt) {
    QSignalSpy moves(&box, &PictureBox::mouseMoved);
    const auto moveTo = [&](QPoint position, Qt::MouseButtons held) {
        moves.clear();
        QMouseEvent move(QEvent::MouseMove, position, position, Qt::NoButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &move);
        return moves.isEmpty() ? QPoint(12345, 0) : moves[0][0].toPoint();
    };
    EXPECT_EQ(moveTo({12, 22}, Qt::NoButton), QPoint(10, 20));
    EXPECT_EQ(moveTo({-6, 22}, Qt::LeftButton), QPoint(-8, 20));
    EXPECT_EQ(moveTo({1, 22}, Qt::NoButton), QPoint(-1, 20));
}

TEST_F(PictureBoxTest, WhatIsLaidOverItBeginsAtTheSamePixel) {
    EXPECT_EQ(box.origin(), QPoint(kBorder, kBorder));
}

TEST_F(PictureBoxTest, TheTextOfAnEmptyBoxGoesWithTheFirstPainting) {
    const QImage blank = look();
    box.setEmptyText("Nothing");
    EXPECT_EQ(box.accessibleDescription(), "Nothing");
    const QImage text = look();
    EXPECT_FALSE(text == blank);
    box.fill({0, 0, 1, 1}, box.palette().color(QPalette::Button));
    EXPECT_TRUE(look() == blank);
    box.clear();
    EXPECT_TRUE(look() == text);
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(box.palette().color(QPalette::Button));
    box.setPicture(picture);
    EXPECT_TRUE(look() == blank);
}

TEST_F(PictureBoxTest, OnlyAWholeBitmapIsLoaded) {
    const test::TestFolder folder;
    const std::string bitmap = test::bitmapFile(3, 2, 0xFF0000);
    folder.write("game/a.bmp", bitmap + "what is left of another");
    folder.write("game/cut.bmp", bitmap.substr(0, 60));
    box.load(folder.path("game\\a.bmp"));
    EXPECT_EQ(box.picture().size(), QSize(3, 2));
    EXPECT_EQ(box.picture().pixel(2, 0), 0xFFFF0000U);
    EXPECT_EQ(test::errorOf([&] { box.load(folder.path("game\\cut.bmp")); }), 481);
    EXPECT_EQ(test::errorOf([&] { box.load(folder.path("game\\a.bmp"), 60); }), 481);
    EXPECT_EQ(test::errorOf([&] { box.load(folder.path("game\\none.bmp")); }), 53);
    EXPECT_EQ(box.picture().size(), QSize(3, 2));
    box.load(Path());
    EXPECT_TRUE(box.picture().isNull());
}

}  // namespace
}  // namespace marlowick
