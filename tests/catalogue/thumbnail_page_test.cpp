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
