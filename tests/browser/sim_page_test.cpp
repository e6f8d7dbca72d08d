#include "browser/sim_page.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

List<std::string> filesUpTo(int count) {
    List<std::string> files;
    for (int number = 1; number <= count; ++number) {
        files.append("user" + std::to_string(number) + ".iff");
    }
    return files;
}

TEST(SimPageTest, PortraitAndNameHaveTheirPlacesInTheCell) {
    EXPECT_EQ(portraitPosition(0).x, 11);
    EXPECT_EQ(portraitPosition(0).y, 2);
    EXPECT_EQ(portraitPosition(9).x, 2 * 68 + 11);
    EXPECT_EQ(portraitPosition(9).y, 68 + 2);
    EXPECT_EQ(namePosition(48).x, 6 * 68 + 2);
    EXPECT_EQ(namePosition(48).y, 6 * 68 + 48);
}

TEST(SimPageTest, TurnsThePagesAndStopsAtBothEnds) {
    SimPage page;
    page.setFiles(filesUpTo(99));
    EXPECT_EQ(page.pageCount(), 3);
    EXPECT_FALSE(page.goToFirst());
    EXPECT_FALSE(page.goToPrevious());
    EXPECT_TRUE(page.goToNext());
    EXPECT_EQ(page.number(), 1);
    EXPECT_TRUE(page.goToLast());
    EXPECT_EQ(page.number(), 2);
    EXPECT_FALSE(page.goToLast());
    EXPECT_FALSE(page.goToNext());
    EXPECT_TRUE(page.goToPrevious());
    EXPECT_TRUE(page.goToFirst());
    EXPECT_EQ(page.number(), 0);
}

TEST(SimPageTest, CellsHoldTheFilesOfThePage) {
    SimPage page;
    page.setFiles(filesUpTo(50));
    EXPECT_EQ(page.filledCells(), 49);
    EXPECT_EQ(page.fileIn(0), "user1.iff");
    EXPECT_EQ(page.fileIn(48), "user49.iff");
    page.goToNext();
    EXPECT_EQ(page.filledCells(), 1);
    EXPECT_EQ(page.fileIn(0), "user50.iff");
    EXPECT_EQ(page.fileIn(1), "");
}

TEST(SimPageTest, ACellOutsideOfThePageIsOneOfThePageBesideIt) {
    SimPage page;
    page.setFiles(filesUpTo(50));
    EXPECT_EQ(page.fileIn(49), "user50.iff");
    EXPECT_EQ(page.fileIn(-1), "");
    page.goToNext();
    EXPECT_EQ(page.fileIn(-1), "user49.iff");
}

TEST(SimPageTest, TheLastPageOfNoSimsShowsNothing) {
    SimPage page;
    EXPECT_EQ(page.pageCount(), 0);
    EXPECT_TRUE(page.goToLast());
    EXPECT_EQ(page.number(), -1);
    EXPECT_EQ(page.filledCells(), 0);
    EXPECT_EQ(page.fileIn(0), "");
    EXPECT_FALSE(page.goToPrevious());
    EXPECT_FALSE(page.goToNext());
    EXPECT_TRUE(page.goToFirst());
}

TEST(SimPageTest, TheChosenCellStaysAndItsFileFollowsTheList) {
    SimPage page;
    page.setFiles(filesUpTo(3));
    page.select(2);
    EXPECT_EQ(page.selectedFile(), "user3.iff");
    page.setFiles(filesUpTo(1));
    EXPECT_EQ(page.selected(), 2);
    EXPECT_EQ(page.selectedFile(), "");
}

}  // namespace
}  // namespace marlowick
