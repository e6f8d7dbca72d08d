// The drives of Windows.

#include <windows.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "system/disk.h"
#include "system/disk_system.h"
#include "system/files.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

UINT typeOf(const Path& root) {
    return ::GetDriveTypeW(wideText(root.text()).c_str());
}

std::vector<Path> drivesWhere(const std::function<bool(const Path& root)>& isWanted) {
    std::vector<Path> roots;
    const DWORD drives = ::GetLogicalDrives();
    for (unsigned letter = 0; letter < 26; ++letter) {
        const Path root(std::string(1, static_cast<char>('A' + letter)) + ":\\");
        if ((drives >> letter & 1U) != 0 && isWanted(root)) {
            roots.push_back(root);
        }
    }
    return roots;
}

}  // namespace

double systemFreeDiskSpace(const Path& root) {
    ULARGE_INTEGER available{};
    if (::GetDiskFreeSpaceExA(ansiText(root.text()).c_str(), &available, nullptr, nullptr) == 0) {
        return 0;
    }
    constexpr double kHighWord = 4294967296.0;
    return available.HighPart * kHighWord + available.LowPart;
}

Path driveRoot(const Path& path) {
    std::string root = path.text().substr(0, 3);
    // A folder may have been typed with slashes.
    std::replace(root.begin(), root.end(), '/', '\\');
    return Path(root);
}

std::string driveName(const Path& path) {
    return path.text().substr(0, 2);
}

std::vector<Path> driveRoots() {
    // A drive without a disk in it can't be reached.
    return drivesWhere([](const Path& root) { return files().folderExists(root); });
}

std::vector<Path> fixedDriveRoots() {
    return drivesWhere([](const Path& root) { return typeOf(root) == DRIVE_FIXED; });
}

std::vector<Path> remoteRoots() {
    return drivesWhere([](const Path& root) {
        const UINT type = typeOf(root);
        return type != DRIVE_FIXED && type != DRIVE_REMOVABLE && type != DRIVE_RAMDISK;
    });
}

}  // namespace marlowick
