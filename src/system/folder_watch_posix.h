// What changes in folders, told by the kernel in the order in which it happens.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marlowick {

// Whether nobody changes folders of such a file system (statfs's number) but through this kernel,
// and the kernel tells of each change.
bool tellsOfChanges(std::uint32_t fileSystem);

class FolderWatch {
  public:
    FolderWatch();
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    // Watches an open folder from now on; the number stands for it in its changes. None where not
    // every change would be told: on a disk that other machines write to, or past the system's
    // bounds.
    std::optional<int> add(int folderHandle);
    void remove(int number);

    struct Change {
        enum class Kind {
            Appeared,  // a name in the folder
            Gone,      // a name in the folder; of one that is moved away nothing is told
            Ended,     // the folder itself is gone, and nothing more will be told of it
        };
        int number = 0;
        Kind kind = Kind::Ended;
        std::string name;  // as it stands on the disk
    };
    // What has changed since the last call, also in folders that were removed meanwhile. None if
    // the kernel has lost some of it: then nothing is known of any folder.
    std::optional<std::vector<Change>> changes();

  private:
    int handle_;
};

}  // namespace marlowick
