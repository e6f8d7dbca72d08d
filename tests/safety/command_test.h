// The base of tests that let each command of the table go wrong.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "safety/commands.h"
#include "support/quick_disk.h"
#include "support/test_folder.h"

namespace marlowick::test {

class CommandTest : private QuickDisk, public ::testing::TestWithParam<TestedCommand> {
  protected:
    // The old files, and its window open on them.
    void prepare();
    // What the command does where nothing goes wrong, and the old files anew then.
    void runWhole();

    // The files are old or new, and what was replaced is kept; a failure was told.
    void expectNothingLost();
    // Nothing is in the way any more, and so the same command works.
    void expectItWorksAgain();

    const TestedCommand& command = GetParam();
    TestFolder folder;
    Stage stage{folder.root()};
    // Of runWhole: before it and behind it.
    Contents old;
    Contents changed;
    std::vector<std::string> names;
    // Of the last run.
    Outcome outcome;
};

inline std::string nameOfTest(const ::testing::TestParamInfo<TestedCommand>& tested) {
    std::string name = tested.param.name;
    std::erase(name, '-');
    return name;
}

}  // namespace marlowick::test
