// What each system says of its drives, for disk.cpp alone.
#pragma once

#include "system/path.h"

namespace marlowick {

double systemFreeDiskSpace(const Path& root);

}  // namespace marlowick
