// Moving an entry's data from one open file to another in blocks of the game's size.
#pragma once

#include <cstdint>

#include "platform/files.h"

namespace marlowick {

// Copies size bytes from the position of source to the position of target, at most 32768 at a
// time; stops early at the end of source. A size below 0 is error 5.
void copyBlocks(File& source, File& target, std::int64_t size);

}  // namespace marlowick
