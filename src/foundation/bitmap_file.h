// What the game's pictures must be: Windows bitmaps with all of their rows. A bitmap is judged by
// its data, that is, by where its rows begin and by how many of which length its head tells; the
// sizes that the head states too are often wrong and not looked at.
#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "system/path.h"

namespace marlowick {

// The length of a file of which every byte counts.
inline constexpr std::int64_t kWholeFile = std::numeric_limits<std::int64_t>::max();

// The bitmap in the first length bytes of a file, from its head to its last row and no further;
// the last row is padded where the file doesn't do it. Of a compressed bitmap, whose rows have no
// length of their own, as much is given as they could take; nothing tells whether it is whole.
// Raises 481 for what is no bitmap, for one with a row that isn't whole, and for one that is
// longer than can be shown; else as FileSystem::open for reading.
std::string readBitmap(const Path& path, std::int64_t length);

// The bitmap that some bytes begin with, judged as readBitmap judges a file.
std::string bitmapIn(std::string bytes);

// True if the first length bytes of a file begin as a picture does, of whatever format and however
// whole. Raises as FileSystem::open for reading.
bool beginsLikePicture(const Path& path, std::int64_t length);

}  // namespace marlowick
