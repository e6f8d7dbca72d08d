#include "foundation/bounded_look.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_folder.h"

namespace marlowick {
namespace {

using ::testing::ElementsAre;
using TimePoint = std::chrono::steady_clock::time_point;

class BoundedLookTest : public ::testing::Test {
  protected:
    BoundedLookTest() { folder.write("f/a.txt", "text"); }

    Path at(const std::string& name) const { return placeOf(folder.path(name)).value(); }

    test::TestFolder folder;
};

TEST_F(BoundedLookTest, TellsFilesFromFolders) {
    BoundedLook look;
    EXPECT_TRUE(look.file(at("f/a.txt")));
    EXPECT_FALSE(look.file(at("f")));
    EXPECT_TRUE(look.folder(at("f")));
    EXPECT_FALSE(look.folder(at("f/a.txt")));
    EXPECT_EQ(look.place(at("f/a.txt")), at("f/a.txt"));
    EXPECT_EQ(look.read(at("f"), 100), std::nullopt);
    EXPECT_THAT(look.names(at("f/a.txt"), 9), ElementsAre());
    EXPECT_THAT(look.names(at("f"), 9), ElementsAre("a.txt"));
}

TEST_F(BoundedLookTest, ReadsFilesUpToTheirBound) {
    BoundedLook look;
    EXPECT_EQ(look.read(at("f/a.txt"), 4), "text");
    EXPECT_EQ(look.read(at("f/a.txt"), 3), std::nullopt);
}

TEST_F(BoundedLookTest, AThousandFilesAndFoldersAreOpened) {
    BoundedLook look;
    const Path file = at("f/a.txt");
    const Path above = at("f");
    for (int i = 0; i < 500; ++i) {
        ASSERT_TRUE(look.read(file, 4));
        ASSERT_EQ(look.names(above, 9).size(), 1U);
    }
    EXPECT_FALSE(look.read(file, 4));
    EXPECT_TRUE(look.names(above, 9).empty());
    EXPECT_FALSE(look.place(file));
}

TEST_F(BoundedLookTest, ASearchLastsTwoSeconds) {
    TimePoint now;
    BoundedLook look({}, [&] { return now; });
    const Path file = at("f/a.txt");
    now += std::chrono::milliseconds(1999);
    EXPECT_TRUE(look.read(file, 4));
    now += std::chrono::milliseconds(1);
    EXPECT_FALSE(look.read(file, 4));
    EXPECT_FALSE(look.place(file));
    EXPECT_FALSE(look.folder(at("f")));
    EXPECT_TRUE(look.names(at("f"), 9).empty());
}

TEST_F(BoundedLookTest, ASearchStaysOnTheMachinesOwnDisks) {
    BoundedLook look({at("f")}, [] { return TimePoint(); });
    EXPECT_FALSE(look.read(at("f/a.txt"), 4));
    EXPECT_TRUE(BoundedLook().read(at("f/a.txt"), 4));
}

}  // namespace
}  // namespace marlowick
