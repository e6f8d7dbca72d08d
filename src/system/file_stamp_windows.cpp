#include <windows.h>

#include <string>

#include "system/file_stamp.h"
#include "system/files.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// From hundreds of nanoseconds since 1601.
std::int64_t nanoseconds(std::int64_t time) {
    constexpr std::int64_t kFrom1601To1970 = 116'444'736'000'000'000;
    return (time - kFrom1601To1970) * 100;
}

// The long form of the full path; empty for one that leads nowhere.
std::wstring nativePath(const Path& path) {
    const std::wstring wide = wideText(path.text());
    constexpr DWORD kLongestPath = 32767;
    std::wstring full(kLongestPath, L'\0');
    const DWORD length = ::GetFullPathNameW(wide.c_str(), kLongestPath, full.data(), nullptr);
    full.resize(length < kLongestPath ? length : 0);
    return longForm(full);
}

std::uint64_t joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32U | low;
}

}  // namespace

std::optional<FileStamp> fileStamp(const Path& path) {
    const std::wstring native = nativePath(files().followLinks(path));
    if (native.empty()) {
        return std::nullopt;
    }
    const HANDLE file = ::CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION whole{};
    FILE_BASIC_INFO times{};
    const bool known =
        ::GetFileInformationByHandle(file, &whole) != 0 &&
        ::GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times) != 0;
    ::CloseHandle(file);
    if (!known || (whole.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::nullopt;
    }
    // A file system that doesn't keep the second time gives zero.
    return FileStamp{static_cast<std::int64_t>(joined(whole.nFileSizeHigh, whole.nFileSizeLow)),
                     nanoseconds(times.LastWriteTime.QuadPart),
                     nanoseconds(times.ChangeTime.QuadPart), whole.dwVolumeSerialNumber,
                     joined(whole.nFileIndexHigh, whole.nFileIndexLow)};
}

}  // namespace marlowick
