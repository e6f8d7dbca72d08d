// A small writer and reader of archives for tests, independent of the program's own.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace marlowick::test {

struct ArchiveEntry {
    std::string name;
    std::string data;
    std::optional<unsigned> secondSize = {};  // as the first if it isn't told

    bool operator==(const ArchiveEntry&) const = default;
};

// An archive as the game's tools pack it: head, data without gaps, directory. filler stands between
// the head and the data.
std::string archiveFile(const std::vector<ArchiveEntry>& entries, unsigned version = 1,
                        const std::string& filler = {});

// The pieces of an archive, for those that no tool would pack: the 16 bytes in front, and one entry
// of the directory.
std::string archiveHead(unsigned directoryOffset, unsigned version = 1);
std::string archiveRecord(unsigned size, unsigned secondSize, unsigned offset,
                          const std::string& name);

// Data in which each piece differs from the others.
std::string pattern(std::size_t size, unsigned seed = 0);

// The entries of an archive, the second size always told. An entry that doesn't lie whole in the
// file, or bytes behind the directory, fail the test.
std::vector<ArchiveEntry> entriesOfArchive(const std::string& file);

}  // namespace marlowick::test
