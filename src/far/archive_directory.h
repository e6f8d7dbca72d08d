// The directory of an archive for whoever looks something up in it. It is read once and kept
// (system/kept_files.h), and all who ask for it share it. Names are game texts and match blind to
// letter case; nothing is copied to compare them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "far/far_directory.h"
#include "system/kept_files.h"
#include "system/path.h"

namespace marlowick {

class ArchiveDirectory {
  public:
    explicit ArchiveDirectory(FarDirectory directory) : directory_(std::move(directory)) {}

    const FarDirectory& record() const { return directory_; }
    // The number of entries to walk, as farEntryCount gives it.
    int count() const { return farEntryCount(directory_); }
    // An entry's name behind its last backslash, as it stands; entries count from 1. 9 for any
    // other number.
    std::string_view baseName(int number) const;
    // The first entry whose base name is the wanted one, or begins with it; 0 if none does. Either
    // remembers something of all names for the next question.
    int firstNamed(std::string_view name) const;
    int firstBeginningWith(std::string_view beginning) const;

    // Bytes of memory, about.
    std::size_t size() const;

  private:
    const std::vector<std::int32_t>& byName() const;
    void indexNames() const;
    void noteBeginnings() const;

    FarDirectory directory_;
    // Numbers of entries by the hash of their names, with gaps of 0; made at the first question.
    mutable std::vector<std::int32_t> byName_;
    // The first letters of each name, in upper case; entry n is element n - 1. Made likewise.
    mutable std::vector<std::uint64_t> beginnings_;
};

// The directory as gsReadFARdir reads it, trapped like it. What was read before a failure is handed
// out, and nothing is kept of it.
std::shared_ptr<const ArchiveDirectory> readArchiveDirectory(const Path& archive);

// The same without a trap, a report or a numbered stream; an archive that can't be opened has no
// entries. isWhole tells whether nothing failed.
struct QuietDirectory {
    std::shared_ptr<const ArchiveDirectory> directory;
    bool isWhole = false;
};
QuietDirectory lookAtArchiveDirectory(const Path& archive, KeptFiles& kept = keptFiles());

}  // namespace marlowick
