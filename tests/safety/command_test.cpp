#include "safety/command_test.h"

#include "system/streams.h"

namespace marlowick::test {

void CommandTest::prepare() {
    streams().closeAll();
    stage.removeEverything();
    stage.history = History(stage.history.places());
    command.prepare(stage);
    command.load(stage);
    ASSERT_EQ(stage.takeTold(), "");
}

void CommandTest::runWhole() {
    prepare();
    old = contentsOf(command, stage);
    outcome = runCommand(command, stage);
    ASSERT_TRUE(outcome.isDone) << outcome.told;
    ASSERT_EQ(outcome.told, "");
    changed = contentsOf(command, stage);
    for (std::size_t i = 0; i < old.size(); ++i) {
        ASSERT_NE(old[i], changed[i]) << command.files[i];
    }
    names = namesOutsideHistory(stage);
    ASSERT_EQ(faultsOfKept(command, stage, old), "");
    ASSERT_EQ(leftovers(stage), std::vector<std::string>{});
    prepare();
}

void CommandTest::expectNothingLost() {
    const Contents now = contentsOf(command, stage);
    for (std::size_t i = 0; i < now.size() && !command.isReport; ++i) {
        EXPECT_TRUE(now[i] == old[i] || now[i] == changed[i]) << command.files[i];
    }
    EXPECT_EQ(faultsOfKept(command, stage, old), "");
    if (!outcome.isDone) {
        EXPECT_NE(outcome.told, "");
    } else if (!command.passesOver) {
        EXPECT_TRUE(now == changed) << outcome.told;
    }
}

void CommandTest::expectItWorksAgain() {
    if (command.keepsSlots && !outcome.isDone) {
        if (contentsOf(command, stage) == changed) {
            return;
        }
        streams().closeAll();
        command.load(stage);
    }
    const Outcome again = runCommand(command, stage);
    EXPECT_TRUE(again.isDone);
    EXPECT_EQ(again.told, "");
    EXPECT_TRUE(contentsOf(command, stage) == changed);
    EXPECT_EQ(faultsOfKept(command, stage, old), "");
    EXPECT_EQ(namesOutsideHistory(stage), names);
    EXPECT_EQ(leftovers(stage), std::vector<std::string>{});
}

}  // namespace marlowick::test
