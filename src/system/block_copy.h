// Moving data from one open file to another. It goes through memory in blocks of bounded size,
// however much it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "system/files.h"

namespace marlowick {

// Bytes that are in memory at a time where data is looked at on its way, or made.
inline constexpr std::size_t kBlock = 32768;
// The same where it is moved as it is: so many that calls of the system don't show, and so few that
// they stay in the processor's own memory between the reading and the writing.
inline constexpr std::size_t kCopyBlock = 1 << 18;

// Copies size bytes from the position of source to the position of target, and runs afterBlock
// behind each block; stops early at the end of source. Gives the number of bytes copied. A size
// below 0 is error 5.
std::int64_t copyBlocks(File& source, File& target, std::int64_t size,
                        const std::function<void()>& afterBlock = {});

// The same with all that lies between the position of source and its end.
std::int64_t copyRest(File& source, File& target, const std::function<void()>& afterBlock = {});

// Copies the file at source over the one at target, in place, as a plain copy does.
void copyFile(const Path& source, const Path& target);

}  // namespace marlowick
