#include "system/disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/test_folder.h"
#include "system/disk_system.h"
#include "system/files.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

TEST(DiskTest, TellsTheRoomOnTheDriveOfAPath) {
    const test::TestFolder folder;
    const double room = gfdblFreeDiskSpace(driveRoot(folder.path("game")));
    const auto expected = static_cast<double>(std::filesystem::space(folder.root()).available);
    EXPECT_GT(room, 0);
    // Others write to the disk too.
    EXPECT_NEAR(room, expected, 2e9);
}

TEST(DiskTest, ADriveThatIsNotThereHasNoRoom) {
    EXPECT_EQ(gfdblFreeDiskSpace(Path("no such drive:\\")), 0);
}

TEST(DiskTest, AnotherAnswerCanBePutInPlace) {
    setFreeDiskSpace([](const Path& root) { return root.text() == "X:\\" ? 5.0 : 6.0; });
    EXPECT_EQ(gfdblFreeDiskSpace(Path("X:\\")), 5);
    setFreeDiskSpace({});
    EXPECT_EQ(gfdblFreeDiskSpace(Path("no such drive:\\")), 0);
}

TEST(DiskTest, DriveRootsAreFoldersAndTheDriveOfAFileIsAbove) {
    const test::TestFolder folder;
    const std::vector<Path> roots = driveRoots();
    ASSERT_FALSE(roots.empty());
    for (const Path& root : roots) {
        EXPECT_TRUE(files().folderExists(root)) << root.text();
    }
    EXPECT_TRUE(files().folderExists(driveRoot(folder.path("game"))));
    const std::string place = shownPath(files().followLinks(folder.path("game")));
    EXPECT_TRUE(place.starts_with(driveName(folder.path("game")))) << place;
}

#ifdef _WIN32
TEST(DiskTest, TheDriveIsTheSameHoweverThePathIsWritten) {
    EXPECT_EQ(driveRoot(Path("C:\\Games\\The Sims")).text(), "C:\\");
    EXPECT_EQ(driveRoot(Path("C:/Games/The Sims")).text(), "C:\\");
    EXPECT_EQ(driveName(Path("C:/Games/The Sims")), "C:");
}
#else
TEST(DiskTest, NetworkFileSystemsAreRemoteUnlessADiskIsMountedOverThem) {
    const test::TestFolder folder;
    folder.write("mounts",
                 "/dev/sda1 / ext4 rw 0 0\n"
                 "server:/export /mnt/nas nfs4 rw 0 0\n"
                 "//server/share /mnt/two\\040words cifs rw 0 0\n"
                 "x@host:/ /home/x/far fuse.sshfs rw 0 0\n"
                 "gvfsd-fuse /run/user/1000/gvfs fuse.gvfsd-fuse rw 0 0\n"
                 "/dev/sdb1 /mnt/windows fuseblk rw 0 0\n"
                 "pool /mnt/pool fuse.mergerfs rw 0 0\n"
                 "systemd-1 /mnt/late autofs rw 0 0\n"
                 "systemd-1 /mnt/disk autofs rw 0 0\n"
                 "/dev/sdc1 /mnt/disk vfat rw 0 0\n"
                 "broken\n");
    std::vector<std::string> roots;
    for (const Path& root : remoteMounts((folder.root() / "mounts").c_str())) {
        roots.push_back(root.text());
    }
    EXPECT_EQ(roots, (std::vector<std::string>{"\\home\\x\\far", "\\mnt\\late", "\\mnt\\nas",
                                               "\\mnt\\two words", "\\run\\user\\1000\\gvfs"}));
    EXPECT_TRUE(remoteMounts((folder.root() / "none").c_str()).empty());
    EXPECT_TRUE(fixedDriveRoots().empty());
}

TEST(DiskTest, TheRootStandsFirstAndTheMachinesInnerLifeIsLeftOut) {
    const std::vector<Path> roots = driveRoots();
    EXPECT_EQ(roots.front().text(), "\\");
    for (const char* inner : {"\\proc", "\\sys", "\\dev", "\\dev\\shm"}) {
        EXPECT_EQ(std::count(roots.begin(), roots.end(), Path(inner)), 0) << inner;
    }
    EXPECT_EQ(driveRoot(Path("\\proc\\self\\fd")).text(), "\\proc");
    EXPECT_EQ(driveRoot(Path("\\")).text(), "\\");
}
#endif

TEST(DiskTest, GroupsDigitsByThreeAndShowsNoZero) {
    struct Row {
        double number;
        const char* text;
    };
    constexpr Row kRows[] = {{0, ""},
                             {7, "7"},
                             {999, "999"},
                             {1000, "1,000"},
                             {1234567, "1,234,567"},
                             {4294967296.0 * 3 + 5, "12,884,901,893"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(groupedDigits(row.number), row.text);
    }
}

}  // namespace
}  // namespace marlowick
