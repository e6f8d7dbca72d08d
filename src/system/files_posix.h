// What else of the file system of Linux and its kin the code beside it needs.
#pragma once

#include "system/path.h"

namespace marlowick {

// The path stands there as it is written, and is opened so from now on, although its folder may
// have led to one in other letter case before in this command.
void openAsItIsWritten(const Path& path);

}  // namespace marlowick
