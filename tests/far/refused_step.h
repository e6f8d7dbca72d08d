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
        const bool isTarget = !path.fileName().ends_with(kNewFileEnding);
        refuseIf(step_ == ReadingBack && mode == OpenMode::Binary && isTarget);
        return FaultyFiles::open(path, mode);
    }
    // As if the temporary file lay on another disk: else it takes the archive's name, and there is
    // none to remove.
    bool moveInOneStep(const Path& source, const Path& target) override {
        return step_ != RemovingTheTemporaryFile && FaultyFiles::moveInOneStep(source, target);
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
