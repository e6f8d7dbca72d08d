#include "system/file_stamp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "support/test_folder.h"

namespace marlowick {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

// To the second: that is what the libraries of both systems can set.
void setTime(const std::filesystem::path& file, std::chrono::hours ago) {
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(file, std::chrono::floor<std::chrono::seconds>(now) - ago);
}

TEST(FileStampTest, ChangesWithTheFile) {
    const test::TestFolder folder;
    folder.write("game/a.bmp", "1234");
    setTime(folder.game() / "a.bmp", std::chrono::hours(1));
    const auto before = fileStamp(folder.path("game/a.bmp"));
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 4);
    EXPECT_EQ(fileStamp(folder.path("game\\A.BMP")), before);
    setTime(folder.game() / "a.bmp", std::chrono::hours(2));
    const auto older = fileStamp(folder.path("game/a.bmp"));
    ASSERT_TRUE(older);
    // The two were set moments apart, maybe in different seconds.
    EXPECT_NEAR(static_cast<double>(before->modified - older->modified), 3600.0 * kSecond,
                60.0 * kSecond);
    EXPECT_EQ(older->place, before->place);
    std::ofstream(folder.game() / "a.bmp", std::ios::app) << '5';
    EXPECT_EQ(fileStamp(folder.path("game/a.bmp"))->size, 5);
}

// The same bytes at the same time are another file in another place.
TEST(FileStampTest, TellsTwoFilesApart) {
    const test::TestFolder folder;
    folder.write("game/a.bmp", "1234");
    folder.write("game/b.bmp", "1234");
    setTime(folder.game() / "a.bmp", std::chrono::hours(1));
    std::filesystem::last_write_time(folder.game() / "b.bmp",
                                     std::filesystem::last_write_time(folder.game() / "a.bmp"));
    const auto first = fileStamp(folder.path("game/a.bmp"));
    const auto second = fileStamp(folder.path("game/b.bmp"));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->modified, second->modified);
    EXPECT_NE(first->place, second->place);
}

TEST(FileStampTest, OnlyAFileHasOne) {
    const test::TestFolder folder;
    EXPECT_FALSE(fileStamp(folder.path("game/missing.bmp")));
    EXPECT_FALSE(fileStamp(folder.path("game")));
    EXPECT_FALSE(fileStamp(Path()));
}

TEST(FileStampTest, AFileOfTheLastMomentsIsNotSettled) {
    const std::int64_t now = 1'000'000 * kSecond;
    const auto settled = [&](std::int64_t modified, std::int64_t changed) {
        return isSettled({1, modified, changed, 1, 1}, now);
    };
    EXPECT_TRUE(settled(now - 2 * kSecond, now - 3 * kSecond));
    EXPECT_FALSE(settled(now - 2 * kSecond + 1, now - 3 * kSecond));
    EXPECT_FALSE(settled(now - 3 * kSecond, now - kSecond));
    // A clock that was put back.
    EXPECT_FALSE(settled(now + 5 * kSecond, now - 3 * kSecond));
}

TEST(FileStampTest, TheClockCountsAsTheStampsDo) {
    const test::TestFolder folder;
    folder.write("game/a.bmp", "1234");
    const auto stamp = fileStamp(folder.path("game/a.bmp"));
    ASSERT_TRUE(stamp);
    EXPECT_LT(std::abs(stampClock() - stamp->modified), 60 * kSecond);
}

}  // namespace
}  // namespace marlowick
