// Numbered streams, one open file a slot. A routine that fails leaves its slot
// taken where its behaviour asks for that, and the next use of that number
// then fails with 55: that is how one failure shows again.
#pragma once

#include <map>
#include <memory>

#include "system/files.h"

namespace marlowick {

// A number of one of two sets. A fixed number belongs to one kind of work and is known before; a
// free one is handed out. One that stays taken stands in the way of its own set alone: a damaged
// archive keeps a free number, and archives can be saved all the same.
class Slot {
  public:
    // number: from 1.
    static constexpr Slot fixed(int number) { return {Set::Fixed, number}; }
    static constexpr Slot free(int number) { return {Set::Free, number}; }

    bool operator==(const Slot&) const = default;
    bool operator<(const Slot& other) const {
        return set_ != other.set_ ? set_ < other.set_ : number_ < other.number_;
    }

  private:
    enum class Set { Fixed, Free };
    constexpr Slot(Set set, int number) : set_(set), number_(number) {}

    Set set_;
    int number_;
};

class Streams {
  public:
    // Opens a file in a slot. 55 if the slot is taken; else as FileSystem::open.
    File& open(Slot slot, const Path& path, OpenMode mode);
    // The file in a slot; 52 if the slot isn't taken.
    File& at(Slot slot);
    // Gives a slot back; nothing if it isn't taken.
    void close(Slot slot);
    // The lowest free number that isn't taken.
    Slot freeSlot() const;
    bool isOpen(Slot slot) const;
    // Gives every slot back that holds this path, compared without regard to letter case.
    void letGo(const Path& path);
    void closeAll();

  private:
    struct Stream {
        Path path;
        std::unique_ptr<File> file;
    };
    std::map<Slot, Stream> streams_;
};

Streams& streams();

// The fixed numbers of the program.
namespace slot {
inline constexpr Slot kArchiveOutput = Slot::fixed(1);    // saving an archive: the new file
inline constexpr Slot kArchiveSource = Slot::fixed(2);    // saving an archive: the old one
inline constexpr Slot kUserFile = Slot::fixed(10);        // reading and writing a user file
inline constexpr Slot kExtractSource = Slot::fixed(99);   // extraction, mesh conversion: the source
inline constexpr Slot kExtractOutput = Slot::fixed(100);  // extraction, mesh conversion: the output
}  // namespace slot

}  // namespace marlowick
