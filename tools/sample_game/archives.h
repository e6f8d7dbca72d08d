// FAR archives: "FAR!byAZ", version, offset of the directory, data, directory.
#pragma once

#include <string>
#include <vector>

#include "bytes.h"

namespace sample {

struct ArchiveEntry {
    std::string name;  // with its folder, if it has one
    std::string data;
    int secondSizeMore = 0;  // how much the second size differs from the first
};

std::string farArchive(const std::vector<ArchiveEntry>& entries);

}  // namespace sample
