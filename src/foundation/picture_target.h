// What the logic knows of a picture control: that a bitmap file can be loaded into it.
#pragma once

#include "system/path.h"

namespace marlowick {

class PictureTarget {
  public:
    virtual ~PictureTarget() = default;
    // Shows the bitmap file. An empty path blanks the picture. Raises 53 or 76 if there is no such
    // file and 481 if it can't be decoded; the picture then stays as it was.
    virtual void load(const Path& path) = 0;
};

}  // namespace marlowick
