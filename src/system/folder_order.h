// The order in which every folder is listed, and the comparison of names that goes with it: that
// of NTFS, by upper-cased UTF-16 code unit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "system/files.h"

namespace marlowick {

// A file or folder as the machine lists it.
struct NativeEntry {
    std::string name;  // UTF-8
    bool isFolder = false;
};

// A name as NTFS compares it. Two names that differ only in letter case give the same text.
std::u16string foldedName(std::string_view utf8);

// A number that is the same for names that give the same text.
std::size_t foldedHash(std::string_view utf8);

// The entries of a folder with their names as game texts, in the order of NTFS. Names that differ
// only in letter case, which only some systems have, follow each other by their bytes.
std::vector<FolderEntry> inFolderOrder(std::vector<NativeEntry> entries);

}  // namespace marlowick
