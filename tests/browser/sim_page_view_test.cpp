#include "browser/sim_page_view.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace marlowick {
namespace {

constexpr QRgb kRed = 0xFFFF0000;

QImage redPortrait() {
    QImage image(45, 45, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

QLabel* labelOf(SimPageView& page, int cell) {
    for (QLabel* label : page.findChildren<QLabel*>("lblSimName")) {
        if (label->property("Index").toInt() == cell) {
            return label;
        }
    }
    return nullptr;
}

QImage look(QLabel* label) {
    return label->grab().toImage();
}

TEST(SimPageViewTest, APortraitLiesInItsCell) {
    SimPageView page;
    page.resize(481, 481);
    page.paintPortrait(8, redPortrait());
    const QImage painted = page.painted();
    EXPECT_EQ(painted.pixel(68 + 11, 68 + 2), kRed);
    EXPECT_EQ(painted.pixel(68 + 11 + 44, 68 + 2 + 44), kRed);
    EXPECT_NE(painted.pixel(68 + 10, 68 + 2), kRed);
    EXPECT_NE(painted.pixel(68 + 11, 68 + 1), kRed);
    EXPECT_NE(painted.pixel(68 + 11 + 45, 68 + 2), kRed);
}

TEST(SimPageViewTest, ThereIsALabelUnderEachPortrait) {
    SimPageView page;
    EXPECT_EQ(page.findChildren<QLabel*>("lblSimName").size(), 49);
    page.setName(48, "Mara Quill");
    EXPECT_EQ(labelOf(page, 48)->text(), "Mara Quill");
    EXPECT_EQ(labelOf(page, 48)->size(), QSize(64, 20));
    EXPECT_EQ(labelOf(page, 48)->pos() - labelOf(page, 0)->pos(), QPoint(6 * 68, 6 * 68));
}

// What reads the label gets the whole name; what is painted is the shortened one.
TEST(SimPageViewTest, ALabelHoldsTheWholeNameAndPaintsWhatFits) {
    SimPageView page;
    page.resize(481, 481);
    const QString name = "Bartholomew Featherstonehaugh-Cholmondeley";
    QLabel* label = labelOf(page, 0);
    page.setName(0, name);
    EXPECT_EQ(label->text(), name);
    const QImage painted = look(label);
    const QStringList lines = nameLines(name, label->fontMetrics());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[1].endsWith(QChar(0x2026)));
    page.setName(0, lines.join('\n'));
    EXPECT_TRUE(look(label) == painted);
    page.setName(0, QString());
    EXPECT_FALSE(look(label) == painted);
}

TEST(SimPageViewTest, NoLineIsWiderThanItsCell) {
    const SimPageView page;
    const QFontMetrics metrics(page.findChild<QLabel*>("lblSimName")->font());
    for (const char* name :
         {"Ann", "Annabelle Weatherby", "Wwwwwwwwwwwwwwwwwwww", "* ERROR *\n Can",
          " Wwwwwwwwwwwwwwwwwwwwwwww", "Ww wwwwwwwwwwwwwwww wwwwwwwwwwwwwwwww"}) {
        for (const QString& line : nameLines(name, metrics)) {
            EXPECT_LE(metrics.horizontalAdvance(line), 64) << name;
        }
    }
    EXPECT_EQ(nameLines("Ann Li", metrics), QStringList{"Ann Li"});
    EXPECT_EQ(nameLines("* ERROR *\n Can't", metrics), (QStringList{"* ERROR *", " Can't"}));
}

// The lowest row of pixels that a letter reaches.
int inkEnd(SimPageView& page, const QString& name) {
    QLabel* label = labelOf(page, 0);
    page.setName(0, QString());
    const QImage empty = look(label);
    page.setName(0, name);
    const QImage image = look(label);
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != empty.pixel(x, y)) {
                return y;
            }
        }
    }
    return -1;
}

TEST(SimPageViewTest, TheLettersOfTheSecondLineAreWholeToo) {
    SimPageView page;
    page.resize(481, 481);
    const int below = inkEnd(page, "qgqg") - inkEnd(page, "oooo");
    EXPECT_GE(below, 1);
    EXPECT_EQ(inkEnd(page, "l\nqgqg") - inkEnd(page, "l\noooo"), below);
}

// Too wide by a fraction of a pixel at one font size or another.
TEST(SimPageViewTest, ANameOfTwoWordsBreaksBeforeItIsShortened) {
    const SimPageView page;
    const QFontMetrics metrics(page.findChild<QLabel*>("lblSimName")->font());
    for (const char* name : {"Felix Lindqvist", "Felix iiiqqqvist", "Felix liiqqqvist",
                             "Ann llllqqvist", "Felix iqLindqvist", "Felix lqLindqvist"}) {
        EXPECT_FALSE(nameLines(name, metrics).join(' ').contains(QChar(0x2026))) << name;
    }
}

TEST(SimPageViewTest, AFrameLiesOnItsCellAlone) {
    SimPageView page;
    page.frameCell(9, true);
    EXPECT_EQ(page.outlineAt({136, 68, 68, 68}), QColor(Qt::white));
    EXPECT_EQ(page.outlineAt({137, 69, 66, 66}), QColor(Qt::white));
    page.frameCell(9, false);
    EXPECT_FALSE(page.outlineAt({136, 68, 68, 68}).isValid());
}

TEST(SimPageViewTest, TheToolTipIsTheFileAsItStands) {
    SimPageView page;
    page.tellFile("user\xE9.iff");
    EXPECT_EQ(page.toolTip(), QString::fromUtf8("user\xC3\xA9.iff"));
    page.tellFile("");
    EXPECT_EQ(page.toolTip(), "");
}

TEST(SimPageViewTest, AnEmptyPageHasNeitherPicturesNorNamesNorAFrame) {
    SimPageView page;
    page.resize(481, 481);
    page.paintPortrait(0, redPortrait());
    page.setName(0, "Mara Quill");
    page.frameCell(0, true);
    page.clearPage();
    EXPECT_TRUE(page.painted().isNull());
    EXPECT_EQ(labelOf(page, 0)->text(), "");
    EXPECT_FALSE(page.outlineAt({0, 0, 68, 68}).isValid());
}

}  // namespace
}  // namespace marlowick
