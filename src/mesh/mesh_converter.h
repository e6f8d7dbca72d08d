// Turns a binary mesh (BMF) into the text form that the skins folder holds (SKN).
// docs/file-formats.md draws both.
#pragma once

#include "system/path.h"

namespace marlowick {

// Reads bmf and writes skn, which is made or emptied, item by item: no mesh is ever in memory. A
// section of more than 32766 rows is error 6 (all 32767 rows of a count of 32767 are written
// before that), a file that ends too early error 62. Trapped (modBMFconvert); false after a
// failure: skn then holds the lines up to there, and both stream slots of extraction stay taken.
bool gsConvertBMFtoSKN(const Path& bmf, const Path& skn);

}  // namespace marlowick
