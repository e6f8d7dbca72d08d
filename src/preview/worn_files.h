// Where the game keeps suits, meshes and skins: loose in its folders or in its archives. Reads them
// into memory and leaves the disk as it is.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "far/archive_directory.h"
#include "system/kept_files.h"
#include "system/path.h"

namespace marlowick {

// A loose file or an entry of an archive.
struct FilePlace {
    Path file;         // the loose file, or the archive
    int entry = 0;     // the entry's number in the archive, from 1; 0 for a loose file
    std::string name;  // without its folder

    bool operator==(const FilePlace&) const = default;
};

// Which entry of an archive a skin's name means.
enum class EntryMatch {
    Beginning,         // the first whose name begins with it
    WholeOrBeginning,  // one of the very name, or else such a one
    Whole,             // one of the very name
};

// Lasts for one question. It lists a folder once, whatever is looked for in it, and sees no change
// of a listing later on. All names are game texts and match blind to case. A folder or an archive
// that can't be read holds nothing.
class WornFiles {
  public:
    explicit WornFiles(KeptFiles& kept) : kept_(kept) {}

    // The first file of one of these names, those that come first preferred where several lie in
    // one place: beside near, if that is told, then in the folders of skins, then in the archives
    // that hold models.
    std::optional<FilePlace> find(const std::vector<std::string>& names,
                                  const FilePlace* near = nullptr);

    // Hands out where a skin (a name without extension) lies, in the order in which a flat picture
    // looks for it, until isIt is content: loose bitmaps, then one entry of an archive, with which
    // the search ends. A note ("*** ...") lies nowhere.
    void findSkin(std::string_view name, EntryMatch match,
                  const std::function<bool(const FilePlace&)>& isIt);

    // The whole bytes. An entry of which less lies in its archive gives what is there. Raises 7 for
    // more than most bytes, 9 for an entry that doesn't exist, 5 for one with a damaged size or
    // place, else as FileSystem::open.
    std::string read(const FilePlace& place, std::int64_t most);

    // What make makes of the place's bytes, kept as KeptFiles does, but for an archive that has
    // changed since this question read its directory.
    template <class Value>
    std::shared_ptr<const Value> made(const FilePlace& place, const std::string& what,
                                      std::int64_t most,
                                      const std::function<Made<Value>(const std::string&)>& make) {
        const std::string whole = what + "\\" + std::to_string(place.entry);
        return kept_.get<Value>(place.file, whole, [&] {
            Made<Value> result = make(read(place, most));
            result.isWhole = result.isWhole && fitsItsDirectory(place);
            return result;
        });
    }

  private:
    // A folder's files by their names in upper case.
    using Listing = std::unordered_multimap<std::string, std::string>;

    // A directory in use, and its archive's state before it was read.
    struct Directory {
        std::optional<FileStamp> stamp;
        std::shared_ptr<const ArchiveDirectory> entries;
    };

    const Listing& listing(const Path& folder);
    bool fitsItsDirectory(const FilePlace& place) const;
    std::shared_ptr<const ArchiveDirectory> archive(const Path& path);
    std::optional<FilePlace> looseFile(const Path& folder, const std::string& name);
    std::optional<FilePlace> archived(const Path& path, const std::string& name);
    std::optional<FilePlace> oneOf(const std::vector<std::string>& names, const Path& home,
                                   bool isArchive);
    const std::vector<Path>& modelArchives();
    const std::vector<Path>& skinArchives();
    std::optional<FilePlace> archivedSkin(const std::string& upperName, bool whole);

    KeptFiles& kept_;
    std::unordered_map<std::string, Listing> listings_;
    // So that each is checked once a question.
    std::unordered_map<std::string, Directory> archives_;
    std::optional<std::vector<Path>> modelArchives_;
    std::optional<std::vector<Path>> skinArchives_;
};

}  // namespace marlowick
