// How much memory a directory takes, out of the kernel's account of this process.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "far/far_directory.h"
#include "support/archive_builder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick {
namespace {

constexpr long kAlways = 32L << 20U;  // bytes
constexpr long kTimes = 8;

// Bytes; 0 if the kernel doesn't tell.
long memoryOf(std::string_view field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with(field)) {
            return std::strtol(line.c_str() + field.size(), nullptr, 10) * 1024;
        }
    }
    return 0;
}

// The most memory since a moment ago is from now on the memory of now; false if the kernel minds.
bool forgetPeak() {
    std::ofstream references("/proc/self/clear_refs");
    references << "5" << std::flush;
    return references.good() && memoryOf("VmHWM:") > 0;
}

// Nobody packs such an archive, but one must not bring the program down. Names of one letter are
// the shortest records that still take a text each.
TEST(FarDirectoryMemoryTest, ADirectoryTakesAtMostEightTimesItsFileAndASmallAmount) {
    constexpr unsigned kCount = 2'000'000;
    test::TestFolder folder;
    long size = 0;
    {
        const std::string record = test::archiveRecord(0, 0, 16, "x");
        std::string content = test::archiveHead(16) + test::little32(kCount);
        content.reserve(content.size() + kCount * record.size());
        for (unsigned i = 0; i < kCount; ++i) {
            content += record;
        }
        size = static_cast<long>(content.size());
        folder.write("game/a.far", content);
    }
    if (!forgetPeak()) {
        GTEST_SKIP() << "the kernel keeps no account";
    }
    const long before = memoryOf("VmRSS:");
    FarDirectory directory;
    readFarDirectory(directory, folder.path("game\\a.far"));
    EXPECT_LE(memoryOf("VmHWM:") - before, kAlways + kTimes * size);
    EXPECT_EQ(directory.Entries.bound(), static_cast<int>(kCount));
    EXPECT_EQ(directory.Entries[static_cast<int>(kCount)].FileName, "x");
}

// Not even memory that stays untouched: there are systems that count it.
TEST(FarDirectoryMemoryTest, ADirectoryThatClaimsMoreEntriesThanItHasTakesNoRoomForThem) {
    constexpr long kData = 64L << 20U;  // bytes behind the directory
    test::TestFolder folder;
    folder.write("game/a.far", test::archiveHead(16) + test::little32(0x7FFFFFFF) +
                                   test::archiveRecord(0, 0, 16, "x") + std::string(12, '\0') +
                                   test::little32(0x7FFFFFFF));
    std::filesystem::resize_file(folder.game() / "a.far", kData);
    const long before = memoryOf("VmSize:");
    if (before == 0) {
        GTEST_SKIP() << "the kernel keeps no account";
    }
    FarDirectory directory;
    readFarDirectory(directory, folder.path("game\\a.far"));
    EXPECT_LE(memoryOf("VmSize:") - before, kAlways);
    EXPECT_EQ(directory.Entries.bound(), 1);
}

}  // namespace
}  // namespace marlowick
