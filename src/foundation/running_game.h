// Whether the game runs while the program works on its files.
#pragma once

#include <cstdint>
#include <vector>

namespace marlowick {

bool isGameRunning();

// Tells of each run of the game once.
class RunningGameNotice {
  public:
    // True if the game runs and that run wasn't told of before.
    bool isDue();

  private:
    std::vector<std::uint32_t> told_;  // process numbers of runs that may still go on
};

}  // namespace marlowick
