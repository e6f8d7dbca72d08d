// A file system that refuses one step of the saving of an archive with error 70.
#pragma once

#include <memory>

#include "support/faulty_files.h"
#include "system/runtime_error.h"

namespace marlowick::test {

class RefusedStep : public FaultyFiles {
  public:
    enum Step { RemovingTheTemporaryFile, ReadingBack };
    explicit RefusedStep(Step step) : FaultyFiles(0, Fault::Fail), step_(step) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        refuseIf(step_ == ReadingBack && mode == OpenMode::Binary);
        return FaultyFiles::open(path, mode);
    }
    void remove(const Path& path) override {
        refuseIf(step_ == RemovingTheTemporaryFile && path.fileName() == "tempfile.far");
        FaultyFiles::remove(path);
    }

  private:
    static void refuseIf(bool refused) {
        if (refused) {
            throw RuntimeError(error::kPermissionDenied);
        }
    }

    Step step_;
};

}  // namespace marlowick::test
