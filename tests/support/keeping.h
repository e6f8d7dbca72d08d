// A command that keeps what it replaces, for tests of what is replaced.
#pragma once

#include "foundation/history.h"
#include "foundation/history_command.h"

namespace marlowick::test {

// goesOn: the answer where nothing can be kept.
struct Keeping {
    explicit Keeping(bool goesOn = false)
        : command(history, "Test", "", [this, goesOn](const KeepResult&) {
              ++questions;
              return goesOn;
          }) {}

    int questions = 0;
    History history{historyPlaces()};
    HistoryCommand command;
};

}  // namespace marlowick::test
