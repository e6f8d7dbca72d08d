// The file system of Windows. It is blind to letter case by itself, so names go to the system as
// they are written. Paths go in their long form, which knows no limit of 260 characters.

#include <windows.h>
// After windows.h.
#include <aclapi.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "system/files.h"
#include "system/folder_order.h"
#include "system/game_text.h"
#include "system/held_folder.h"
#include "system/one_command.h"
#include "system/runtime_error.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kLongestPath = 32767;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Missing from the headers of mingw-w64.
constexpr DWORD kDiskQuotaExceeded = 1295;

// A virus scanner opens what was just written; it lets go after a moment.
constexpr int kRenameTries = 5;
constexpr DWORD kRenamePause = 40;  // milliseconds

int numberOfSystemError(DWORD code) {
    struct Row {
        DWORD code;
        int number;
    };
    static constexpr std::array<Row, 30> kRows = {{
        {ERROR_FILE_NOT_FOUND, error::kFileNotFound},
        {ERROR_PATH_NOT_FOUND, error::kPathNotFound},
        {ERROR_INVALID_DRIVE, error::kPathNotFound},
        {ERROR_NOT_READY, error::kPathNotFound},
        {ERROR_BAD_NETPATH, error::kPathNotFound},
        {ERROR_BAD_NET_NAME, error::kPathNotFound},
        {ERROR_BAD_PATHNAME, error::kPathNotFound},
        {ERROR_DIRECTORY, error::kPathNotFound},
        {ERROR_TOO_MANY_OPEN_FILES, error::kTooManyFiles},
        {ERROR_ACCESS_DENIED, error::kPathFileAccess},
        {ERROR_WRITE_PROTECT, error::kPathFileAccess},
        {ERROR_NETWORK_ACCESS_DENIED, error::kPathFileAccess},
        {ERROR_CANNOT_MAKE, error::kPathFileAccess},
        {ERROR_PRIVILEGE_NOT_HELD, error::kPathFileAccess},
        {ERROR_SHARING_VIOLATION, error::kPermissionDenied},
        {ERROR_LOCK_VIOLATION, error::kPermissionDenied},
        {ERROR_USER_MAPPED_FILE, error::kPermissionDenied},
        {ERROR_DELETE_PENDING, error::kPermissionDenied},
        {ERROR_BUSY, error::kPermissionDenied},
        {ERROR_FILE_EXISTS, error::kFileAlreadyExists},
        {ERROR_ALREADY_EXISTS, error::kFileAlreadyExists},
        {ERROR_DISK_FULL, error::kDiskFull},
        {ERROR_HANDLE_DISK_FULL, error::kDiskFull},
        {kDiskQuotaExceeded, error::kDiskFull},
        {ERROR_INVALID_NAME, error::kBadFileName},
        {ERROR_FILENAME_EXCED_RANGE, error::kBadFileName},
        {ERROR_NEGATIVE_SEEK, error::kBadRecordNumber},
        {ERROR_NOT_ENOUGH_MEMORY, error::kOutOfMemory},
        {ERROR_OUTOFMEMORY, error::kOutOfMemory},
        {ERROR_NO_SYSTEM_RESOURCES, error::kOutOfMemory},
    }};
    for (const Row& row : kRows) {
        if (row.code == code) {
            return row.number;
        }
    }
    return error::kDeviceIo;
}

[[noreturn]] void fail(DWORD code) {
    throw RuntimeError(numberOfSystemError(code));
}

// The path as the system wants it (longForm). Empty for a path that leads to a device or that the
// system can't read.
std::wstring fullPath(const Path& path) {
    std::wstring wide = wideText(path.text());
    if (wide.find(L'\0') != std::wstring::npos) {
        return {};
    }
    // Not the folder that the drive stands on.
    if (wide.size() == 2 && wide[1] == L':') {
        wide.push_back(L'\\');
    }
    std::wstring full(wide.size() + MAX_PATH, L'\0');
    DWORD length = 0;
    for (;;) {
        length =
            ::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length < full.size()) {
            break;
        }
        full.resize(length);
    }
    full.resize(length);
    return longForm(full);
}

// The same for a path that is going to be opened or changed; 52 where there is none.
std::wstring nativePath(const Path& path) {
    std::wstring native = fullPath(path);
    if (native.empty()) {
        throw RuntimeError(error::kBadFileName);
    }
    return native;
}

// With one backslash between: behind the prefix of a long path the system takes two for a name.
std::wstring inFolder(std::wstring folder, const std::wstring& name) {
    if (!folder.ends_with(L'\\')) {
        folder.push_back(L'\\');
    }
    return folder + name;
}

// Closes what it holds. Empty if the system gave no handle.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (isValid()) {
            ::CloseHandle(handle_);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool isValid() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

HANDLE openHandle(const std::wstring& native, DWORD access, DWORD disposition,
                  DWORD flags = FILE_ATTRIBUTE_NORMAL, DWORD sharing = kShareAll) {
    return ::CreateFileW(native.c_str(), access, sharing, nullptr, disposition, flags, nullptr);
}

struct Status {
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    std::int64_t size = 0;  // bytes

    bool exists() const { return attributes != INVALID_FILE_ATTRIBUTES; }
    bool isFolder() const { return exists() && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    bool isFile() const { return exists() && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0; }
    bool isReadOnly() const { return isFile() && (attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};

std::int64_t joined(DWORD high, DWORD low) {
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(high) << 32U) | low);
}

// What stands at a path, links followed. The last error tells why nothing does.
Status statusOf(const std::wstring& native) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &data) == 0) {
        return {};
    }
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return {data.dwFileAttributes, joined(data.nFileSizeHigh, data.nFileSizeLow)};
    }
    const Handle target(openHandle(native, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!target.isValid() || ::GetFileInformationByHandle(target.get(), &information) == 0) {
        return {};
    }
    return {information.dwFileAttributes,
            joined(information.nFileSizeHigh, information.nFileSizeLow)};
}

// True if another program has the file open, which keeps it from being replaced however much that
// program shares. The system answers a replacement of such a file with "access denied", as it does
// for a lack of rights.
bool isHeldByAnother(const std::wstring& native) {
    const Handle probe(openHandle(native, DELETE, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, 0));
    return !probe.isValid() && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

class WindowsFile : public File {
  public:
    WindowsFile(HANDLE handle, bool writable) : handle_(handle), writable_(writable) {}

    std::size_t read(char* data, std::size_t size) override {
        std::size_t done = 0;
        while (done < size) {
            DWORD count = 0;
            if (::ReadFile(handle_.get(), data + done, portion(size - done), &count, nullptr) ==
                0) {
                fail(::GetLastError());
            }
            if (count == 0) {
                break;
            }
            done += count;
        }
        return done;
    }

    void write(std::string_view data) override {
        if (!writable_) {
            throw RuntimeError(error::kPathFileAccess);
        }
        while (!data.empty()) {
            DWORD count = 0;
            if (::WriteFile(handle_.get(), data.data(), portion(data.size()), &count, nullptr) ==
                0) {
                fail(::GetLastError());
            }
            data.remove_prefix(count);
        }
    }

    void seek(std::int64_t position) override {
        if (position < 0) {
            throw RuntimeError(error::kBadRecordNumber);
        }
        move(position, FILE_BEGIN);
    }

    std::int64_t position() override { return move(0, FILE_CURRENT); }

    std::int64_t size() override {
        LARGE_INTEGER size{};
        if (::GetFileSizeEx(handle_.get(), &size) == 0) {
            fail(::GetLastError());
        }
        return size.QuadPart;
    }

    void flush() override {
        if (writable_ && ::FlushFileBuffers(handle_.get()) == 0) {
            fail(::GetLastError());
        }
    }

    void truncate() {
        if (::SetEndOfFile(handle_.get()) == 0) {
            fail(::GetLastError());
        }
    }

  private:
    // The system counts the bytes of one transfer in 32 bits.
    static DWORD portion(std::size_t size) {
        return static_cast<DWORD>(std::min<std::size_t>(size, 1U << 30U));
    }

    std::int64_t move(std::int64_t distance, DWORD from) {
        LARGE_INTEGER wanted{};
        wanted.QuadPart = distance;
        LARGE_INTEGER reached{};
        if (::SetFilePointerEx(handle_.get(), wanted, &reached, from) == 0) {
            fail(::GetLastError());
        }
        return reached.QuadPart;
    }

    Handle handle_;
    bool writable_;
};

std::unique_ptr<WindowsFile> openFile(const std::wstring& native, DWORD access, DWORD disposition) {
    const HANDLE handle = openHandle(native, access, disposition);
    if (handle == INVALID_HANDLE_VALUE) {
        fail(::GetLastError());
    }
    return std::make_unique<WindowsFile>(handle, (access & GENERIC_WRITE) != 0);
}

// For writing; a file that stands there is emptied. It isn't made anew, since the system refuses
// that for a file with the mark "hidden" or "system".
std::unique_ptr<File> openEmptied(const std::wstring& native) {
    std::unique_ptr<WindowsFile> file = openFile(native, GENERIC_WRITE, OPEN_ALWAYS);
    file->truncate();
    return file;
}

// For reading and writing, or for reading alone where writing isn't allowed.
std::unique_ptr<File> openBinary(const std::wstring& native, bool exists) {
    constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
    const HANDLE handle = openHandle(native, kBoth, OPEN_ALWAYS);
    if (handle != INVALID_HANDLE_VALUE) {
        return std::make_unique<WindowsFile>(handle, true);
    }
    const DWORD code = ::GetLastError();
    if (exists && numberOfSystemError(code) == error::kPathFileAccess) {
        return openFile(native, GENERIC_READ, OPEN_EXISTING);
    }
    fail(code);
}

// Who may do what with a file: the list of rights that the folder above hands down, and those that
// were set by hand. Empty where the system doesn't tell.
class Rights {
  public:
    explicit Rights(std::wstring native) {
        if (::GetNamedSecurityInfoW(native.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                    nullptr, nullptr, &list_, nullptr,
                                    &descriptor_) != ERROR_SUCCESS) {
            descriptor_ = nullptr;
        }
    }
    ~Rights() { ::LocalFree(descriptor_); }
    Rights(const Rights&) = delete;
    Rights& operator=(const Rights&) = delete;

    bool isEmpty() const { return descriptor_ == nullptr; }

    bool operator==(const Rights& other) const {
        return isProtected() == other.isProtected() && bytes() == other.bytes();
    }

    // Only as far as the system allows: a file system without rights has none to give.
    void giveTo(std::wstring native) const {
        const SECURITY_INFORMATION inherit = isProtected() ? PROTECTED_DACL_SECURITY_INFORMATION
                                                           : UNPROTECTED_DACL_SECURITY_INFORMATION;
        ::SetNamedSecurityInfoW(native.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inherit,
                                nullptr, nullptr, list_, nullptr);
    }

  private:
    bool isProtected() const {
        SECURITY_DESCRIPTOR_CONTROL control = 0;
        DWORD revision = 0;
        return !isEmpty() &&
               ::GetSecurityDescriptorControl(descriptor_, &control, &revision) != 0 &&
               (control & SE_DACL_PROTECTED) != 0;
    }

    std::string_view bytes() const {
        return list_ != nullptr
                   ? std::string_view(reinterpret_cast<const char*>(list_), list_->AclSize)
                   : std::string_view();
    }

    PACL list_ = nullptr;
    PSECURITY_DESCRIPTOR descriptor_ = nullptr;
};

// Rights that are the same already stay: Wine makes others of them on their way.
void copyRights(const std::wstring& source, const std::wstring& target) {
    const Rights rights(source);
    if (!rights.isEmpty() && !(rights == Rights(target))) {
        rights.giveTo(target);
    }
}

// A file that bears the read-only mark can't be replaced: for the time of a replacement it bears
// none. It gets its marks back unless it was replaced.
class MarksAside {
  public:
    explicit MarksAside(const std::wstring& native)
        : native_(native), marks_(::GetFileAttributesW(native.c_str())) {
        if (isMarked() && ::SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL) == 0) {
            fail(::GetLastError());
        }
    }
    ~MarksAside() {
        if (isMarked() && !replaced_) {
            ::SetFileAttributesW(native_.c_str(), marks_);
        }
    }
    MarksAside(const MarksAside&) = delete;
    MarksAside& operator=(const MarksAside&) = delete;

    void setReplaced() { replaced_ = true; }

  private:
    bool isMarked() const {
        return marks_ != INVALID_FILE_ATTRIBUTES && (marks_ & FILE_ATTRIBUTE_READONLY) != 0;
    }

    const std::wstring& native_;
    DWORD marks_;
    bool replaced_ = false;
};

// Sends the new name of a file to the disk.
void flushName(const std::wstring& native) {
    const Handle file(openHandle(native, GENERIC_WRITE, OPEN_EXISTING));
    if (file.isValid()) {
        ::FlushFileBuffers(file.get());
    }
}

class WindowsFileSystem : public FileSystem {
  public:
    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        const std::wstring native = nativePath(path);
        const Status status = statusOf(native);
        if (status.isFolder()) {
            throw RuntimeError(error::kPathFileAccess);
        }
        // Not left to the system: for an administrator Wine opens a marked file all the same.
        const bool readOnly = status.isReadOnly();
        switch (mode) {
            case OpenMode::Input:
                return openFile(native, GENERIC_READ, OPEN_EXISTING);
            case OpenMode::Output:
            case OpenMode::Rewrite:
                if (readOnly) {
                    throw RuntimeError(error::kPathFileAccess);
                }
                return openEmptied(native);
            case OpenMode::CreateNew:
            case OpenMode::CreateOwn:
                return openFile(native, GENERIC_WRITE, CREATE_NEW);
            case OpenMode::Binary:
                break;
        }
        return readOnly ? openFile(native, GENERIC_READ, OPEN_EXISTING)
                        : openBinary(native, status.exists());
    }

    std::vector<FolderEntry> list(const Path& folder) override {
        const std::wstring native = fullPath(folder);
        if (native.empty()) {
            return {};
        }
        const std::wstring mask = inFolder(native, L"*");
        WIN32_FIND_DATAW found{};
        const HANDLE search =
            ::FindFirstFileExW(mask.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                               nullptr, FIND_FIRST_EX_LARGE_FETCH);
        std::vector<NativeEntry> entries;
        if (search == INVALID_HANDLE_VALUE) {
            return {};
        }
        do {
            const std::wstring_view name = found.cFileName;
            if (name != L"." && name != L"..") {
                entries.push_back(
                    {utf8Text(name), (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
            }
        } while (::FindNextFileW(search, &found) != 0);
        ::FindClose(search);
        return inFolderOrder(std::move(entries));
    }

    bool fileExists(const Path& path) override { return statusOf(fullPath(path)).isFile(); }

    bool folderExists(const Path& path) override { return statusOf(fullPath(path)).isFolder(); }

    std::int64_t length(const Path& path) override {
        const Status status = statusOf(nativePath(path));
        if (!status.exists()) {
            fail(::GetLastError());
        }
        if (status.isFolder()) {
            throw RuntimeError(error::kFileNotFound);
        }
        return status.size;
    }

    void remove(const Path& path) override {
        const std::wstring native = nativePath(path);
        if (statusOf(native).isFolder()) {
            throw RuntimeError(error::kFileNotFound);
        }
        if (::DeleteFileW(native.c_str()) == 0) {
            fail(::GetLastError());
        }
    }

    void makeFolder(const Path& path) override {
        if (::CreateDirectoryW(nativePath(path).c_str(), nullptr) == 0) {
            const int number = numberOfSystemError(::GetLastError());
            throw RuntimeError(number == error::kPathNotFound || number == error::kBadFileName
                                   ? number
                                   : error::kPathFileAccess);
        }
    }

    void removeFolder(const Path& path) override {
        if (::RemoveDirectoryW(nativePath(path).c_str()) == 0) {
            const DWORD code = ::GetLastError();
            const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
            throw RuntimeError(missing ? error::kPathNotFound : error::kPathFileAccess);
        }
    }

    bool isReadOnly(const Path& path) override { return statusOf(fullPath(path)).isReadOnly(); }

    void clearAttributes(const Path& path) override {
        const std::wstring native = nativePath(path);
        if (statusOf(native).isFile() &&
            ::SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL) == 0) {
            fail(::GetLastError());
        }
    }

    void copyAttributes(const Path& source, const Path& target) override {
        constexpr DWORD kMarks = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                 FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
        const std::wstring from = nativePath(source);
        const std::wstring to = nativePath(target);
        const Status status = statusOf(from);
        if (!status.isFile()) {
            return;
        }
        copyRights(from, to);
        const DWORD marks = status.attributes & kMarks;
        if (::SetFileAttributesW(to.c_str(), marks != 0 ? marks : FILE_ATTRIBUTE_NORMAL) == 0) {
            fail(::GetLastError());
        }
    }

    bool isLink(const Path& path) override {
        const DWORD attributes = ::GetFileAttributesW(fullPath(path).c_str());
        return attributes != INVALID_FILE_ATTRIBUTES &&
               (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    }

    Path followLinks(const Path& path) override {
        const std::wstring native = fullPath(path);
        const DWORD attributes = ::GetFileAttributesW(native.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES ||
            (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
            return path;
        }
        const Handle target(openHandle(native, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
        std::wstring real(kLongestPath, L'\0');
        const DWORD length =
            target.isValid()
                ? ::GetFinalPathNameByHandleW(target.get(), real.data(),
                                              static_cast<DWORD>(real.size()), FILE_NAME_NORMALIZED)
                : 0;
        if (length == 0 || length > real.size()) {
            return path;
        }
        real.resize(length);
        return Path(utf8Text(plainForm(real)));
    }

    void rename(const Path& source, const Path& target) override {
        const std::wstring from = nativePath(source);
        const std::wstring to = nativePath(target);
        MarksAside marks(to);
        for (int left = kRenameTries; left > 0; --left) {
            // Not ReplaceFile: that takes the old file away before the new one has its name.
            if (::MoveFileExW(from.c_str(), to.c_str(),
                              MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
                marks.setReplaced();
                flushName(to);
                return;
            }
            const DWORD code = ::GetLastError();
            const bool held = code == ERROR_SHARING_VIOLATION ||
                              (code == ERROR_ACCESS_DENIED && isHeldByAnother(to));
            if (!held) {
                fail(code);
            }
            ::Sleep(kRenamePause);
        }
        throw RuntimeError(error::kPermissionDenied);
    }

    bool moveInOneStep(const Path& source, const Path& target) override {
        // Without the mark that allows a copy.
        return ::MoveFileExW(nativePath(source).c_str(), nativePath(target).c_str(), 0) != 0;
    }

    bool canWriteInto(const Path& folder) override {
        const std::wstring native = fullPath(folder);
        if (native.empty()) {
            return false;
        }
        const std::wstring probe =
            inFolder(native, L"marlowick-" + std::to_wstring(::GetCurrentProcessId()));
        const Handle file(openHandle(probe, GENERIC_WRITE | DELETE, CREATE_NEW,
                                     FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE));
        return file.isValid();
    }
};

}  // namespace

void keepSystemBoxesAway() {
    ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
}

// NTFS is asked for each name, whatever its case.
HeldFolder::HeldFolder(const Path& /*folder*/) {}
HeldFolder::~HeldFolder() = default;

OneCommand::OneCommand() = default;
OneCommand::~OneCommand() = default;
OneCommand::Pause::Pause() : commands_(0) {}
OneCommand::Pause::~Pause() = default;

FileSystem& nativeFileSystem() {
    static WindowsFileSystem instance;
    return instance;
}

}  // namespace marlowick
