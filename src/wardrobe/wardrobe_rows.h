// From the fields back to the rows of the wardrobe table. Only the rows that the
// sim's generation has are written, and some fields have no row to go to.
#pragma once

#include "iff/string_segment.h"
#include "wardrobe/hands.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

// One outfit as a row: lower-case body, ",BODY=", lower-case skin.
std::string outfitRow(std::string_view body, std::string_view skin);

// One hand as a row: the code of the sim and of side and pose, ",HAND=", the field's text.
std::string handRow(const WardrobeFields& fields, const Hand& hand);

// Writes outfits (CheckpointNumber stays) and hands (2000) into the rows of the table, in memory.
// Raises 9 for a missing row.
void writeWardrobe(const WardrobeFields& fields, StrSegment& strings);

}  // namespace marlowick
