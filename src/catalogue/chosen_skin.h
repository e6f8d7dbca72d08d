// What the skin chooser hands back to the window that opened it.
#pragma once

#include <cstdint>
#include <string>

#include "system/path.h"

namespace marlowick {

struct ChosenSkin {
    // Model name, "," and skin name, or the name of a hand's skin alone; empty if nothing was
    // chosen. Game text.
    std::string SelectedSkin;
    // The bitmap, or the archive that it lies in.
    Path LoadSkinFile;
    // The entry's number in that archive, from 1; -1 for a bitmap of its own.
    std::int32_t FarFileIndex = -1;
};

}  // namespace marlowick
