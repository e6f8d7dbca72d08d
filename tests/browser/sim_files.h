// Where the sims of a test's game lie.
#pragma once

#include <string>

namespace marlowick::test {

// "user00001.iff" for 1.
std::string simFileName(int number);

// The same file in its neighbourhood, for TestFolder.
std::string simPlace(int number, const std::string& neighbourhood = "UserData");

}  // namespace marlowick::test
