// A disk in memory for the fuzz targets: fast, gone with each input, and able to tell what was
// written where. Names are blind to case, as everywhere. Its contents don't count as memory of the
// program (bounds.h).
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "system/files.h"

namespace marlowick::fuzz {

class MemoryFiles : public FileSystem {
  public:
    // Is in use while it lives.
    MemoryFiles();
    ~MemoryFiles() override;
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;

    // The folders above it are made.
    void put(const Path& path, std::string_view content);
    // Nothing behind the end of the list is a file; the paths in upper case.
    std::vector<std::string> names() const;
    // The content of a file that is there.
    std::string content(const Path& path) const;

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override;
    std::vector<FolderEntry> list(const Path& folder) override;
    bool fileExists(const Path& path) override;
    bool folderExists(const Path& path) override;
    std::int64_t length(const Path& path) override;
    void remove(const Path& path) override;
    void makeFolder(const Path& path) override;
    void removeFolder(const Path& path) override;
    bool isReadOnly(const Path& /*path*/) override { return false; }
    void clearAttributes(const Path& /*path*/) override {}
    void copyAttributes(const Path& /*source*/, const Path& /*target*/) override {}
    Path followLinks(const Path& path) override { return path; }
    void rename(const Path& source, const Path& target) override;
    bool canWriteInto(const Path& /*folder*/) override { return true; }

  private:
    struct Node {
        std::string name;                      // the last piece, as it was written
        std::shared_ptr<std::string> content;  // nothing for a folder
    };
    Node* find(const Path& path);
    void makeFolders(const Path& path);

    std::map<std::string, Node> nodes_;  // by the path in upper case
    FileSystem* before_;
};

}  // namespace marlowick::fuzz
