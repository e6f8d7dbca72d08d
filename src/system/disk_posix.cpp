// Mounted file systems in the place of drives.

#include <mntent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <string_view>

#include "system/disk.h"
#include "system/disk_system.h"
#include "system/files.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

// The path as the machine knows it, with links followed.
std::string nativePlace(const Path& path) {
    std::string native = files().followLinks(path).text();
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

Path toPath(std::string native) {
    std::replace(native.begin(), native.end(), '/', '\\');
    return Path(std::move(native));
}

// File systems that hold the machine's inner life and nobody's files.
bool isInner(std::string_view type, std::string_view place) {
    static constexpr std::array<std::string_view, 22> kTypes = {
        "autofs",     "binfmt_misc", "bpf",      "cgroup",   "cgroup2", "configfs",
        "debugfs",    "devpts",      "devtmpfs", "efivarfs", "fusectl", "hugetlbfs",
        "mqueue",     "nsfs",        "overlay",  "proc",     "pstore",  "ramfs",
        "securityfs", "squashfs",    "sysfs",    "tracefs"};
    static constexpr std::array<std::string_view, 5> kPlaces = {"/boot", "/dev", "/proc", "/snap",
                                                                "/sys"};
    const auto lies = [place](std::string_view folder) {
        return place == folder ||
               (place.starts_with(folder) && place.substr(folder.size()).starts_with('/'));
    };
    // Disks that a person plugs in appear below /run/media.
    return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end() ||
           std::any_of(kPlaces.begin(), kPlaces.end(), lies) ||
           (lies("/run") && !lies("/run/media"));
}

bool isNetworkType(std::string_view type) {
    static constexpr std::array<std::string_view, 15> kNetwork = {
        "afs",    "autofs", "ceph", "cifs", "coda",     "davfs", "glusterfs", "gpfs",
        "lustre", "ncpfs",  "nfs",  "nfs4", "orangefs", "smb3",  "smbfs"};
    // Programs that show a disk in another way, and no network.
    static constexpr std::array<std::string_view, 8> kLocalPrograms = {
        "fuse.bindfs",    "fuse.encfs", "fuse.ext2",     "fuse.exfat",
        "fuse.gocryptfs", "fuse.lxcfs", "fuse.mergerfs", "fuse.ntfs-3g"};
    const auto isIn = [type](const auto& list) {
        return std::find(list.begin(), list.end(), type) != list.end();
    };
    return isIn(kNetwork) || (type.starts_with("fuse.") && !isIn(kLocalPrograms));
}

bool isFolderToEnter(const char* place) {
    struct stat status {};
    return ::access(place, R_OK | X_OK) == 0 && ::stat(place, &status) == 0 &&
           S_ISDIR(status.st_mode);
}

}  // namespace

double systemFreeDiskSpace(const Path& root) {
    struct statvfs room {};
    if (::statvfs(nativePlace(root).c_str(), &room) != 0) {
        return 0;
    }
    return static_cast<double>(room.f_bavail) * static_cast<double>(room.f_frsize);
}

// A mount point is where the device changes on the way up.
Path driveRoot(const Path& path) {
    std::string place = nativePlace(path);
    struct stat here {};
    if (::stat(place.c_str(), &here) != 0) {
        return Path("\\");
    }
    while (place.size() > 1) {
        const std::size_t slash = place.rfind('/');
        const std::string above =
            slash == 0 || slash == std::string::npos ? "/" : place.substr(0, slash);
        struct stat status {};
        if (::stat(above.c_str(), &status) != 0 || status.st_dev != here.st_dev) {
            break;
        }
        place = above;
    }
    return toPath(place);
}

std::string driveName(const Path& path) {
    return shownPath(driveRoot(path));
}

std::vector<Path> driveRoots() {
    std::vector<Path> roots = {Path("\\")};
    const std::unique_ptr<FILE, int (*)(FILE*)> table(::setmntent("/proc/self/mounts", "r"),
                                                      ::endmntent);
    if (table == nullptr) {
        return roots;
    }
    while (const mntent* mount = ::getmntent(table.get())) {
        const std::string place = mount->mnt_dir;
        const Path root = toPath(place);
        if (place.find('\\') == std::string::npos && !isInner(mount->mnt_type, place) &&
            isFolderToEnter(mount->mnt_dir) &&
            std::find(roots.begin(), roots.end(), root) == roots.end()) {
            roots.push_back(root);
        }
    }
    return roots;
}

std::vector<Path> fixedDriveRoots() {
    return {};
}

std::vector<Path> remoteMounts(const char* tableFile) {
    // What was mounted last on a place is what stands there.
    std::map<std::string, bool> isNetwork;
    const std::unique_ptr<FILE, int (*)(FILE*)> table(::setmntent(tableFile, "r"), ::endmntent);
    while (const mntent* mount = table != nullptr ? ::getmntent(table.get()) : nullptr) {
        isNetwork[mount->mnt_dir] = isNetworkType(mount->mnt_type);
    }
    std::vector<Path> roots;
    for (const auto& [place, network] : isNetwork) {
        if (network) {
            roots.push_back(toPath(place));
        }
    }
    return roots;
}

std::vector<Path> remoteRoots() {
    return remoteMounts("/proc/self/mounts");
}

}  // namespace marlowick
