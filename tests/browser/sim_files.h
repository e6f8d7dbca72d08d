// Where the sims of a test's game lie.
#pragma once

#include <string>

namespace marlowick::test {

// "user00001.iff" for 1.
std::string simFileName(int number);

// The same file in its neighbourhood, for TestFolder.
std::string simPlace(int number, const std::string& neighbourhood = "UserData");

// A user file that no reader takes: its first segment says that it is shorter than a segment's
// head.
std::string unreadableFile();

}  // namespace marlowick::test
