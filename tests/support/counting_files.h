// A file system that notes what is read and written through it.
#pragma once

#include <algorithm>
#include <memory>
#include <utility>

#include "support/faulty_files.h"

namespace marlowick::test {

struct Traffic {
    std::size_t reads = 0;
    std::size_t largestRead = 0;
    std::size_t bytesRead = 0;
    std::size_t writes = 0;
    std::size_t largestWrite = 0;
};

class CountedFile : public File {
  public:
    CountedFile(std::unique_ptr<File> under, Traffic* traffic)
        : under_(std::move(under)), traffic_(traffic) {}

    std::size_t read(char* data, std::size_t size) override {
        ++traffic_->reads;
        traffic_->largestRead = std::max(traffic_->largestRead, size);
        traffic_->bytesRead += size;
        return under_->read(data, size);
    }
    void write(std::string_view data) override {
        ++traffic_->writes;
        traffic_->largestWrite = std::max(traffic_->largestWrite, data.size());
        under_->write(data);
    }
    void seek(std::int64_t position) override { under_->seek(position); }
    std::int64_t position() override { return under_->position(); }
    std::int64_t size() override { return under_->size(); }
    void flush() override { under_->flush(); }

  private:
    std::unique_ptr<File> under_;
    Traffic* traffic_;
};

class CountingFiles : public FaultyFiles {
  public:
    CountingFiles() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        return std::make_unique<CountedFile>(FaultyFiles::open(path, mode), &traffic);
    }

    Traffic traffic;
};

}  // namespace marlowick::test
