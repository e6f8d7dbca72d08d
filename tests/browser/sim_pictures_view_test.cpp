#include "browser/sim_pictures_view.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"

namespace marlowick {
namespace {

IffFile fileWith(const std::vector<std::pair<std::string, std::string>>& pictures) {
    IffFile iff;
    for (const auto& [label, data] : pictures) {
        IffSegment segment;
        segment.Type = "BMP_";
        segment.Label = label;
        segment.Data = data;
        iff.Segments.append(segment);
    }
    return iff;
}

QImage whiteCard() {
    QImage card(45, 45, QImage::Format_RGB32);
    card.fill(Qt::white);
    return card;
}

class SimPicturesViewTest : public ::testing::Test {
  protected:
    SimPicturesViewTest() { box.resize(261, 261); }
    unsigned colourAt(int y) const { return box.painted().pixel(5, y) & 0xFFFFFFU; }

    test::TestFolder folder;
    SimPicturesView box;
    PictureBox load;
};

TEST_F(SimPicturesViewTest, TheThreePicturesStandOneBelowTheOther) {
    box.showPictures(fileWith({{"web_image", test::bitmapFile(45, 45, 0xFF0000)},
                               {"faces", test::bitmapFile(60, 60, 0x00FF00)},
                               {"relimages", test::bitmapFile(60, 60, 0x0000FF)}}),
                     load, whiteCard());
    EXPECT_EQ(colourAt(10), 0xFF0000U);
    EXPECT_EQ(colourAt(70), 0x00FF00U);
    EXPECT_EQ(colourAt(134), 0x0000FFU);
}

TEST_F(SimPicturesViewTest, AMissingOrBrokenPictureIsTheStockPictureAndNoOlderOne) {
    folder.write("program/FACES.bmp", test::bitmapFile(60, 60, 0x00FF00));
    box.showPictures(
        fileWith({{"web_image", test::bitmapFile(45, 45, 0xFF0000)}, {"relimages", "no picture"}}),
        load, whiteCard());
    EXPECT_EQ(colourAt(10), 0xFF0000U);
    EXPECT_EQ(colourAt(70), 0xFFFFFFU);
    EXPECT_EQ(colourAt(134), 0xFFFFFFU);
}

TEST_F(SimPicturesViewTest, WhatIsWrongWithAFileIsPrintedAndTold) {
    box.showUnreadable(whiteCard(), {"The selected sim file", "can not be loaded.", "Error <5>"});
    EXPECT_EQ(colourAt(10), 0xFFFFFFU);
    EXPECT_TRUE(box.toolTip().contains("Error"));
    const QImage printed = box.painted();
    int inked = 0;
    for (int x = 0; x < printed.width(); ++x) {
        for (int y = 48; y < 84; ++y) {
            inked += qAlpha(printed.pixel(x, y)) > 0 ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 100);
    box.clearSim();
    EXPECT_TRUE(box.painted().isNull());
    EXPECT_EQ(box.toolTip(), "");
}

}  // namespace
}  // namespace marlowick
