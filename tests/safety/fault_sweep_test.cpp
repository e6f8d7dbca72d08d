// Every operation that a command asks of the disk fails once with each of its errors, and the
// machine stops at each: nothing is lost, a person is told, and the same command works again.
#include <gtest/gtest.h>

#include <iostream>

#include "safety/command_test.h"
#include "support/faulty_files.h"
#include "support/sweep_step.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

using test::FaultyFiles;

class FaultSweepTest : public test::CommandTest {
  protected:
    // Runs it with a fault at operation k; true if it asked for fewer.
    bool runFaulty(int k, FaultyFiles::Fault fault, int number) {
        FaultyFiles faulty(k, fault, number, FaultyFiles::Counted::All);
        outcome = runCommand(command, stage);
        if (faulty.failed()) {
            errors = static_cast<int>(errorsOf(*faulty.failed()).size());
        }
        return faulty.changes() < k;
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

    int points = 0;
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
                         test::nameOfTest);

}  // namespace
}  // namespace marlowick
