// A file system that fails at the n-th change it is asked for, or from then on as
// if the machine had stopped: for proving what survives. Looking can be made to fail too.
#pragma once

#include <memory>
#include <optional>
#include <span>

#include "system/files.h"
#include "system/runtime_error.h"

namespace marlowick::test {

// What a disk is asked to do.
enum class Operation {
    OpenToRead,
    OpenToWrite,  // also a file that is made
    Read,
    Write,
    Flush,
    Rename,
    Delete,
    MakeFolder,
    RemoveFolder,
    List,
    Measure,
    ChangeRights,
};

// The numbers of the errors with which a disk can refuse it.
std::span<const int> errorsOf(Operation operation);

class FaultyFiles : public FileSystem {
  public:
    enum class Fault {
        Fail,     // the n-th change raises 57, later ones work
        FailOwn,  // the n-th change raises one of its own errors, later ones work
        Stop,     // the n-th change and all later ones raise 57 and do nothing
    };

    enum class Counted {
        Changes,
        All,  // opening for reading, reading, listing (which then shows nothing) and measuring too
    };

    // Changes count from 1; 0 never fails. number is the error that is raised; with FailOwn it
    // counts the errors of the operation that fails, from 0.
    FaultyFiles(int failAt, Fault fault, int number = error::kDeviceIo,
                Counted counted = Counted::Changes);
    ~FaultyFiles() override;
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    int changes() const { return changes_; }
    // The first operation that has failed.
    std::optional<Operation> failed() const { return failed_; }

    // Raises if this change is due to fail.
    void change(Operation operation);
    // The same for what changes nothing, where that is counted.
    void look(Operation operation);

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override;
    std::vector<FolderEntry> list(const Path& folder) override;
    bool fileExists(const Path& path) override { return under_->fileExists(path); }
    bool folderExists(const Path& path) override { return under_->folderExists(path); }
    std::int64_t length(const Path& path) override;
    void remove(const Path& path) override;
    void makeFolder(const Path& path) override;
    void removeFolder(const Path& path) override;
    bool isReadOnly(const Path& path) override { return under_->isReadOnly(path); }
    void clearAttributes(const Path& path) override;
    void copyAttributes(const Path& source, const Path& target) override;
    Path followLinks(const Path& path) override { return under_->followLinks(path); }
    bool isLink(const Path& path) override { return under_->isLink(path); }
    Path asOnDisk(const Path& path) override { return under_->asOnDisk(path); }
    void rename(const Path& source, const Path& target) override;
    bool moveInOneStep(const Path& source, const Path& target) override;
    bool canWriteInto(const Path& folder) override { return under_->canWriteInto(folder); }

  private:
    FileSystem* under_;
    FileSystem* before_;
    int failAt_;
    Fault fault_;
    int number_;
    Counted counted_;
    int changes_ = 0;
    std::optional<Operation> failed_;
};

}  // namespace marlowick::test
