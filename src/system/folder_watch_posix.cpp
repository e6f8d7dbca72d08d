#include "system/folder_watch_posix.h"

#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace marlowick {
namespace {

constexpr std::uint32_t kAppeared = IN_CREATE | IN_MOVED_TO;
// Two names that are exchanged are told of as one renaming there and one back: the name that the
// second leaves still stands there. So a name that is moved away isn't taken for gone.
constexpr std::uint32_t kGone = IN_DELETE;

// Missing from the headers.
constexpr std::uint32_t kNtfs = 0x7366746E;
constexpr std::uint32_t kZfs = 0x2FC12FC1;

bool isToldOf(int folderHandle) {
    struct statfs status {};
    return ::fstatfs(folderHandle, &status) == 0 &&
           tellsOfChanges(static_cast<std::uint32_t>(status.f_type));
}

}  // namespace

// Neither network folders nor the file systems of sticks and cards, which other machines write.
bool tellsOfChanges(std::uint32_t fileSystem) {
    static constexpr std::array<std::uint32_t, 8> kTelling = {EXT4_SUPER_MAGIC,
                                                              XFS_SUPER_MAGIC,
                                                              BTRFS_SUPER_MAGIC,
                                                              F2FS_SUPER_MAGIC,
                                                              TMPFS_MAGIC,
                                                              OVERLAYFS_SUPER_MAGIC,
                                                              kNtfs,
                                                              kZfs};
    return std::find(kTelling.begin(), kTelling.end(), fileSystem) != kTelling.end();
}

FolderWatch::FolderWatch() : handle_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FolderWatch::~FolderWatch() {
    if (handle_ >= 0) {
        ::close(handle_);
    }
}

std::optional<int> FolderWatch::add(int folderHandle) {
    if (handle_ < 0 || !isToldOf(folderHandle)) {
        return std::nullopt;
    }
    // By its handle, as another folder may bear its name by now.
    const std::string folder = "/proc/self/fd/" + std::to_string(folderHandle);
    const int number = ::inotify_add_watch(handle_, folder.c_str(), kAppeared | kGone | IN_ONLYDIR);
    return number >= 0 ? std::optional<int>(number) : std::nullopt;
}

void FolderWatch::remove(int number) {
    ::inotify_rm_watch(handle_, number);
}

std::optional<std::vector<FolderWatch::Change>> FolderWatch::changes() {
    std::vector<Change> changes;
    std::array<char, 16384> buffer{};
    for (;;) {
        const ssize_t size = ::read(handle_, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size <= 0) {
            return size < 0 && errno == EAGAIN ? std::optional(std::move(changes)) : std::nullopt;
        }
        for (std::size_t start = 0; start < static_cast<std::size_t>(size);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + start, sizeof(event));
            const char* name = buffer.data() + start + sizeof(event);
            start += sizeof(event) + event.len;
            if ((event.mask & IN_Q_OVERFLOW) != 0) {
                return std::nullopt;
            }
            if ((event.mask & IN_IGNORED) != 0) {
                changes.push_back({event.wd, Change::Kind::Ended, {}});
            } else if ((event.mask & (kAppeared | kGone)) != 0 && event.len > 0) {
                const bool appeared = (event.mask & kAppeared) != 0;
                changes.push_back(
                    {event.wd, appeared ? Change::Kind::Appeared : Change::Kind::Gone, name});
            }
        }
    }
}

}  // namespace marlowick
