// The shapes of sims and pets. They are where the bitmaps' drawings are (drawings.h): what a place
// of a shape shows is what is drawn there.
#pragma once

#include "drawings.h"
#include "solid.h"

namespace sample {

// What a body's shape depends on, beside its frame.
enum class Cut { Plain, Gown, Coat };

// A person without head and hands, on the skeleton of its age.
Solid personBody(const Figure& figure, Cut cut);
Solid personHead(bool female, bool child);
Solid personHand(bool child, bool left);
Solid petBody(bool dog);

}  // namespace sample
