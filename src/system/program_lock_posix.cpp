#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "system/program_lock.h"

namespace marlowick {
namespace {

// The folder itself, open and locked.
class FolderLock : public ProgramLock {
  public:
    explicit FolderLock(int handle) : handle_(handle) {}
    ~FolderLock() override { ::close(handle_); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    int handle_;
};

}  // namespace

LockedFolder lockFolder(const Path& folder) {
    std::string native = folder.text();
    std::replace(native.begin(), native.end(), '\\', '/');
    const int handle = ::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) {
        return {};
    }
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0) {
        return {LockAnswer::Taken, std::make_unique<FolderLock>(handle)};
    }
    const bool isHeld = errno == EWOULDBLOCK;
    ::close(handle);
    return {isHeld ? LockAnswer::HeldByOther : LockAnswer::NoLock, nullptr};
}

}  // namespace marlowick
