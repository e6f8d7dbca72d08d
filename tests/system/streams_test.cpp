#include "system/streams.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

TEST(StreamsTest, ATakenSlotIsErrorFiftyFive) {
    const test::TestFolder folder;
    streams().open(Slot::fixed(7), folder.path("game\\a"), OpenMode::Binary);
    try {
        streams().open(Slot::fixed(7), folder.path("game\\b"), OpenMode::Binary);
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 55);
    }
    EXPECT_FALSE(folder.exists("game/b"));
    streams().close(Slot::fixed(7));
    streams().open(Slot::fixed(7), folder.path("game\\b"), OpenMode::Binary);
    EXPECT_TRUE(folder.exists("game/b"));
}

TEST(StreamsTest, GivesTheLowestFreeNumber) {
    const test::TestFolder folder;
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
    streams().open(Slot::free(1), folder.path("game\\a"), OpenMode::Binary);
    streams().open(Slot::free(3), folder.path("game\\b"), OpenMode::Binary);
    EXPECT_EQ(streams().freeSlot(), Slot::free(2));
}

TEST(StreamsTest, FreeNumbersAndFixedOnesStandInNobodysWay) {
    const test::TestFolder folder;
    const Path path = folder.path("game\\a");
    for (int number = 1; number <= 100; ++number) {
        EXPECT_EQ(streams().freeSlot(), Slot::free(number));
        streams().open(streams().freeSlot(), path, OpenMode::Binary);
    }
    for (const Slot fixed : {slot::kArchiveOutput, slot::kArchiveSource, slot::kUserFile,
                             slot::kExtractSource, slot::kExtractOutput}) {
        EXPECT_FALSE(streams().isOpen(fixed));
        streams().open(fixed, path, OpenMode::Binary);
    }
    streams().close(Slot::free(10));
    EXPECT_EQ(streams().freeSlot(), Slot::free(10));
    EXPECT_TRUE(streams().isOpen(slot::kUserFile));
}

TEST(StreamsTest, LetsGoOfAFileByItsName) {
    const test::TestFolder folder;
    streams().open(Slot::fixed(10), folder.path("game\\User.iff"), OpenMode::Binary);
    streams().open(Slot::free(1), folder.path("game\\user.iff"), OpenMode::Binary);
    streams().open(Slot::fixed(11), folder.path("game\\other"), OpenMode::Binary);
    streams().letGo(folder.path("game\\USER.IFF"));
    EXPECT_FALSE(streams().isOpen(Slot::fixed(10)));
    EXPECT_FALSE(streams().isOpen(Slot::free(1)));
    EXPECT_TRUE(streams().isOpen(Slot::fixed(11)));
}

TEST(StreamsTest, AFileThatCantBeOpenedTakesNoSlot) {
    const test::TestFolder folder;
    EXPECT_THROW(streams().open(Slot::fixed(4), folder.path("none\\a"), OpenMode::Binary),
                 RuntimeError);
    EXPECT_FALSE(streams().isOpen(Slot::fixed(4)));
}

TEST(StreamsTest, ASlotThatNobodyTookIsErrorFiftyTwo) {
    const test::TestFolder folder;
    EXPECT_EQ(test::errorOf([] { streams().at(Slot::fixed(4)); }), 52);
    streams().open(Slot::fixed(4), folder.path("game\\a"), OpenMode::Binary);
    EXPECT_EQ(test::errorOf([] { streams().at(Slot::fixed(4)); }), 0);
}

}  // namespace
}  // namespace marlowick
