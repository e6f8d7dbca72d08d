// What each system says of its drives, for disk.cpp and its test alone.
#pragma once

#include <vector>

#include "system/path.h"

namespace marlowick {

double systemFreeDiskSpace(const Path& root);

// The network file systems in a table of what is mounted, such as "/proc/self/mounts". Only where
// mounted file systems stand for drives.
std::vector<Path> remoteMounts(const char* tableFile);

}  // namespace marlowick
