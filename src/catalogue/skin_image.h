// Finds what a skin name looks like, wherever the game keeps the bitmap.
#pragma once

#include <string_view>

#include "catalogue/chosen_skin.h"
#include "foundation/picture_target.h"

namespace marlowick {

// Puts the image of a skin or hand skin (a name without extension) into the picture, or leaves
// the picture alone: folders first, then archives. A name that begins with "***" is a note and
// touches nothing. Quiet: no failure is reported to anyone.
void gsFetchSkinImage(PictureTarget& picture, std::string_view name);

// Copies an archive's entry (its number from 1) out as "skintemp.bmp" and shows that. Failures of
// the archive are reported by gsReadFARdir and gsExtractFileEx; what stands in the file then is
// shown. Raises what the picture raises.
void showArchiveSkin(PictureTarget& picture, const Path& archive, int number);

// Shows what the skin chooser has handed back: an entry of an archive or a bitmap of its own.
void showChosenSkin(PictureTarget& picture, const ChosenSkin& chosen);

}  // namespace marlowick
