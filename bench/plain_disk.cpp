#include "bench/plain_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace marlowick::bench {
namespace {

namespace fs = std::filesystem;

void check(bool well, const std::string& path) {
    if (!well) {
        std::perror(path.c_str());
        std::abort();
    }
}

int opened(const std::string& path, int flags) {
    const int handle = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    check(handle >= 0, path);
    return handle;
}

void writeAll(int handle, std::string_view content, const std::string& path) {
    const ssize_t written = ::write(handle, content.data(), content.size());
    check(written == static_cast<ssize_t>(content.size()), path);
}

}  // namespace

BenchFolder::BenchFolder() {
    std::string name = (fs::temp_directory_path() / "marlowick-bench-XXXXXX").string();
    check(::mkdtemp(name.data()) != nullptr, name);
    root_ = name;
}

BenchFolder::~BenchFolder() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string BenchFolder::makeFolder(const std::string& name) const {
    fs::create_directories(root_ / name);
    return of(name);
}

Buffer plainRead(const std::string& path) {
    const int handle = opened(path, O_RDONLY);
    struct stat status {};
    check(::fstat(handle, &status) == 0, path);
    Buffer buffer;
    buffer.size = static_cast<std::size_t>(status.st_size);
    buffer.bytes = std::make_unique_for_overwrite<char[]>(buffer.size);
    check(::read(handle, buffer.bytes.get(), buffer.size) == status.st_size, path);
    ::close(handle);
    return buffer;
}

void plainWrite(const std::string& path, std::string_view content) {
    const int handle = opened(path, O_WRONLY | O_CREAT | O_TRUNC);
    writeAll(handle, content, path);
    ::close(handle);
}

PlainSource::PlainSource(const std::string& path) : path_(path), handle_(opened(path, O_RDONLY)) {}

PlainSource::~PlainSource() {
    ::close(handle_);
}

void PlainSource::copyTo(const std::string& target, std::size_t position, std::size_t size,
                         std::size_t block, bool flush) const {
    const int to = opened(target, O_WRONLY | O_CREAT);
    check(::lseek(handle_, static_cast<off_t>(position), SEEK_SET) >= 0, path_);
    const auto buffer = std::make_unique_for_overwrite<char[]>(std::min(block, size));
    while (size > 0) {
        const ssize_t count = ::read(handle_, buffer.get(), std::min(block, size));
        check(count > 0, path_);
        writeAll(to, {buffer.get(), static_cast<std::size_t>(count)}, target);
        size -= static_cast<std::size_t>(count);
    }
    check(!flush || ::fsync(to) == 0, target);
    ::close(to);
}

void plainCopy(const std::string& source, std::size_t position, std::size_t size,
               const std::string& target, std::size_t block, bool flush) {
    PlainSource(source).copyTo(target, position, size, block, flush);
}

void plainReadThrough(const std::string& path, std::size_t block) {
    const int handle = opened(path, O_RDONLY);
    const auto buffer = std::make_unique_for_overwrite<char[]>(block);
    ssize_t count = 1;
    while (count > 0) {
        count = ::read(handle, buffer.get(), block);
    }
    check(count == 0, path);
    ::close(handle);
}

void plainAppend(const std::string& path, std::string_view content) {
    const int handle = opened(path, O_WRONLY | O_CREAT | O_APPEND);
    writeAll(handle, content, path);
    check(::fsync(handle) == 0, path);
    ::close(handle);
}

void plainFlush(const std::string& path) {
    const int handle = opened(path, O_WRONLY);
    check(::fsync(handle) == 0, path);
    ::close(handle);
}

}  // namespace marlowick::bench
