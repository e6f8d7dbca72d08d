// Reads a finished archive back and compares it with what an edit's rows mean: its head and
// directory whole, and the first and the last block of every entry.
#pragma once

#include <functional>
#include <string>

#include "far/far_edit.h"
#include "system/path.h"

namespace marlowick {

// In words how the archive differs from what was meant; empty if it doesn't. The edit is as it was
// before the save, and its own archive and added files still lie where it says. afterEntry runs
// behind each entry. Touches no stream slot and no CheckpointNumber. Raises what opening and
// reading raise.
std::string archiveDifference(const FarEdit& edit, const Path& archive,
                              const std::function<void()>& afterEntry = {});

}  // namespace marlowick
