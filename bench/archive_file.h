// Archives for measurements, written and read without the program.
#pragma once

#include <string>
#include <vector>

namespace marlowick::bench {

// The file name of an entry, from 1.
std::string entryName(int number);
// An archive of so many entries of so many bytes each, under names as the game has them.
std::string archiveOf(int count, int size);
// One of entries by name and content.
std::string archiveOf(const std::vector<std::pair<std::string, std::string>>& entries);
// The names of an archive's entries: the file read in one call, one string an entry.
std::vector<std::string> plainDirectory(const std::string& file);

}  // namespace marlowick::bench
