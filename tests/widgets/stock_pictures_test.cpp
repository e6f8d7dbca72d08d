#include "widgets/stock_pictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

namespace marlowick {
namespace {

const QString kWords = "The bitmap can not be displayed.\n\nIt was not found.";
const QString kShort = "Bitmap can not be displayed";

QImage drawn(QSize size, const QImage& image) {
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::red);
    QPainter painter(&page);
    drawPicture(painter, page.rect(), image);
    return page;
}

TEST(StockPicturesTest, ACardShowsItsWordsWhereTheyFit) {
    const CardText large = fittedText({256, 256}, kWords, 16, kShort);
    EXPECT_EQ(large.words, kWords);
    EXPECT_EQ(large.pixelSize, 16);
    const CardText smaller = fittedText({140, 110}, kWords, 16, kShort);
    EXPECT_EQ(smaller.words, kWords);
    EXPECT_LT(smaller.pixelSize, 16);
}

TEST(StockPicturesTest, ASmallCardShowsShortWordsInLettersThatCanBeRead) {
    const CardText text = fittedText({64, 64}, kWords, 16, kShort);
    EXPECT_EQ(text.words, kShort);
    EXPECT_GE(text.pixelSize, 9);
    QFont font = QApplication::font();
    font.setPixelSize(text.pixelSize);
    const QRect needed = QFontMetrics(font).boundingRect(
        QRect(0, 0, 64 - text.pixelSize, 60), Qt::AlignCenter | Qt::TextWordWrap, text.words);
    EXPECT_LE(needed.width(), 60);
    EXPECT_LE(needed.height(), 60);
}

TEST(StockPicturesTest, WithoutRoomTheShortWordsStayReadableAndAreCut) {
    const CardText text = fittedText({10, 10}, kWords, 16, kShort);
    EXPECT_EQ(text.words, kShort);
    EXPECT_EQ(text.pixelSize, 9);
    EXPECT_EQ(fittedText({10, 10}, kWords, 16, {}).words, kWords);
}

TEST(StockPicturesTest, ACardInAnotherSizeIsLaidOutAnew) {
    const QImage card = wordCard({256, 256}, kWords, 16, kShort);
    const int letters = fittedText({64, 64}, kWords, 16, kShort).pixelSize;
    EXPECT_TRUE(drawn({64, 64}, card) == wordCard({64, 64}, kShort, letters));
    EXPECT_TRUE(drawn({256, 256}, card) == card);
    EXPECT_TRUE(drawn({64, 64}, questionCard({45, 45})) == questionCard({64, 64}));
    EXPECT_TRUE(drawn({64, 64}, brokenFileCard({45, 45})) == brokenFileCard({64, 64}));
}

TEST(StockPicturesTest, ACopyOfACardIsACardAndEqualToIt) {
    const QImage card = questionCard({45, 45});
    QImage copy = card;
    EXPECT_EQ(copy, card);
    EXPECT_TRUE(drawn({90, 90}, copy) == questionCard({90, 90}));
}

TEST(StockPicturesTest, OtherPicturesAreScaledAsTheyAre) {
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, 0xFF112233);
    image.setPixel(1, 0, 0xFF445566);
    const QImage page = drawn({8, 4}, image);
    EXPECT_EQ(page.pixel(3, 3), 0xFF112233U);
    EXPECT_EQ(page.pixel(4, 0), 0xFF445566U);
}

TEST(StockPicturesTest, TheThreeCardsDiffer) {
    EXPECT_FALSE(questionCard({45, 45}) == brokenFileCard({45, 45}));
    EXPECT_FALSE(questionCard({45, 45}) == wordCard({45, 45}, "?", 16));
}

}  // namespace
}  // namespace marlowick
