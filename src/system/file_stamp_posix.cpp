#include <sys/stat.h>

#include <algorithm>

#include "system/file_stamp.h"
#include "system/files.h"
#include "system/files_posix.h"

namespace marlowick {
namespace {

std::int64_t nanoseconds(const struct timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

bool isThere(const Path& path, struct stat& status) {
    std::string native = path.text();
    std::replace(native.begin(), native.end(), '\\', '/');
    return ::stat(native.c_str(), &status) == 0;
}

}  // namespace

std::optional<FileStamp> fileStamp(const Path& path) {
    struct stat status {};
    // Most paths are written as they stand on the disk: then one look is enough. The file that is
    // opened behind it has to be this one.
    if (isThere(path, status)) {
        openAsItIsWritten(path);
    } else if (!isThere(files().followLinks(path), status)) {
        return std::nullopt;
    }
    if (S_ISDIR(status.st_mode)) {
        return std::nullopt;
    }
    return FileStamp{status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim),
                     status.st_dev, status.st_ino};
}

}  // namespace marlowick
