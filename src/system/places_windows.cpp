#include <windows.h>

#include <string_view>

#include "system/game_text.h"
#include "system/places.h"
#include "system/places_system.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr DWORD kLongestPath = 32767;

// In the long form; empty for a path that leads to a device.
std::wstring fullName(const std::string& path) {
    const std::wstring wide = wideText(path);
    std::wstring full(kLongestPath, L'\0');
    const DWORD length = ::GetFullPathNameW(wide.c_str(), kLongestPath, full.data(), nullptr);
    if (length == 0 || length >= kLongestPath || wide.find(L'\0') != std::wstring::npos) {
        return {};
    }
    full.resize(length);
    return longForm(full);
}

// A folder or file, links followed; asks for nothing but what it is.
class Place {
  public:
    explicit Place(const std::string& path)
        : handle_(::CreateFileW(fullName(path).c_str(), 0,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~Place() {
        if (exists()) {
            ::CloseHandle(handle_);
        }
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    bool exists() const { return handle_ != INVALID_HANDLE_VALUE; }

    std::optional<std::string> path() const {
        std::wstring name(kLongestPath, L'\0');
        const DWORD length =
            exists() ? ::GetFinalPathNameByHandleW(handle_, name.data(), kLongestPath, 0) : 0;
        if (length == 0 || length >= kLongestPath) {
            return std::nullopt;
        }
        name.resize(length);
        return utf8Text(plainForm(name));
    }

    bool isSameAs(const Place& other) const {
        BY_HANDLE_FILE_INFORMATION one{};
        BY_HANDLE_FILE_INFORMATION two{};
        return exists() && other.exists() && ::GetFileInformationByHandle(handle_, &one) != 0 &&
               ::GetFileInformationByHandle(other.handle_, &two) != 0 &&
               one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
               one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
    }

  private:
    HANDLE handle_;
};

bool isLink(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
            entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

class Search {
  public:
    explicit Search(const std::wstring& mask)
        : handle_(::FindFirstFileExW(mask.c_str(), FindExInfoBasic, &found_, FindExSearchNameMatch,
                                     nullptr, 0)) {}
    ~Search() {
        if (isOpen()) {
            ::FindClose(handle_);
        }
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATAW& found() const { return found_; }
    bool next() { return ::FindNextFileW(handle_, &found_) != 0; }

  private:
    WIN32_FIND_DATAW found_{};
    HANDLE handle_;
};

}  // namespace

std::optional<Path> placeOf(const Path& path) {
    const Path full = pathOfText(path.text());
    const Place place(full.text());
    if ((!rootOf(full.text()) && !full.text().starts_with("\\\\")) || !place.exists()) {
        return std::nullopt;
    }
    // Some drives that programs make don't tell.
    return Path(place.path().value_or(full.text()));
}

bool isSamePlace(const Path& left, const Path& right) {
    return Place(left.text()).isSameAs(Place(right.text()));
}

bool isNameToItsEnd(std::string_view gameName) {
    return !gameName.ends_with('.') && !gameName.ends_with(' ');
}

std::optional<std::string> rootOf(const std::string& path) {
    const char letter = path.empty() ? '\0' : upperByte(path[0]);
    if (path.size() < 3 || letter < 'A' || letter > 'Z' || path[1] != ':' || path[2] != '\\') {
        return std::nullopt;
    }
    return std::string{letter, ':'};
}

std::optional<PlaceStep> stepInto(const std::string& folder, const std::string& name) {
    // Here they would find any name.
    if (name.find_first_of("*?\"<>|") != std::string::npos) {
        return std::nullopt;
    }
    const std::string path = folder + "\\" + name;
    const Search search(fullName(path));
    if (!search.isOpen()) {
        return std::nullopt;
    }
    PlaceStep step{utf8Text(search.found().cFileName), std::nullopt};
    if (isLink(search.found())) {
        step.target = Place(path).path();
        if (!step.target) {
            return std::nullopt;
        }
    }
    return step;
}

std::vector<std::string> unorderedNames(const std::string& folder, std::size_t most) {
    std::vector<std::string> names;
    std::wstring full = fullName(folder + "\\");
    if (full.empty()) {
        return names;
    }
    Search search(full + (full.ends_with(L'\\') ? L"*" : L"\\*"));
    for (bool more = search.isOpen(); more && names.size() < most; more = search.next()) {
        const std::wstring_view name = search.found().cFileName;
        if (name != L"." && name != L"..") {
            names.push_back(utf8Text(name));
        }
    }
    return names;
}

}  // namespace marlowick
