// The file system of Linux and its kin. It looks names up without regard to
// letter case, as the game's own platform does, and takes the owner's write
// permission for the read-only mark.

#include "system/files_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <set>
#include <utility>

#include "system/files.h"
#include "system/folder_names_posix.h"
#include "system/folder_order.h"
#include "system/held_folder.h"
#include "system/one_command.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

std::string nativeText(const Path& path) {
    std::string native = path.text();
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

bool isFolderAt(const std::string& native) {
    struct stat status {};
    return ::stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isPresent(const std::string& native) {
    struct stat status {};
    return ::lstat(native.c_str(), &status) == 0;
}

std::vector<NativeEntry> readFolder(const std::string& native) {
    std::vector<NativeEntry> entries;
    DIR* handle = ::opendir(native.c_str());
    if (handle == nullptr) {
        return entries;
    }
    while (const dirent* entry = ::readdir(handle)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..") {
            continue;
        }
        const bool unsure = entry->d_type == DT_UNKNOWN || entry->d_type == DT_LNK;
        const bool folder = unsure ? isFolderAt(native + "/" + name) : entry->d_type == DT_DIR;
        entries.push_back({name, folder});
    }
    ::closedir(handle);
    return entries;
}

FolderNames& folderNames() {
    static FolderNames names;
    return names;
}

// The folder that a path of this command led to last: as it is written, and as it stands on the
// disk. Empty if none did, or if it is the same. Both end in a slash.
struct KnownFolder {
    std::string written;
    std::string native;

    bool holds(std::string_view path) const {
        return !written.empty() && path.starts_with(written) &&
               path.find('/', written.size()) == std::string_view::npos;
    }
    // Another program may meanwhile have moved it, or made one that stands there as it is written.
    bool stillLeadsThere() const { return !isPresent(written) && isPresent(native); }
};

KnownFolder& knownFolder() {
    static KnownFolder folder;
    return folder;
}

// Commands begin, end and pause with this, and so does whatever may lead paths elsewhere.
void forgetKnownFolder() {
    knownFolder() = {};
}

void flushFolder(const std::string& folder) {
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
}

// The folders in which files of this command took new names. A name is to last as the bytes do; one
// that the machine loses before that leaves the old file there, whole, so once a command will do.
std::set<std::string>& renamedIn() {
    static std::set<std::string> folders;
    return folders;
}

void flushLater(const std::string& folder) {
    if (folderNames().commands() > 0) {
        renamedIn().insert(folder);
    } else {
        flushFolder(folder);
    }
}

void setCommands(int commands) {
    forgetKnownFolder();
    folderNames().setCommands(commands);
    if (commands == 0) {
        std::for_each(renamedIn().begin(), renamedIn().end(), flushFolder);
        renamedIn().clear();
    }
}

// A name under which the piece of a path can be opened in a folder, which ends in a slash.
std::string openableName(const std::string& folder, const std::string& piece) {
    return isPresent(folder + piece) ? piece : folderNames().find(folder, piece);
}

// The name as it is spelled in the folder; one that may not be listed can still be entered.
std::string spelledName(const std::string& folder, const std::string& piece) {
    const std::string name = folderNames().find(folder, piece);
    return name.empty() && isPresent(folder + piece) ? piece : name;
}

// The path with the name of each piece. Pieces that don't exist stay as they are written.
std::string named(const std::string& native,
                  std::string (*nameOf)(const std::string& folder, const std::string& piece)) {
    std::string found = native.starts_with('/') ? "/" : "";
    std::size_t start = 0;
    bool missing = false;
    while (start < native.size()) {
        const std::size_t slash = std::min(native.find('/', start), native.size());
        const std::string piece = native.substr(start, slash - start);
        start = slash + 1;
        if (piece.empty()) {
            continue;
        }
        const std::string name = missing ? std::string() : nameOf(found, piece);
        missing = name.empty();
        found += missing ? piece : name;
        if (start <= native.size()) {
            found += '/';
        }
    }
    return found;
}

// What of a path was found, and whether that is all of it. What wasn't found stays as it is
// written.
struct Resolved {
    std::string native;
    bool isThere = false;
};

Resolved resolveFromEnd(const std::string& native);

// folder ends in a slash, if it isn't the working one.
Resolved resolveFolder(const std::string& folder) {
    if (folder.empty()) {
        return {"", true};
    }
    KnownFolder& known = knownFolder();
    if (folder == known.written) {
        if (known.stillLeadsThere()) {
            return {known.native, true};
        }
        forgetKnownFolder();
    }
    Resolved found = resolveFromEnd(folder);
    if (found.isThere && found.native != folder && folderNames().commands() > 0) {
        known = {folder, found.native};
    }
    return found;
}

// By the folder. isAbsent: it is known already that nothing stands under the path as it is written.
Resolved resolveInFolder(const std::string& native, bool isAbsent) {
    const std::size_t end = native.find_last_not_of('/');
    if (end == std::string::npos) {
        return {native, false};
    }
    const std::size_t slash = native.rfind('/', end);
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::string rest = native.substr(end + 1);
    const std::string written = native.substr(0, start);
    const std::string piece = native.substr(start, end + 1 - start);
    Resolved folder = resolveFolder(written);
    std::string name;
    if (folder.isThere) {
        name = isAbsent && folder.native == written ? folderNames().find(written, piece)
                                                    : openableName(folder.native, piece);
    }
    return {folder.native + (name.empty() ? piece : name) + rest, !name.empty()};
}

// From the end, as most folders stand there as they are written.
Resolved resolveFromEnd(const std::string& native) {
    const bool isLookedFor = !knownFolder().holds(native);
    if (isLookedFor && isPresent(native)) {
        return {native, true};
    }
    return resolveInFolder(native, isLookedFor);
}

// The path as the machine wants it.
std::string resolve(const Path& path) {
    std::string native = nativeText(path);
    const std::size_t lastSlash = native.rfind('/');
    if (native.ends_with(kNewFileEnding) && lastSlash != std::string::npos) {
        return isPresent(native) ? native
                                 : resolveFolder(native.substr(0, lastSlash + 1)).native +
                                       native.substr(lastSlash + 1);
    }
    return resolveFromEnd(native).native;
}

// The same, with the last piece as it is written.
std::string resolveOwn(const Path& path) {
    const std::string native = nativeText(path);
    const std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? native : resolve(path.folder()) + native.substr(slash);
}

int numberOfErrno(int code) {
    struct Row {
        int code;
        int number;
    };
    static constexpr std::array<Row, 13> kRows = {{
        {ENOENT, error::kFileNotFound},
        {ENOTDIR, error::kPathNotFound},
        {EACCES, error::kPathFileAccess},
        {EPERM, error::kPathFileAccess},
        {EROFS, error::kPathFileAccess},
        {EISDIR, error::kPathFileAccess},
        {EEXIST, error::kFileAlreadyExists},
        {ENOSPC, error::kDiskFull},
        {EDQUOT, error::kDiskFull},
        {EMFILE, error::kTooManyFiles},
        {ETXTBSY, error::kPermissionDenied},
        {EBUSY, error::kPermissionDenied},
        {ENAMETOOLONG, error::kBadFileName},
    }};
    for (const Row& row : kRows) {
        if (row.code == code) {
            return row.number;
        }
    }
    return error::kDeviceIo;
}

[[noreturn]] void fail(int code, const std::string& native) {
    if (code == ENOENT) {
        const std::size_t slash = native.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : native.substr(0, slash + 1);
        throw RuntimeError(isFolderAt(folder) ? error::kFileNotFound : error::kPathNotFound);
    }
    throw RuntimeError(numberOfErrno(code));
}

bool hasReadOnlyMark(const struct stat& status) {
    return (status.st_mode & S_IWUSR) == 0;
}

class PosixFile : public File {
  public:
    PosixFile(int handle, bool writable) : handle_(handle), writable_(writable) {}
    ~PosixFile() override {
        if (isCutAtEnd_ && ::ftruncate(handle_, ::lseek(handle_, 0, SEEK_CUR)) != 0) {
            errno = 0;
        }
        ::close(handle_);
    }
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;

    std::size_t read(char* data, std::size_t size) override {
        std::size_t done = 0;
        while (done < size) {
            const ssize_t count = ::read(handle_, data + done, size - done);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                throw RuntimeError(numberOfErrno(errno));
            }
            if (count == 0) {
                break;
            }
            done += static_cast<std::size_t>(count);
        }
        return done;
    }

    void write(std::string_view data) override {
        if (!writable_) {
            throw RuntimeError(error::kPathFileAccess);
        }
        sizeAtOpening_.reset();
        while (!data.empty()) {
            const ssize_t count = ::write(handle_, data.data(), data.size());
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                throw RuntimeError(numberOfErrno(errno));
            }
            data.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void seek(std::int64_t position) override {
        if (position < 0) {
            throw RuntimeError(error::kBadRecordNumber);
        }
        if (::lseek(handle_, position, SEEK_SET) < 0) {
            throw RuntimeError(error::kDeviceIo);
        }
    }

    std::int64_t position() override { return ::lseek(handle_, 0, SEEK_CUR); }

    std::int64_t size() override {
        if (const auto known = std::exchange(sizeAtOpening_, std::nullopt)) {
            return *known;
        }
        struct stat status {};
        if (::fstat(handle_, &status) != 0) {
            throw RuntimeError(error::kDeviceIo);
        }
        return status.st_size;
    }

    void refuseWriting() { writable_ = false; }
    // Answers the first question for the size: most files are opened to be read whole.
    void setSizeAtOpening(std::int64_t size) { sizeAtOpening_ = size; }
    // What lies behind the last position goes when the file is closed.
    void cutAtEnd() { isCutAtEnd_ = true; }

    void flush() override {
        if (::fsync(handle_) != 0) {
            throw RuntimeError(numberOfErrno(errno));
        }
    }

  private:
    int handle_;
    std::optional<std::int64_t> sizeAtOpening_;
    bool writable_;
    bool isCutAtEnd_ = false;
};

class PosixFileSystem : public FileSystem {
  public:
    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (mode == OpenMode::CreateOwn) {
            return make(resolveOwn(path), O_WRONLY | O_CREAT | O_EXCL, true);
        }
        if (mode == OpenMode::Input || mode == OpenMode::Binary) {
            std::unique_ptr<File> file = openAsWritten(path, mode);
            if (file != nullptr) {
                return file;
            }
        }
        const std::string native = resolve(path);
        struct stat status {};
        const bool exists = ::stat(native.c_str(), &status) == 0;
        if (exists && !S_ISREG(status.st_mode)) {
            throw RuntimeError(error::kPathFileAccess);
        }
        const bool readOnly = exists && hasReadOnlyMark(status);
        switch (mode) {
            case OpenMode::Input:
                return make(native, O_RDONLY, false);
            case OpenMode::Output:
                if (readOnly) {
                    throw RuntimeError(error::kPathFileAccess);
                }
                return make(native, O_WRONLY | O_CREAT | O_TRUNC, true);
            case OpenMode::Rewrite: {
                if (readOnly) {
                    throw RuntimeError(error::kPathFileAccess);
                }
                std::unique_ptr<PosixFile> file = make(native, O_WRONLY | O_CREAT, true);
                file->cutAtEnd();
                return file;
            }
            case OpenMode::CreateNew:
                return make(native, O_WRONLY | O_CREAT | O_EXCL, true);
            case OpenMode::CreateOwn:
            case OpenMode::Binary:
                break;
        }
        if (!exists) {
            return make(native, O_RDWR | O_CREAT, true);
        }
        if (!readOnly) {
            const int handle = ::open(native.c_str(), O_RDWR | O_CLOEXEC);
            if (handle >= 0) {
                return std::make_unique<PosixFile>(handle, true);
            }
            if (errno != EACCES && errno != EROFS && errno != EPERM && errno != ETXTBSY) {
                fail(errno, native);
            }
        }
        return make(native, O_RDONLY, false);
    }

    std::vector<FolderEntry> list(const Path& folder) override {
        return inFolderOrder(readFolder(resolve(folder)));
    }

    bool fileExists(const Path& path) override {
        const Resolved found = resolveFromEnd(nativeText(path));
        struct stat status {};
        return found.isThere && ::stat(found.native.c_str(), &status) == 0 &&
               !S_ISDIR(status.st_mode);
    }

    bool folderExists(const Path& path) override { return isFolderAt(resolve(path)); }

    std::int64_t length(const Path& path) override {
        const std::string native = resolve(path);
        struct stat status {};
        if (::stat(native.c_str(), &status) != 0) {
            fail(errno, native);
        }
        if (S_ISDIR(status.st_mode)) {
            throw RuntimeError(error::kFileNotFound);
        }
        return status.st_size;
    }

    void remove(const Path& path) override {
        const std::string native = resolve(path);
        struct stat status {};
        if (::stat(native.c_str(), &status) == 0) {
            if (S_ISDIR(status.st_mode)) {
                throw RuntimeError(error::kFileNotFound);
            }
            if (hasReadOnlyMark(status)) {
                throw RuntimeError(error::kPathFileAccess);
            }
        }
        if (::unlink(native.c_str()) != 0) {
            fail(errno, native);
        }
    }

    void makeFolder(const Path& path) override {
        const std::string native = resolve(path);
        forgetKnownFolder();
        if (::mkdir(native.c_str(), 0777) != 0) {
            throw RuntimeError(errno == ENOENT ? error::kPathNotFound : error::kPathFileAccess);
        }
        folderNames().added(native);
    }

    void removeFolder(const Path& path) override {
        const std::string native = resolve(path);
        forgetKnownFolder();
        if (::rmdir(native.c_str()) != 0) {
            throw RuntimeError(errno == ENOENT ? error::kPathNotFound : error::kPathFileAccess);
        }
    }

    bool isReadOnly(const Path& path) override {
        struct stat status {};
        return ::stat(resolve(path).c_str(), &status) == 0 && hasReadOnlyMark(status);
    }

    void clearAttributes(const Path& path) override {
        const std::string native = resolve(path);
        struct stat status {};
        if (::stat(native.c_str(), &status) == 0 && hasReadOnlyMark(status) &&
            ::chmod(native.c_str(), (status.st_mode & 07777U) | S_IWUSR) != 0) {
            fail(errno, native);
        }
    }

    void copyAttributes(const Path& source, const Path& target) override {
        struct stat status {};
        const std::string native = resolve(target);
        if (::stat(resolve(source).c_str(), &status) != 0) {
            return;
        }
        // The owner can be kept by a superuser alone; for anybody else it is the same already.
        if (::chown(native.c_str(), status.st_uid, status.st_gid) != 0) {
            errno = 0;
        }
        if (::chmod(native.c_str(), status.st_mode & 07777U) != 0) {
            fail(errno, native);
        }
    }

    Path followLinks(const Path& path) override {
        std::array<char, PATH_MAX> buffer{};
        const char* real = ::realpath(resolve(path).c_str(), buffer.data());
        if (real == nullptr) {
            return path;
        }
        std::string text = real;
        std::replace(text.begin(), text.end(), '/', '\\');
        return Path(text);
    }

    bool isLink(const Path& path) override {
        const std::string native = nativeText(path);
        struct stat status {};
        if (::lstat(native.c_str(), &status) == 0) {
            return S_ISLNK(status.st_mode);
        }
        const Resolved found = resolveInFolder(native, true);
        return found.isThere && ::lstat(found.native.c_str(), &status) == 0 &&
               S_ISLNK(status.st_mode);
    }

    Path asOnDisk(const Path& path) override {
        std::string text = named(nativeText(path), spelledName);
        std::replace(text.begin(), text.end(), '/', '\\');
        return Path(text);
    }

    void rename(const Path& source, const Path& target) override {
        const std::string to = resolve(target);
        if (std::rename(resolve(source).c_str(), to.c_str()) != 0) {
            fail(errno, to);
        }
        folderNames().added(to);
        const std::size_t slash = to.rfind('/');
        flushLater(slash == std::string::npos ? "." : to.substr(0, slash + 1));
    }

    bool moveInOneStep(const Path& source, const Path& target) override {
        const std::string to = resolve(target);
        if (std::rename(resolve(source).c_str(), to.c_str()) != 0) {
            return false;
        }
        folderNames().added(to);
        return true;
    }

    bool canWriteInto(const Path& folder) override {
        return ::access(resolve(folder).c_str(), W_OK | X_OK) == 0;
    }

  private:
    // Most files stand there as the path is written, or in the folder that it led to before, and
    // may be opened: then there is one walk to them. Nothing if this one doesn't. A pipe without
    // anybody at its other end isn't waited for.
    static std::unique_ptr<File> openAsWritten(const Path& path, OpenMode mode) {
        const int access = mode == OpenMode::Input ? O_RDONLY : O_RDWR;
        std::string native = nativeText(path);
        const KnownFolder& known = knownFolder();
        if (known.holds(native)) {
            native.replace(0, known.written.size(), known.native);
        }
        const int handle = ::open(native.c_str(), access | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (handle < 0) {
            return nullptr;
        }
        auto file = std::make_unique<PosixFile>(handle, mode == OpenMode::Binary);
        struct stat status {};
        if (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
            throw RuntimeError(error::kPathFileAccess);
        }
        if (hasReadOnlyMark(status)) {
            file->refuseWriting();
        }
        file->setSizeAtOpening(status.st_size);
        return file;
    }

    static std::unique_ptr<PosixFile> make(const std::string& native, int flags, bool writable) {
        const int handle = ::open(native.c_str(), flags | O_CLOEXEC, 0666);
        if (handle < 0) {
            fail(errno, native);
        }
        if ((flags & O_CREAT) != 0) {
            folderNames().added(native);
        }
        return std::make_unique<PosixFile>(handle, writable);
    }
};

}  // namespace

void openAsItIsWritten(const Path& path) {
    if (knownFolder().holds(nativeText(path))) {
        forgetKnownFolder();
    }
}

void keepSystemBoxesAway() {}

HeldFolder::HeldFolder(const Path& folder) {
    folderNames().hold(resolve(folder));
}

HeldFolder::~HeldFolder() {
    folderNames().release();
}

OneCommand::OneCommand() {
    setCommands(folderNames().commands() + 1);
}

OneCommand::~OneCommand() {
    setCommands(folderNames().commands() - 1);
}

OneCommand::Pause::Pause() : commands_(folderNames().commands()) {
    setCommands(0);
}

OneCommand::Pause::~Pause() {
    setCommands(commands_);
}

FileSystem& nativeFileSystem() {
    static PosixFileSystem instance;
    return instance;
}

}  // namespace marlowick
