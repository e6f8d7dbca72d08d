#include "system/kept_files.h"

#include <gtest/gtest.h>

#include <thread>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::int64_t kMinute = 60'000'000'000;

// What is made is the file's content.
class KeptFilesTest : public ::testing::Test {
  protected:
    std::string get(const std::string& name, const std::string& what = "content",
                    std::size_t bytes = 10) {
        return *kept.get<std::string>(folder.path("game/" + name), what, [&] {
            ++made;
            return Made<std::string>{readWholeFile(folder.path("game/" + name)), bytes};
        });
    }

    // The clock that stamps files stands still for a moment: within it a change may not show, which
    // is why nothing is kept so soon. These tests reckon as if it were later.
    void write(const std::string& name, const std::string& content) {
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        folder.write("game/" + name, content);
    }

    test::TestFolder folder;
    std::int64_t later = kMinute;  // than it is
    int made = 0;
    KeptFiles kept{35, [this] { return stampClock() + later; }};
};

TEST_F(KeptFilesTest, IsMadeOnce) {
    folder.write("game/a", "one");
    EXPECT_EQ(get("a"), "one");
    EXPECT_EQ(get("a"), "one");
    EXPECT_EQ(get("A"), "one");  // another name for the disk, the same for the game
    EXPECT_EQ(made, 2);
    EXPECT_EQ(get("a", "another thing"), "one");
    EXPECT_EQ(made, 3);
}

TEST_F(KeptFilesTest, AChangeIsSeenAtOnceAlsoToTheSameSize) {
    write("a", "one");
    EXPECT_EQ(get("a"), "one");
    write("a", "two");
    EXPECT_EQ(get("a"), "two");
    // With the old time put back.
    const auto time = std::filesystem::last_write_time(folder.game() / "a");
    EXPECT_EQ(get("a"), "two");
    write("a", "six");
    std::filesystem::last_write_time(folder.game() / "a", time);
    EXPECT_EQ(get("a"), "six");
    // Another file under the same name.
    write("b", "ten");
    std::filesystem::last_write_time(folder.game() / "b", time);
    std::filesystem::rename(folder.game() / "b", folder.game() / "a");
    EXPECT_EQ(get("a"), "ten");
}

TEST_F(KeptFilesTest, AFileOfTheLastMomentsIsNotKept) {
    later = 0;
    folder.write("game/a", "one");
    EXPECT_EQ(get("a"), "one");
    EXPECT_EQ(get("a"), "one");
    EXPECT_EQ(made, 2);
    EXPECT_EQ(kept.bytes(), 0U);
}

TEST_F(KeptFilesTest, AFileThatChangesWhileItIsReadIsNotKept) {
    folder.write("game/a", "one");
    kept.get<std::string>(folder.path("game/a"), "content", [&] {
        folder.write("game/a", "longer");
        return Made<std::string>{"one", 10};
    });
    EXPECT_EQ(kept.bytes(), 0U);
    EXPECT_EQ(get("a"), "longer");
}

TEST_F(KeptFilesTest, AMissingFileIsAskedEachTime) {
    EXPECT_EQ(test::errorOf([&] { get("a"); }), 53);
    folder.write("game/a", "one");
    EXPECT_EQ(get("a"), "one");
    std::filesystem::remove(folder.game() / "a");
    EXPECT_EQ(test::errorOf([&] { get("a"); }), 53);
    EXPECT_EQ(kept.bytes(), 0U);
}

TEST_F(KeptFilesTest, WhatWasUsedLongestAgoGoesFirst) {
    for (const char* name : {"a", "b", "c", "d"}) {
        folder.write(std::string("game/") + name, name);
    }
    get("a");
    get("b");
    get("c");
    get("a");
    get("d");  // b goes
    EXPECT_EQ(kept.bytes(), 30U);
    made = 0;
    get("a");
    get("c");
    get("d");
    EXPECT_EQ(made, 0);
    get("b");
    EXPECT_EQ(made, 1);
}

TEST_F(KeptFilesTest, WhatIsLargerThanAllIsNotKept) {
    folder.write("game/a", "one");
    folder.write("game/b", "two");
    get("b");
    EXPECT_EQ(get("a", "content", 36), "one");
    EXPECT_EQ(kept.bytes(), 10U);
}

TEST_F(KeptFilesTest, WhatJustFitsIsKept) {
    folder.write("game/a", "one");
    folder.write("game/b", "two");
    get("b");
    get("a", "content", 35);
    get("a", "content", 35);
    EXPECT_EQ(made, 2);
    EXPECT_EQ(kept.bytes(), 35U);
}

}  // namespace
}  // namespace marlowick
