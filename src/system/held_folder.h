// A folder that a command puts many files into.
#pragma once

#include "system/path.h"

namespace marlowick {

// While one lives, the names in the folder are read once, and what the program makes there is
// entered into them, blind to letter case: a file under a name that isn't there yet costs no
// listing. One that another program makes there meanwhile, under a name in other letter case, may
// be missed. One folder at a time. Does nothing on a system that looks names up by itself.
class HeldFolder {
  public:
    explicit HeldFolder(const Path& folder);
    ~HeldFolder();
    HeldFolder(const HeldFolder&) = delete;
    HeldFolder& operator=(const HeldFolder&) = delete;
};

}  // namespace marlowick
