#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <utility>

#include "system/files.h"
#include "system/folder_order.h"
#include "system/places.h"
#include "system/places_system.h"

namespace marlowick {
namespace {

std::string nativeText(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::optional<struct stat> statusOf(const Path& path) {
    struct stat status {};
    const std::string native = nativeText(files().followLinks(path).text());
    return ::stat(native.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

// The name of the folder's entry that equals the wanted one but for letter case.
std::string nameIgnoringCase(const std::string& folder, const std::string& wanted) {
    const std::u16string folded = foldedName(wanted);
    std::string best;
    for (const std::string& name : unorderedNames(folder, kMostEntries)) {
        if (foldedName(name) == folded && (best.empty() || name < best)) {
            best = name;
        }
    }
    return best;
}

std::optional<std::string> targetOf(const std::string& link) {
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = ::readlink(link.c_str(), buffer.data(), buffer.size());
    if (length <= 0 || static_cast<std::size_t>(length) == buffer.size()) {
        return std::nullopt;
    }
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::optional<Path> placeOf(const Path& path) {
    const std::string& text = path.text();
    const bool isFull = text.starts_with('\\') || text.starts_with('/');
    if (!isFull || text.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    Path place = files().followLinks(path);
    struct stat status {};
    return ::stat(nativeText(place.text()).c_str(), &status) == 0 ? std::optional(std::move(place))
                                                                  : std::nullopt;
}

bool isSamePlace(const Path& left, const Path& right) {
    const std::optional<struct stat> one = statusOf(left);
    const std::optional<struct stat> other = statusOf(right);
    return one && other && one->st_dev == other->st_dev && one->st_ino == other->st_ino;
}

bool isNameToItsEnd(std::string_view /*gameName*/) {
    return true;
}

std::optional<std::string> rootOf(const std::string& path) {
    return path.starts_with('\\') ? std::optional<std::string>("") : std::nullopt;
}

std::optional<PlaceStep> stepInto(const std::string& folder, const std::string& name) {
    const std::string native = nativeText(folder) + "/";
    PlaceStep step{name, std::nullopt};
    struct stat status {};
    if (::lstat((native + name).c_str(), &status) != 0) {
        step.name = nameIgnoringCase(folder, name);
        if (step.name.empty() || ::lstat((native + step.name).c_str(), &status) != 0) {
            return std::nullopt;
        }
    }
    if (S_ISLNK(status.st_mode)) {
        step.target = targetOf(native + step.name);
        if (!step.target) {
            return std::nullopt;
        }
    }
    return step;
}

std::vector<std::string> unorderedNames(const std::string& folder, std::size_t most) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> handle(::opendir((nativeText(folder) + "/").c_str()),
                                                     ::closedir);
    while (handle != nullptr && names.size() < most) {
        const dirent* entry = ::readdir(handle.get());
        if (entry == nullptr) {
            break;
        }
        const std::string name = entry->d_name;
        // A backslash in a name parts folders in this program's paths.
        if (name != "." && name != ".." && name.find('\\') == std::string::npos) {
            names.push_back(name);
        }
    }
    return names;
}

}  // namespace marlowick
