#include "system/folder_names_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "system/folder_order.h"

namespace marlowick {
namespace {

// What is kept at most, beside the folder that a command holds.
constexpr std::size_t kMostFolders = 8;
constexpr std::size_t kMostNames = 200000;

std::string inFolder(const std::string& folder, const std::string& name) {
    return folder.empty() || folder.ends_with('/') ? folder + name : folder + "/" + name;
}

}  // namespace

std::string FolderNames::find(const std::string& folder, const std::string& wanted) {
    // Which folder it is comes first: if it is another one by now, that is among the changes.
    const std::optional<Identity> identity = identify(folder);
    if (!identity) {
        return {};
    }
    takeChanges();
    const Place place = kept(*identity);
    if (place != folders_.end()) {
        std::string name = lookUp(*place, wanted);
        struct stat status {};
        if (name.empty() || ::lstat(inFolder(folder, name).c_str(), &status) == 0) {
            return name;
        }
        drop(place);
    }
    std::optional<Folder> names = read(folder);
    if (!names) {
        return {};
    }
    std::string name = lookUp(*names, wanted);
    keep(std::move(*names));
    return name;
}

void FolderNames::hold(const std::string& folder) {
    held_ = folder.empty() ? std::nullopt : identify(folder);
}

void FolderNames::release() {
    held_.reset();
    folders_.remove_if([](const Folder& folder) { return !folder.watch; });
}

void FolderNames::added(const std::string& native) {
    if (!held_) {
        return;
    }
    const std::size_t slash = native.rfind('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const Place place = kept(*held_);
    if (place != folders_.end() && identify(native.substr(0, start)) == held_) {
        enter(*place, native.substr(start));
    }
}

std::optional<FolderNames::Identity> FolderNames::identify(const std::string& folder) {
    struct stat status {};
    if (::stat(folder.empty() ? "." : folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return std::nullopt;
    }
    return Identity{status.st_dev, status.st_ino};
}

void FolderNames::enter(Folder& folder, const std::string& name) {
    const std::size_t hash = foldedHash(name);
    const auto [begin, end] = folder.names.equal_range(hash);
    if (std::none_of(begin, end, [&](const auto& entry) { return entry.second == name; })) {
        folder.names.emplace_hint(begin, hash, name);
    }
}

void FolderNames::strike(Folder& folder, const std::string& name) {
    const auto [begin, end] = folder.names.equal_range(foldedHash(name));
    const auto found =
        std::find_if(begin, end, [&](const auto& entry) { return entry.second == name; });
    if (found != end) {
        folder.names.erase(found);
    }
}

std::string FolderNames::lookUp(const Folder& folder, const std::string& wanted) {
    const auto [begin, end] = folder.names.equal_range(foldedHash(wanted));
    const std::u16string folded = begin == end ? std::u16string() : foldedName(wanted);
    const std::string* best = nullptr;
    for (auto entry = begin; entry != end; ++entry) {
        const std::string& name = entry->second;
        if (name == wanted) {
            return name;
        }
        if ((best == nullptr || name < *best) && foldedName(name) == folded) {
            best = &name;
        }
    }
    return best == nullptr ? std::string() : *best;
}

// The watch comes before the listing, so that what changes in between is told.
std::optional<FolderNames::Folder> FolderNames::read(const std::string& folder) {
    const int handle =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) {
        return std::nullopt;
    }
    Folder names;
    struct stat status {};
    if (::fstat(handle, &status) == 0) {
        names.identity = {status.st_dev, status.st_ino};
    }
    if (watches_) {
        names.watch = watch_.add(handle);
    }
    DIR* listing = ::fdopendir(handle);
    if (listing == nullptr) {
        ::close(handle);
        return std::nullopt;
    }
    while (const dirent* entry = ::readdir(listing)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            names.names.emplace(foldedHash(name), name);
        }
    }
    ::closedir(listing);
    return names;
}

FolderNames::Place FolderNames::kept(const Identity& identity) {
    return std::find_if(folders_.begin(), folders_.end(),
                        [&](const Folder& folder) { return folder.identity == identity; });
}

void FolderNames::keep(Folder folder) {
    const bool isHeld = folder.identity == held_;
    // Another path may have led there too. Its watch is the same one.
    const Place same = kept(folder.identity);
    if (same != folders_.end()) {
        folders_.erase(same);
    }
    folders_.push_front(std::move(folder));
    if (!isHeld && (!folders_.front().watch || folders_.front().names.size() > kMostNames)) {
        drop(folders_.begin());
        return;
    }
    std::size_t count = 0;
    std::size_t names = 0;
    for (Place place = folders_.begin(); place != folders_.end();) {
        const Place next = std::next(place);
        if (place->identity != held_) {
            names += place->names.size();
            if (++count > kMostFolders || names > kMostNames) {
                drop(place);
            }
        }
        place = next;
    }
}

void FolderNames::drop(Place place) {
    if (place->watch) {
        watch_.remove(*place->watch);
    }
    folders_.erase(place);
}

void FolderNames::takeChanges() {
    const auto changes = watch_.changes();
    if (!changes) {
        for (Place place = folders_.begin(); place != folders_.end();) {
            const Place next = std::next(place);
            if (place->watch) {
                drop(place);
            }
            place = next;
        }
        return;
    }
    for (const FolderWatch::Change& change : *changes) {
        const Place place =
            std::find_if(folders_.begin(), folders_.end(),
                         [&](const Folder& folder) { return folder.watch == change.number; });
        if (place == folders_.end()) {
            continue;
        }
        switch (change.kind) {
            case FolderWatch::Change::Kind::Appeared:
                enter(*place, change.name);
                break;
            case FolderWatch::Change::Kind::Gone:
                strike(*place, change.name);
                break;
            case FolderWatch::Change::Kind::Ended:
                folders_.erase(place);
                break;
        }
    }
}

}  // namespace marlowick
