// A game folder and a program folder of a test's own, gone at its end.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick::test {

// Sets ProgramFolder and SimsPath (of a classic game) to fresh folders, the settings to a fresh
// file, and the streams and the error state to their beginnings. Nothing is found of the games,
// shops and programs of the machine that the tests run on.
class TestFolder {
  public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::filesystem::path root() const { return root_; }
    std::filesystem::path game() const { return root_ / "game"; }
    std::filesystem::path program() const { return root_ / "program"; }
    // A path for the program under test; name in UTF-8, with forward slashes.
    Path path(const std::string& name) const;

    // Under root(), in UTF-8 with forward slashes; makes the folders above the file.
    void write(const std::string& name, std::string_view content) const;
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    void makeReadOnly(const std::string& name) const;

  private:
    std::filesystem::path root_;
};

// A bitmap file of one colour, 24 bits a pixel, written by hand.
std::string bitmapFile(int width, int height, unsigned rgb);

}  // namespace marlowick::test
