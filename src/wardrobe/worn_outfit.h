// What an outfit of a wardrobe looks like when it is worn, as far as names tell it. What the fields
// hold goes before the rows, so that a change is seen before it is saved.
#pragma once

#include <optional>

#include "iff/string_segment.h"
#include "preview/worn.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

// The sim without clothes. Hands are open; with the formal outfit, a formal hand that the sim has.
// Rows that are missing count as empty.
Wearer wearerOf(const WardrobeFields& fields, const StrSegment& wardrobe, Outfit outfit);

// The outfit on the sim; nothing where the fields tell of no clothes.
std::optional<Worn> wornOutfit(const WardrobeFields& fields, const StrSegment& wardrobe,
                               Outfit outfit);

}  // namespace marlowick
