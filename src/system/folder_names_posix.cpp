#include "system/folder_names_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>
#include <vector>

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
        std::string name = place->names.find(wanted);
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
    std::string name = names->names.find(wanted);
    keep(std::move(*names));
    return name;
}

void FolderNames::hold(const std::string& folder) {
    held_ = folder.empty() ? std::nullopt : identify(folder);
}

void FolderNames::release() {
    held_.reset();
    dropWhatMayNotStay();
}

void FolderNames::setCommands(int commands) {
    commands_ = commands;
    dropWhatMayNotStay();
}

// Where the folder is watched, the kernel tells of this too.
void FolderNames::added(const std::string& native) {
    const auto isUntold = [](const Folder& folder) { return !folder.watch; };
    if (std::none_of(folders_.begin(), folders_.end(), isUntold)) {
        return;
    }
    const std::size_t slash = native.rfind('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::optional<Identity> identity = identify(native.substr(0, start));
    const Place place = identity ? kept(*identity) : folders_.end();
    if (place != folders_.end()) {
        place->names.add(std::string_view(native).substr(start));
    }
}

std::optional<FolderNames::Identity> FolderNames::identify(const std::string& folder) {
    struct stat status {};
    if (::stat(folder.empty() ? "." : folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return std::nullopt;
    }
    return Identity{status.st_dev, status.st_ino};
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
    std::string all;
    while (const dirent* entry = ::readdir(listing)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            all.append(name).push_back('\0');
        }
    }
    ::closedir(listing);
    names.names = NameTable(std::move(all));
    return names;
}

FolderNames::Place FolderNames::kept(const Identity& identity) {
    return std::find_if(folders_.begin(), folders_.end(),
                        [&](const Folder& folder) { return folder.identity == identity; });
}

// Where nobody tells of changes, a folder's names are good for as long as a command runs.
bool FolderNames::mayStay(const Folder& folder) const {
    return folder.watch || commands_ > 0 || folder.identity == held_;
}

void FolderNames::dropWhatMayNotStay() {
    folders_.remove_if([this](const Folder& folder) { return !mayStay(folder); });
}

void FolderNames::keep(Folder folder) {
    const bool isHeld = folder.identity == held_;
    // Another path may have led there too. Its watch is the same one.
    const Place same = kept(folder.identity);
    if (same != folders_.end()) {
        folders_.erase(same);
    }
    folders_.push_front(std::move(folder));
    if (!mayStay(folders_.front()) || (!isHeld && folders_.front().names.size() > kMostNames)) {
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
                place->names.add(change.name);
                break;
            case FolderWatch::Change::Kind::Gone:
                place->names.remove(change.name);
                break;
            case FolderWatch::Change::Kind::Ended:
                folders_.erase(place);
                break;
        }
    }
}

}  // namespace marlowick
