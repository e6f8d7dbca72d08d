// Small writers of meshes and suits for tests, independent of the program's own readers.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace marlowick::test {

// One byte of length and the text.
std::string counted(const std::string& text);
// 32 bits each, little-endian.
std::string integers(std::initializer_list<int> values);
std::string floats(std::initializer_list<float> values);

// A suit file: its name and the rows of bone and mesh.
std::string suitFile(const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& rows);

}  // namespace marlowick::test
