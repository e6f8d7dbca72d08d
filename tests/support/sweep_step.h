// How densely a test goes through the points at which a command can fail.
#pragma once

namespace marlowick::test {

// Every point on one system. On Windows, whose tests run under Wine, each operation on a file costs
// many times as much, and the commands are the same: every seventh, so that all kinds have a turn.
#ifdef _WIN32
inline constexpr int kSweepStep = 7;
#else
inline constexpr int kSweepStep = 1;
#endif

}  // namespace marlowick::test
