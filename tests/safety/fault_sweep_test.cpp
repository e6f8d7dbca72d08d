// Every operation that a command asks of the disk fails once with each of its errors, and the
// machine stops at each: nothing is lost, a person is told, and the same command works again.
#include <gtest/gtest.h>

#include <iostream>

#include "safety/commands.h"
#include "support/faulty_files.h"
#include "support/quick_disk.h"
#include "support/sweep_step.h"
#include "support/test_folder.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::Contents;
using test::FaultyFiles;
using test::Outcome;
using test::Stage;
using test::TestedCommand;

class FaultSweepTest : private test::QuickDisk, public ::testing::TestWithParam<TestedCommand> {
  protected:
    void prepare() {
        streams().closeAll();
        stage.removeEverything();
        stage.history = History(stage.history.places());
        command.prepare(stage);
        command.load(stage);
        ASSERT_EQ(stage.takeTold(), "");
    }

    // What the command does on a disk that works.
    void runWhole() {
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
    }

    // Runs it with a fault at operation k; true if it asked for fewer.
    bool runFaulty(int k, FaultyFiles::Fault fault, int number) {
        FaultyFiles faulty(k, fault, number, FaultyFiles::Counted::All);
        outcome = runCommand(command, stage);
        if (faulty.failed()) {
            errors = static_cast<int>(errorsOf(*faulty.failed()).size());
        }
        return faulty.changes() < k;
    }

    void expectNothingLost() {
        const Contents now = contentsOf(command, stage);
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (command.isReport) {
                continue;
            }
            EXPECT_TRUE(now[i] == old[i] || now[i] == changed[i]) << command.files[i];
        }
        EXPECT_EQ(faultsOfKept(command, stage, old), "");
        if (!outcome.isDone) {
            EXPECT_NE(outcome.told, "");
        } else if (!command.passesOver) {
            EXPECT_TRUE(now == changed) << outcome.told;
        }
    }

    // The disk works again, and so does the command.
    void expectItWorksAgain() {
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

    // True if the command asks for fewer operations.
    bool tryPoint(int k, FaultyFiles::Fault fault, int number) {
        SCOPED_TRACE("operation " + std::to_string(k) +
                     (fault == FaultyFiles::Fault::Stop ? " and all behind it fail"
                                                        : ", error " + std::to_string(number)));
        prepare();
        const bool isThrough = runFaulty(k, fault, number);
        if (isThrough) {
            return true;
        }
        ++points;
        expectNothingLost();
        expectItWorksAgain();
        return false;
    }

    const TestedCommand& command = GetParam();
    test::TestFolder folder;
    Stage stage{folder.root()};
    Contents old;
    Contents changed;
    std::vector<std::string> names;
    int points = 0;
    Outcome outcome;
    int errors = 1;  // of the operation that has failed
};

TEST_P(FaultSweepTest, LosesNothing) {
    runWhole();
    bool isThrough = HasFatalFailure();
    for (int k = 1; !isThrough && !HasFailure(); k += test::kSweepStep) {
        isThrough = tryPoint(k, FaultyFiles::Fault::FailOwn, 0);
        const int all = errors;
        for (int number = 1; !isThrough && number < all && !HasFailure(); ++number) {
            tryPoint(k, FaultyFiles::Fault::FailOwn, number);
        }
        if (!isThrough && !HasFailure()) {
            tryPoint(k, FaultyFiles::Fault::Stop, error::kDeviceIo);
        }
    }
    std::cout << "[  POINTS  ] " << command.name << ' ' << points << '\n';
    EXPECT_GT(points, 20 / test::kSweepStep);
}

INSTANTIATE_TEST_SUITE_P(Commands, FaultSweepTest, ::testing::ValuesIn(test::testedCommands()),
                         [](const auto& tested) {
                             std::string name = tested.param.name;
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace
}  // namespace marlowick
