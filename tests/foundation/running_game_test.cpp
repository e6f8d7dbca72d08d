#include "foundation/running_game.h"

#include <gtest/gtest.h>

#include "system/processes.h"

namespace marlowick {
namespace {

class RunningGameTest : public ::testing::Test {
  protected:
    RunningGameTest() {
        setRunningPrograms([this] { return programs; });
    }
    ~RunningGameTest() override { setRunningPrograms({}); }

    std::vector<RunningProgram> programs = {{1, "init"}, {5, "Sims2.exe"}, {6, "TheSims.exe"}};
};

TEST_F(RunningGameTest, TheGameIsKnownByItsProgramInAnyCase) {
    EXPECT_FALSE(isGameRunning());
    for (const char* name : {"Sims.exe", "SIMS.EXE", "sims.exe"}) {
        programs.push_back({7, name});
        EXPECT_TRUE(isGameRunning()) << name;
        programs.pop_back();
    }
}

TEST_F(RunningGameTest, EachRunIsToldOfOnce) {
    RunningGameNotice notice;
    EXPECT_FALSE(notice.isDue());
    programs.push_back({7, "Sims.exe"});
    EXPECT_TRUE(notice.isDue());
    EXPECT_FALSE(notice.isDue());
    programs.back().id = 8;
    EXPECT_TRUE(notice.isDue());
    EXPECT_FALSE(notice.isDue());
    programs.pop_back();
    EXPECT_FALSE(notice.isDue());
    // The system gives the number again.
    programs.push_back({8, "Sims.exe"});
    EXPECT_TRUE(notice.isDue());
}

}  // namespace
}  // namespace marlowick
