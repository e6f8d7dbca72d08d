#include "system/streams.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

TEST(StreamsTest, ATakenSlotIsErrorFiftyFive) {
    const test::TestFolder folder;
    streams().open(7, folder.path("game\\a"), OpenMode::Binary);
    try {
        streams().open(7, folder.path("game\\b"), OpenMode::Binary);
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 55);
    }
    EXPECT_FALSE(folder.exists("game/b"));
    streams().close(7);
    streams().open(7, folder.path("game\\b"), OpenMode::Binary);
    EXPECT_TRUE(folder.exists("game/b"));
}

TEST(StreamsTest, GivesTheLowestFreeNumber) {
    const test::TestFolder folder;
    EXPECT_EQ(streams().freeSlot(), 1);
    streams().open(1, folder.path("game\\a"), OpenMode::Binary);
    streams().open(3, folder.path("game\\b"), OpenMode::Binary);
    EXPECT_EQ(streams().freeSlot(), 2);
}

TEST(StreamsTest, LetsGoOfAFileByItsName) {
    const test::TestFolder folder;
    streams().open(10, folder.path("game\\User.iff"), OpenMode::Binary);
    streams().open(11, folder.path("game\\other"), OpenMode::Binary);
    streams().letGo(folder.path("game\\USER.IFF"));
    EXPECT_FALSE(streams().isOpen(10));
    EXPECT_TRUE(streams().isOpen(11));
}

TEST(StreamsTest, AFileThatCantBeOpenedTakesNoSlot) {
    const test::TestFolder folder;
    EXPECT_THROW(streams().open(4, folder.path("none\\a"), OpenMode::Binary), RuntimeError);
    EXPECT_FALSE(streams().isOpen(4));
}

}  // namespace
}  // namespace marlowick
