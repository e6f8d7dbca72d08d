// FAR archives: the directory in memory, and extraction. An entry is always
// addressed by its number, from 1. docs/file-formats.md draws the bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/four_bytes.h"
#include "foundation/list.h"
#include "system/held_folder.h"
#include "system/path.h"

namespace marlowick {

// Where an archive tells the place of its directory, in bytes from 0.
inline constexpr std::int64_t kManifestField = 12;

struct FarEntry {
    FourBytes FileSize;    // little-endian, as stored, like the next three
    FourBytes FileSize2;   // kept, never used by extraction
    FourBytes FileOffset;  // from the start of the file
    FourBytes NameLength;
    std::string FileName;  // game text, as it stands
    bool Deleted = false;
};

struct FarDirectory {
    std::string FileCount = std::string(4, '\0');  // as stored
    List<FarEntry> Entries;
};

// Fills the directory from an archive; an archive without a directory, or one that doesn't exist
// (it is then made, empty), gives zero entries. Only records that are whole in the file are
// stored; FileCount stays as it was read. Trapped (modFARsupport); false after a failure, and the
// stream then stays open.
bool gsReadFARdir(FarDirectory& directory, const Path& archive);

// The number of entries to walk: FileCount, but not more than the list holds and not below 0.
int farEntryCount(const FarDirectory& directory);

// The number of entries that the archive itself tells of, readable or not; not below 0.
int farAnnouncedCount(const FarDirectory& directory);

// Copies an entry out as folder + "\" + its name behind the last backslash, or under outputName.
// The output is not truncated. Trapped (modFARsupport); false after a failure, and the two stream
// slots of extraction then stay taken. Nothing is extracted under its own name into a Legacy game's
// templates of neighbourhoods (75).
bool gsExtractFile(const Path& archive, const Path& folder, const FarDirectory& directory,
                   int number);
bool gsExtractFileEx(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number);

// A command that extracts many entries of one archive into one folder, one call an entry: the
// archive is opened once and the folder asked once whether it is a template. What the archive's
// file holds is read in each call. Between the calls the source's stream slot is taken.
class FarExtraction {
  public:
    FarExtraction(const Path& archive, const Path& folder);
    ~FarExtraction();
    FarExtraction(const FarExtraction&) = delete;
    FarExtraction& operator=(const FarExtraction&) = delete;

    // As gsExtractFile, also in how it fails.
    bool extract(const FarDirectory& directory, int number);

  private:
    void refuseTemplates(const Path& output, const std::string& name);

    Path archive_;
    Path folder_;
    HeldFolder held_;
    bool isOpen_ = false;             // the source, in its slot
    std::optional<bool> isTemplate_;  // the folder; nothing before the first entry
};

// The same work without a trap: a failure is raised, and no stream stays open. For the quiet
// search of a skin's image.
void readFarDirectory(FarDirectory& directory, const Path& archive);
void extractFarEntry(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number);

// How many bytes of an entry its archive has.
std::int64_t farEntryLength(const FarEntry& entry, const Path& archive);

// The part of a name behind its last backslash, in upper case.
std::string gfstrFarBaseName(std::string_view fileName);

}  // namespace marlowick
