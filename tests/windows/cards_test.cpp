// The cards that stand in for pictures, as they are seen in the windows. CMakeLists.txt runs these
// tests on finer screens too.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QTabWidget>
#include <algorithm>
#include <cstdlib>

#include "browser/frmMain.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "wardrobe/frmEditSim.h"
#include "widgets/picture_box.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

using test::find;

// How much two pixels side by side differ at most, from 0 to 255: letters and lines that are drawn
// for the screen have steep edges, enlarged or shrunken ones don't.
int steepestEdge(const QImage& image) {
    int steepest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 1; x < image.width(); ++x) {
            steepest = std::max(steepest,
                                std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(x - 1, y))));
        }
    }
    return steepest;
}

// What lies between a card's edges.
QImage inside(PictureBox* box) {
    return box->grab(box->rect().adjusted(4, 4, -4, -4))
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

// Whether an image is one of half the size with each pixel repeated.
bool isEnlarged(const QImage& image) {
    for (int y = 0; y + 1 < image.height(); y += 2) {
        for (int x = 0; x + 1 < image.width(); x += 2) {
            const QRgb pixel = image.pixel(x, y);
            if (image.pixel(x + 1, y) != pixel || image.pixel(x, y + 1) != pixel ||
                image.pixel(x + 1, y + 1) != pixel) {
                return false;
            }
        }
    }
    return true;
}

class CardsTest : public test::WindowTest {};

TEST_F(CardsTest, ASkinThatIsNowhereShowsItsCardSharpAndInItsHandsReadable) {
    folder.write("game/UserData/Characters/user00001.iff", test::simFile(test::simRows({})));
    auto& editor = theWindow<frmEditSim>();
    editor.LoadUserFile = folder.path("game\\UserData\\characters\\user00001.iff");
    script.whenShown("frmEditSim", [](QWidget& window) {
        auto* skin = find<PictureBox>(window, "picNormal");
        EXPECT_GE(steepestEdge(inside(skin)), 150);
        // The picture in the hand is the stock's; what is seen is one made for its size.
        auto* hand = find<PictureBox>(window, "picHandClosedLeft");
        auto* tabs = find<QTabWidget>(window, "tabSkins");
        while (!hand->isVisible() && tabs->currentIndex() + 1 < tabs->count()) {
            tabs->setCurrentIndex(tabs->currentIndex() + 1);
        }
        EXPECT_EQ(hand->size(), QSize(68, 68));
        EXPECT_EQ(hand->picture(), find<PictureBox>(window, "picNotFound")->picture());
        PictureBox small;
        small.resize(hand->size());
        small.setPicture(wordCard({64, 64}, "Bitmap can not be displayed", 16));
        EXPECT_TRUE(inside(hand) == inside(&small));
        window.close();
    });
    editor.showModal();
    EXPECT_TRUE(script.isDone());
}

TEST_F(CardsTest, AMissingPortraitIsDrawnForTheScreen) {
    test::installGame(folder);
    folder.write("game/UserData/Characters/user00001.iff",
                 test::fileHead(0) +
                     test::segment("STR#", 200, 16, "", test::stringTable(test::simRows({}))));
    auto& window = theWindow<frmMain>();
    window.showMain();
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(0)).center());
    for (const char* name : {"picThumbs", "picSim"}) {
        auto* box = find<PictureBox>(window, name);
        const QImage card = box->grab({2 + 14, 2 + 4, 28, 28}).toImage();
        EXPECT_EQ(qGray(card.pixel(0, 0)), 255) << name;
        if (box->devicePixelRatio() == 2) {
            EXPECT_FALSE(isEnlarged(card)) << name;
        }
    }
}

}  // namespace
}  // namespace marlowick
