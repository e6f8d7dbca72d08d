// The game's models and skins, in folders and in archives.
#pragma once

#include "bytes.h"

namespace sample {

// skins: how many skins the busiest model has; archiveEntries: how many entries the largest
// archive has.
void writeSkins(const fs::path& game, int skins, int archiveEntries, std::uint64_t seed);

}  // namespace sample
