// Programs that run under other names than those of their files, as those of Wine do.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "system/processes.h"

namespace marlowick {
namespace {

// "sleep" under a name of its own, gone at the test's end.
class Sleeper {
  public:
    explicit Sleeper(const char* name) : id_(::fork()) {
        if (id_ == 0) {
            ::execl("/bin/sleep", name, "60", static_cast<char*>(nullptr));
            ::_exit(1);
        }
    }
    ~Sleeper() {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    // Waits until it has taken its name.
    bool isListedAs(const std::string& name) const {
        for (int tries = 0; tries < 200; ++tries) {
            const std::vector<RunningProgram> programs = runningPrograms();
            if (std::any_of(programs.begin(), programs.end(), [&](const RunningProgram& one) {
                    return one.id == static_cast<std::uint32_t>(id_) && one.name == name;
                })) {
                return true;
            }
            ::usleep(10000);
        }
        return false;
    }

  private:
    pid_t id_;
};

TEST(ProcessesTest, AProgramOfWineGoesByItsOwnName) {
    EXPECT_TRUE(
        Sleeper("C:\\Program Files\\EA Games\\The Sims Legacy\\Sims.exe").isListedAs("Sims.exe"));
    EXPECT_TRUE(Sleeper("Z:\\home/x\\sims.EXE").isListedAs("sims.EXE"));
}

TEST(ProcessesTest, OneWithAnEmptyArgumentGoesByItsFile) {
    EXPECT_TRUE(Sleeper("").isListedAs("sleep"));
}

// A child that nobody has asked about yet.
TEST(ProcessesTest, OneThatHasEndedIsNone) {
    const pid_t id = ::fork();
    if (id == 0) {
        ::_exit(0);
    }
    siginfo_t ended{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(id), &ended, WEXITED | WNOWAIT), 0);
    const std::vector<RunningProgram> programs = runningPrograms();
    EXPECT_TRUE(std::none_of(programs.begin(), programs.end(), [&](const RunningProgram& one) {
        return one.id == static_cast<std::uint32_t>(id);
    }));
    ::waitpid(id, nullptr, 0);
}

}  // namespace
}  // namespace marlowick
