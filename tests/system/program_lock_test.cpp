#include "system/program_lock.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

#include "support/test_folder.h"

namespace marlowick {
namespace {

class ProgramLockTest : public ::testing::Test {
  protected:
    ProgramLockTest() { folder.write("other/x", ""); }

    LockAnswer answer(const char* name) { return lockFolder(folder.path(name)).answer; }

    test::TestFolder folder;
};

TEST_F(ProgramLockTest, OneCopyAFolderHasIt) {
    LockedFolder first = lockFolder(folder.path("program"));
    ASSERT_EQ(first.answer, LockAnswer::Taken);
    EXPECT_EQ(answer("program"), LockAnswer::HeldByOther);
    EXPECT_EQ(answer("other"), LockAnswer::Taken);
    first.lock.reset();
    EXPECT_EQ(answer("program"), LockAnswer::Taken);
}

TEST_F(ProgramLockTest, NothingIsWrittenForIt) {
    const LockedFolder lock = lockFolder(folder.path("other"));
    ASSERT_EQ(lock.answer, LockAnswer::Taken);
    const std::filesystem::directory_iterator all(folder.root() / "other");
    EXPECT_EQ(std::distance(begin(all), end(all)), 1);
}

#ifndef _WIN32
TEST_F(ProgramLockTest, AFolderThatIsNotThereHasNone) {
    EXPECT_EQ(answer("nowhere"), LockAnswer::NoLock);
}

TEST_F(ProgramLockTest, AFolderWithoutRightsToWriteHasOne) {
    std::filesystem::permissions(folder.root() / "other", std::filesystem::perms::owner_read |
                                                              std::filesystem::perms::owner_exec);
    EXPECT_EQ(answer("other"), LockAnswer::Taken);
}

TEST_F(ProgramLockTest, AKilledCopyLocksNobodyOut) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t copy = ::fork();
    if (copy == 0) {
        const LockedFolder lock = lockFolder(folder.path("program"));
        const char answer = lock.answer == LockAnswer::Taken ? 'y' : 'n';
        if (::write(ready[1], &answer, 1) == 1) {
            ::pause();
        }
        ::_exit(0);
    }
    char taken = 0;
    ASSERT_EQ(::read(ready[0], &taken, 1), 1);
    EXPECT_EQ(taken, 'y');
    EXPECT_EQ(answer("program"), LockAnswer::HeldByOther);
    ASSERT_EQ(::kill(copy, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(copy, &status, 0), copy);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(answer("program"), LockAnswer::Taken);
    ::close(ready[0]);
    ::close(ready[1]);
}
#endif

}  // namespace
}  // namespace marlowick
