// Folders for measurements, and files read and written with nothing around the system's own calls.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick::bench {

// A new folder, gone at the end with all that is in it.
class BenchFolder {
  public:
    BenchFolder();
    ~BenchFolder();
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    std::string of(const std::string& name) const { return (root_ / name).string(); }
    Path path(const std::string& name) const { return Path(of(name)); }
    std::string makeFolder(const std::string& name) const;

  private:
    std::filesystem::path root_;
};

struct Buffer {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::string_view text() const { return {bytes.get(), size}; }
};

// In one call into one buffer. Ends the program if it can't.
Buffer plainRead(const std::string& path);
// In one call, over what stands there.
void plainWrite(const std::string& path, std::string_view content);
// A file that stays open while pieces of it are copied.
class PlainSource {
  public:
    explicit PlainSource(const std::string& path);
    ~PlainSource();
    PlainSource(const PlainSource&) = delete;
    PlainSource& operator=(const PlainSource&) = delete;

    // In blocks, from a position over another file, which isn't cut first: that would make the file
    // system send what it holds to the disk.
    void copyTo(const std::string& target, std::size_t position, std::size_t size,
                std::size_t block, bool flush = false) const;

  private:
    std::string path_;
    int handle_;
};

// The same, with a source that is opened for it.
void plainCopy(const std::string& source, std::size_t position, std::size_t size,
               const std::string& target, std::size_t block, bool flush = false);

// In blocks, from front to back.
void plainReadThrough(const std::string& path, std::size_t block);
// Behind what stands there, which is made if it doesn't exist, and sends it to the disk itself.
void plainAppend(const std::string& path, std::string_view content);
// Sends what was written to the disk itself.
void plainFlush(const std::string& path);

}  // namespace marlowick::bench
