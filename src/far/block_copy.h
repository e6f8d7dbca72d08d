// Moving an entry's data from one open file to another in blocks of the game's size.
#pragma once

#include <cstdint>
#include <functional>

#include "system/files.h"

namespace marlowick {

// Copies size bytes from the position of source to the position of target, at most 32768 at a
// time, and runs afterBlock behind each block; stops early at the end of source. Gives the number
// of bytes copied. A size below 0 is error 5.
std::int64_t copyBlocks(File& source, File& target, std::int64_t size,
                        const std::function<void()>& afterBlock = {});

}  // namespace marlowick
