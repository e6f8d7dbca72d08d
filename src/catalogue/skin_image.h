// Finds what a skin name looks like, wherever the game keeps the bitmap.
#pragma once

#include <string_view>

#include "platform/picture_target.h"

namespace marlowick {

// Puts the image of a skin or hand skin (a name without extension) into the picture, or leaves
// the picture alone: folders first, then archives. A name that begins with "***" is a note and
// touches nothing. Quiet: no failure is reported to anyone.
void gsFetchSkinImage(PictureTarget& picture, std::string_view name);

// The folder of the files that a picture passes through, with its trailing backslash:
// program folder + "\temp\".
Path tempFolder();
// "skintemp.bmp" in it: the last skin that came out of an archive.
inline constexpr std::string_view kSkinTempName = "skintemp.bmp";

}  // namespace marlowick
