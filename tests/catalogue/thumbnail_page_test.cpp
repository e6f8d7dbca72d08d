#include "catalogue/thumbnail_page.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

TEST(ThumbnailPageTest, CellsLieSevenInARow) {
    EXPECT_EQ(page::corner(0).x, 0);
    EXPECT_EQ(page::corner(8).x, 68);
    EXPECT_EQ(page::corner(8).y, 68);
    EXPECT_EQ(page::corner(48).x, 408);
    EXPECT_EQ(page::corner(48).y, 408);
}

TEST(ThumbnailPageTest, TheBorderCountsAsAnEighthColumn) {
    EXPECT_EQ(page::cellAt(0, 0), 0);
    EXPECT_EQ(page::cellAt(67, 67), 0);
    EXPECT_EQ(page::cellAt(68, 0), 1);
    EXPECT_EQ(page::cellAt(0, 68), 7);
    EXPECT_EQ(page::cellAt(475, 475), 48);
    EXPECT_EQ(page::cellAt(476, 0), 7);
    EXPECT_EQ(page::cellAt(480, 480), 56);
}

TEST(ThumbnailPageTest, LeftOfThePageAndAboveItCellsGoOnDownwards) {
    EXPECT_EQ(page::cellAt(-1, 0), -1);
    EXPECT_EQ(page::cellAt(-68, 67), -1);
    EXPECT_EQ(page::cellAt(-69, 0), -2);
    EXPECT_EQ(page::cellAt(0, -1), -7);
    EXPECT_EQ(page::cellAt(-1, -1), -8);
    EXPECT_EQ(page::cellAt(-1, 68), 6);
    EXPECT_EQ(page::corner(-1).x, 6 * 68);
    EXPECT_EQ(page::corner(-1).y, -68);
    EXPECT_EQ(page::corner(-8).x, 6 * 68);
    EXPECT_EQ(page::corner(-8).y, -2 * 68);
}

TEST(ThumbnailPageTest, OnlyACellOfThePageLiesBesideAnother) {
    EXPECT_EQ(page::cellBeside(0, 1, 0), 1);
    EXPECT_EQ(page::cellBeside(8, -1, -1), 0);
    EXPECT_EQ(page::cellBeside(0, -1, 0), -1);
    EXPECT_EQ(page::cellBeside(6, 1, 0), -1);
    EXPECT_EQ(page::cellBeside(48, 0, 1), -1);
    EXPECT_EQ(page::cellBeside(-7, 0, 1), 0);
    EXPECT_EQ(page::cellBeside(-1, 0, 1), 6);
    EXPECT_EQ(page::cellBeside(49, 0, -1), 42);
}

TEST(ThumbnailPageTest, CountsPagesAndEntries) {
    EXPECT_EQ(page::pageCount(49), 1);
    EXPECT_EQ(page::pageCount(50), 2);
    EXPECT_EQ(page::lastPage(49), 0);
    EXPECT_EQ(page::lastPage(50), 1);
    EXPECT_EQ(page::lastPage(0), -1);
    EXPECT_EQ(page::entryOf(0, 0), 1);
    EXPECT_EQ(page::entryOf(1, 3), 53);
}

}  // namespace
}  // namespace marlowick
