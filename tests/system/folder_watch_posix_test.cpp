#include "system/folder_watch_posix.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

// The numbers by which the kernel knows them.
TEST(FolderWatchTest, OnlyFileSystemsThatNobodyElseWritesAreWatched) {
    constexpr std::uint32_t kExt4 = 0xEF53;
    constexpr std::uint32_t kBtrfs = 0x9123683E;
    constexpr std::uint32_t kMemory = 0x01021994;
    for (const std::uint32_t fileSystem : {kExt4, kBtrfs, kMemory}) {
        EXPECT_TRUE(tellsOfChanges(fileSystem)) << std::hex << fileSystem;
    }
    constexpr std::uint32_t kFat = 0x4D44;
    constexpr std::uint32_t kExfat = 0x2011BAB0;
    constexpr std::uint32_t kNfs = 0x6969;
    constexpr std::uint32_t kCifs = 0xFF534D42;
    constexpr std::uint32_t kSmb2 = 0xFE534D42;
    constexpr std::uint32_t kFuse = 0x65735546;
    for (const std::uint32_t fileSystem : {kFat, kExfat, kNfs, kCifs, kSmb2, kFuse, 0U}) {
        EXPECT_FALSE(tellsOfChanges(fileSystem)) << std::hex << fileSystem;
    }
}

}  // namespace
}  // namespace marlowick
