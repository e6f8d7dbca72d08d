#include "support/faulty_files.h"

#include <utility>

#include "system/runtime_error.h"

namespace marlowick::test {
namespace {

class FaultyFile : public File {
  public:
    FaultyFile(std::unique_ptr<File> under, FaultyFiles* owner)
        : under_(std::move(under)), owner_(owner) {}

    std::size_t read(char* data, std::size_t size) override {
        owner_->look();
        return under_->read(data, size);
    }
    void write(std::string_view data) override {
        try {
            owner_->change();
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
        owner_->change();
        under_->flush();
    }

  private:
    std::unique_ptr<File> under_;
    FaultyFiles* owner_;
};

}  // namespace

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

void FaultyFiles::change() {
    ++changes_;
    const bool due = fault_ == Fault::Fail ? changes_ == failAt_ : changes_ >= failAt_;
    if (failAt_ > 0 && due) {
        throw RuntimeError(number_);
    }
}

void FaultyFiles::look() {
    if (counted_ == Counted::All) {
        change();
    }
}

std::unique_ptr<File> FaultyFiles::open(const Path& path, OpenMode mode) {
    if (mode == OpenMode::Output || mode == OpenMode::CreateNew || mode == OpenMode::CreateOwn) {
        change();
    } else {
        look();
    }
    return std::make_unique<FaultyFile>(under_->open(path, mode), this);
}

std::vector<FolderEntry> FaultyFiles::list(const Path& folder) {
    try {
        look();
    } catch (const RuntimeError&) {
        return {};
    }
    return under_->list(folder);
}

std::int64_t FaultyFiles::length(const Path& path) {
    look();
    return under_->length(path);
}

void FaultyFiles::remove(const Path& path) {
    change();
    under_->remove(path);
}

void FaultyFiles::makeFolder(const Path& path) {
    change();
    under_->makeFolder(path);
}

void FaultyFiles::removeFolder(const Path& path) {
    change();
    under_->removeFolder(path);
}

void FaultyFiles::clearAttributes(const Path& path) {
    change();
    under_->clearAttributes(path);
}

void FaultyFiles::copyAttributes(const Path& source, const Path& target) {
    change();
    under_->copyAttributes(source, target);
}

void FaultyFiles::rename(const Path& source, const Path& target) {
    change();
    under_->rename(source, target);
}

}  // namespace marlowick::test
