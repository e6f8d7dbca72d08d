// Lets the program keep what it reads at once, as if all files were older than they are.
#pragma once

#include <chrono>
#include <thread>

#include "system/kept_files.h"

namespace marlowick::test {

class KeptAtOnce {
  public:
    KeptAtOnce() {
        keptFiles() = KeptFiles(kMostKept, [] { return stampClock() + 60'000'000'000; });
    }
    ~KeptAtOnce() { keptFiles() = KeptFiles(); }
    KeptAtOnce(const KeptAtOnce&) = delete;
    KeptAtOnce& operator=(const KeptAtOnce&) = delete;
};

// The clock that stamps files stands still for a moment: within it a change may not show, which is
// why nothing is kept so soon. To be called before a file is changed that may be kept already.
inline void letTheClockMove() {
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
}

}  // namespace marlowick::test
