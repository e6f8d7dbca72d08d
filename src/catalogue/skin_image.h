// Finds what a skin name looks like, wherever the game keeps the bitmap.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/chosen_skin.h"
#include "foundation/picture_target.h"
#include "system/path.h"

namespace marlowick {

// Puts the image of a skin or hand skin (a name without extension) into the picture, or leaves
// the picture alone: folders first, then archives. A name that begins with "***" is a note and
// touches nothing. Quiet: no failure is reported to anyone.
void gsFetchSkinImage(PictureTarget& picture, std::string_view name);

// The same for all images of one command: which archives there are is found out once.
class SkinImages {
  public:
    void fetch(PictureTarget& picture, std::string_view name);

  private:
    void fetchFromArchives(PictureTarget& picture, std::string_view name);

    std::optional<std::vector<Path>> archives_;
};

// An entry of an archive that was copied out as "skintemp.bmp".
struct ExtractedSkin {
    Path file;
    std::int64_t length = 0;  // of the entry; behind it stands what is left of longer ones
    std::string name;         // its last component, upper case, with extension
};

// Copies an archive's entry (its number from 1) out. Failures of the archive are reported by
// gsReadFARdir and gsExtractFileEx; what stands in the file then counts whole. Raises 9 if the
// archive has no such entry.
ExtractedSkin extractSkin(const Path& archive, int number);

// Shows what the skin chooser has handed back: an entry of an archive or a bitmap of its own.
// Raises what extractSkin and the picture raise.
void showChosenSkin(PictureTarget& picture, const ChosenSkin& chosen);

}  // namespace marlowick
