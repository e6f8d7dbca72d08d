// A disk that gives other bytes than it took: of the next new file that is to take an old one's
// name one byte is another when it is read back.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "support/faulty_files.h"

namespace marlowick::test {

class LyingDisk : public FaultyFiles {
  public:
    // place: the byte that is another one, from 0.
    explicit LyingDisk(std::size_t place) : FaultyFiles(0, Fault::Fail), place_(place) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (mode != OpenMode::CreateNew && !lies_ && path.text().ends_with(kNewFileEnding)) {
            lies_ = true;
            std::string content = readWholeFile(path);
            content.at(place_) = static_cast<char>(content.at(place_) ^ 1);
            writeWholeFile(path, content);
        }
        return FaultyFiles::open(path, mode);
    }

  private:
    std::size_t place_;
    bool lies_ = false;
};

}  // namespace marlowick::test
