// The outfits and hands that the game itself gives a sim.
#pragma once

#include <string>

#include "iff/string_segment.h"
#include "wardrobe/hands.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

// Puts the game's own outfit into the fields of a slot. The body type comes from characters 7 to
// 9 of txtNormalBody as they stand, the tone from the raw row 15, the generation from the number
// of rows. Where the game has no default the fields stay as they are.
void setDefaultOutfit(Outfit outfit, const StrSegment& strings, WardrobeFields& fields);

// The name of the game's own hand for a pose; empty for a man's formal hands.
std::string defaultHand(HandPose pose, const StrSegment& strings, const WardrobeFields& fields);

}  // namespace marlowick
