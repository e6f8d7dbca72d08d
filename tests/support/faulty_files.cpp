#include "support/faulty_files.h"

#include <utility>

#include "system/runtime_error.h"

namespace marlowick::test {
namespace {

constexpr int kOpenToRead[] = {53, 70, 75, 67};
constexpr int kOpenToWrite[] = {75, 70, 61, 76};
constexpr int kRead[] = {57};
constexpr int kWrite[] = {61, 57};
constexpr int kFlush[] = {57, 61};
constexpr int kRename[] = {75, 70, 57};
constexpr int kDelete[] = {75, 70, 53};
constexpr int kMakeFolder[] = {75, 76};
constexpr int kRemoveFolder[] = {75};
constexpr int kList[] = {75};
constexpr int kMeasure[] = {53, 76};
constexpr int kChangeRights[] = {75, 57};

class FaultyFile : public File {
  public:
    FaultyFile(std::unique_ptr<File> under, FaultyFiles* owner)
        : under_(std::move(under)), owner_(owner) {}

    std::size_t read(char* data, std::size_t size) override {
        owner_->look(Operation::Read);
        return under_->read(data, size);
    }
    void write(std::string_view data) override {
        try {
            owner_->change(Operation::Write);
        } catch (...) {
            // What fails in the middle leaves a part behind.
            under_->write(data.substr(0, data.size() / 2));
            throw;
        }
        under_->write(data);
    }
    void seek(std::int64_t position) override { under_->seek(position); }
    std::int64_t position() override { return under_->position(); }
    std::int64_t size() override { return under_->size(); }
    void flush() override {
        owner_->change(Operation::Flush);
        under_->flush();
    }

  private:
    std::unique_ptr<File> under_;
    FaultyFiles* owner_;
};

}  // namespace

std::span<const int> errorsOf(Operation operation) {
    switch (operation) {
        case Operation::OpenToRead:
            return kOpenToRead;
        case Operation::OpenToWrite:
            return kOpenToWrite;
        case Operation::Read:
            return kRead;
        case Operation::Write:
            return kWrite;
        case Operation::Flush:
            return kFlush;
        case Operation::Rename:
            return kRename;
        case Operation::Delete:
            return kDelete;
        case Operation::MakeFolder:
            return kMakeFolder;
        case Operation::RemoveFolder:
            return kRemoveFolder;
        case Operation::List:
            return kList;
        case Operation::Measure:
            return kMeasure;
        case Operation::ChangeRights:
            break;
    }
    return kChangeRights;
}

FaultyFiles::FaultyFiles(int failAt, Fault fault, int number, Counted counted)
    : under_(&nativeFileSystem()),
      before_(setFileSystem(this)),
      failAt_(failAt),
      fault_(fault),
      number_(number),
      counted_(counted) {}

FaultyFiles::~FaultyFiles() {
    setFileSystem(before_);
}

void FaultyFiles::change(Operation operation) {
    ++changes_;
    const bool due = fault_ == Fault::Stop ? changes_ >= failAt_ : changes_ == failAt_;
    if (failAt_ > 0 && due) {
        failed_ = failed_.value_or(operation);
        throw RuntimeError(fault_ == Fault::FailOwn
                               ? errorsOf(operation)[static_cast<std::size_t>(number_)]
                               : number_);
    }
}

void FaultyFiles::look(Operation operation) {
    if (counted_ == Counted::All) {
        change(operation);
    }
}

std::unique_ptr<File> FaultyFiles::open(const Path& path, OpenMode mode) {
    if (mode != OpenMode::Input && mode != OpenMode::Binary) {
        change(Operation::OpenToWrite);
    } else {
        look(Operation::OpenToRead);
    }
    return std::make_unique<FaultyFile>(under_->open(path, mode), this);
}

std::vector<FolderEntry> FaultyFiles::list(const Path& folder) {
    try {
        look(Operation::List);
    } catch (const RuntimeError&) {
        return {};
    }
    return under_->list(folder);
}

std::int64_t FaultyFiles::length(const Path& path) {
    look(Operation::Measure);
    return under_->length(path);
}

void FaultyFiles::remove(const Path& path) {
    change(Operation::Delete);
    under_->remove(path);
}

void FaultyFiles::makeFolder(const Path& path) {
    change(Operation::MakeFolder);
    under_->makeFolder(path);
}

void FaultyFiles::removeFolder(const Path& path) {
    change(Operation::RemoveFolder);
    under_->removeFolder(path);
}

void FaultyFiles::clearAttributes(const Path& path) {
    change(Operation::ChangeRights);
    under_->clearAttributes(path);
}

void FaultyFiles::copyAttributes(const Path& source, const Path& target) {
    change(Operation::ChangeRights);
    under_->copyAttributes(source, target);
}

void FaultyFiles::rename(const Path& source, const Path& target) {
    change(Operation::Rename);
    under_->rename(source, target);
}

bool FaultyFiles::moveInOneStep(const Path& source, const Path& target) {
    change(Operation::Rename);
    return under_->moveInOneStep(source, target);
}

}  // namespace marlowick::test
