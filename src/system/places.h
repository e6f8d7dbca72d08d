// Where a path leads: the folder or file that stands behind it when every link in it is followed.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/path.h"

namespace marlowick {

// The path with every link in it followed, wherever in it that stands; nothing if nothing is there
// or it isn't a full path.
std::optional<Path> placeOf(const Path& path);

// True if both paths lead to one and the same folder or file.
bool isSamePlace(const Path& left, const Path& right);

// True if a game text that can be a file's name leads to no file of another name. Windows drops
// dots and blanks at its end.
bool isNameToItsEnd(std::string_view gameName);

// The path and a name in it that comes from a text of another program, as UTF-8; nothing if that
// can't be a file name or could reach another folder.
std::optional<Path> childNamed(const Path& folder, std::string_view utf8Name);

// Finds places on this machine's own disks. A path that leads behind a remote root is turned away
// before anything behind that is asked for, so that nothing waits for a network. No link is
// followed twice in the life of the object.
class LocalPlaces {
  public:
    // remote: roots that nothing behind is asked for (remoteRoots of disk.h).
    explicit LocalPlaces(const std::vector<Path>& remote);

    // As placeOf, of a full path; nothing too for one that leads off the machine's own disks.
    std::optional<Path> place(const Path& path);

  private:
    bool isRemote(const std::string& place) const;
    std::optional<std::string> walk(const std::string& text, int depth);
    std::optional<std::string> step(const std::string& folder, const std::string& piece, int depth);

    std::vector<std::u16string> remote_;
    // What each link leads to.
    std::map<std::string, std::optional<std::string>> followed_;
};

// The names in a folder, UTF-8, in the order of a folder listing, at most so many. A folder of many
// thousands is not read to its end.
std::vector<std::string> namesIn(const Path& folder, std::size_t most);

}  // namespace marlowick
