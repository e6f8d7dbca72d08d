// What the logic knows of a picture control: that a bitmap file can be loaded into it.
#pragma once

#include <cstdint>

#include "foundation/bitmap_file.h"
#include "system/path.h"

namespace marlowick {

class PictureTarget {
  public:
    virtual ~PictureTarget() = default;
    // Shows the bitmap in the first length bytes of a file; behind them may stand what is left of
    // another one. An empty path blanks the picture. Raises 53 or 76 if there is no such file and
    // 481 for what is no whole bitmap; the picture then stays as it was.
    virtual void load(const Path& path, std::int64_t length) = 0;
    void load(const Path& path) { load(path, kWholeFile); }
};

}  // namespace marlowick
