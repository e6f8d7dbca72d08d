// The commands on a small disk of their own that is really full.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "safety/command_test.h"
#include "system/streams.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kBlock = 4096;  // bytes; what a file takes at least
constexpr int kNoDisk = 77;

// Writes a text into a file of the system.
bool tell(const char* file, const std::string& text) {
    std::ofstream stream(file);
    stream << text << std::flush;
    return stream.good();
}

// A disk of 4 MiB in the memory of the machine, seen by this process alone. No rights are needed
// for that but those that the system gives everybody in a world of their own, unless it is set up
// to give none.
bool mountSmallDisk(const fs::path& place) {
    const std::string user = std::to_string(::getuid());
    const std::string group = std::to_string(::getgid());
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && tell("/proc/self/setgroups", "deny") &&
           tell("/proc/self/uid_map", user + " " + user + " 1") &&
           tell("/proc/self/gid_map", group + " " + group + " 1") &&
           ::mount("none", place.c_str(), "tmpfs", 0, "size=4m") == 0;
}

class FullDiskTest : public test::CommandTest {
  protected:
    fs::path filler() const { return folder.root() / "filler"; }

    // Leaves room for so many blocks.
    void fill(std::uintmax_t blocks) const {
        {
            std::ofstream stream(filler(), std::ios::binary);
            const std::string block(kBlock, 'x');
            while (stream << block << std::flush) {
            }
        }
        const std::uintmax_t size = fs::file_size(filler());
        ASSERT_EQ(fs::space(folder.root()).available, 0U);
        fs::resize_file(filler(), size - std::min(size, blocks * kBlock));
    }

    void fillAndRun() {
        runWhole();
        int failed = 0;
        bool isDone = false;
        for (std::uintmax_t room = 0; room < 300 && !isDone && !HasFailure();
             room += room < 24 ? 1 : 5) {
            SCOPED_TRACE(std::to_string(room) + " free blocks");
            prepare();
            fill(room);
            outcome = runCommand(command, stage);
            fs::remove(filler());
            isDone = outcome.isDone && outcome.told.empty();
            failed += isDone ? 0 : 1;
            expectNothingLost();
            expectItWorksAgain();
        }
        EXPECT_TRUE(isDone);
        if (!command.files.empty() && command.name != "ensemble-deleted") {
            EXPECT_GT(failed, 0);
        }
        std::printf("[   FULL   ] %s %d\n", command.name.c_str(), failed);
    }
};

TEST_P(FullDiskTest, LosesNothing) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        int code = kNoDisk;
        if (mountSmallDisk(folder.root())) {
            stage.removeEverything();
            fillAndRun();
            code = HasFailure() ? 1 : 0;
        }
        std::fflush(nullptr);
        ::_exit(code);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == kNoDisk) {
        GTEST_SKIP() << "this machine lets nobody have a disk of their own";
    }
    EXPECT_EQ(WEXITSTATUS(status), 0) << "see above";
}

INSTANTIATE_TEST_SUITE_P(Commands, FullDiskTest, ::testing::ValuesIn(test::testedCommands()),
                         test::nameOfTest);

}  // namespace
}  // namespace marlowick
