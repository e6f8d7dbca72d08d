// Numbered streams, one open file a slot. A routine that fails leaves its slot
// taken where its behaviour asks for that, and the next use of that number
// then fails with 55: that is how one failure shows again.
#pragma once

#include <map>
#include <memory>

#include "system/files.h"

namespace marlowick {

class Streams {
  public:
    // Opens a file in a slot (number from 1). 55 if the slot is taken; else as FileSystem::open.
    File& open(int slot, const Path& path, OpenMode mode);
    // The file in a slot; 52 if the slot is free.
    File& at(int slot);
    // Frees a slot; nothing if it is free.
    void close(int slot);
    // The lowest number that is free, from 1.
    int freeSlot() const;
    bool isOpen(int slot) const;
    // Frees every slot that holds this path, compared without regard to letter case.
    void letGo(const Path& path);
    void closeAll();

  private:
    struct Slot {
        Path path;
        std::unique_ptr<File> file;
    };
    std::map<int, Slot> slots_;
};

Streams& streams();

// The fixed numbers of the program.
namespace slot {
inline constexpr int kArchiveOutput = 1;    // saving an archive: the new file
inline constexpr int kArchiveSource = 2;    // saving an archive: the old one
inline constexpr int kUserFile = 10;        // reading and writing a user file
inline constexpr int kExtractSource = 99;   // extraction and mesh conversion: what is read
inline constexpr int kExtractOutput = 100;  // extraction and mesh conversion: what is written
}  // namespace slot

}  // namespace marlowick
