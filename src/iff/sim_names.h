// What a user file calls its sim or pet: the label of its object, and the name that the game's
// catalogue shows.
#pragma once

#include <optional>
#include <string>

#include "iff/iff_file.h"

namespace marlowick {

// True if the label, cut at its first zero byte, begins with "user" in any letter case and the
// segment is an "OBJD".
bool isUserObject(const IffSegment& segment);

// The display name in a "CTSS" segment's Data: from the sixth byte on, cut at the first zero byte.
std::string catalogueName(const IffSegment& segment);

// The label of the first user object, cut at its first zero byte, and the name in the first "CTSS"
// segment: what the page of sims shows. Nothing in a file without one.
std::optional<std::string> firstUserLabel(const IffFile& iff);
std::optional<std::string> firstCatalogueName(const IffFile& iff);

// The label of the last user object, cut at its first zero byte and without trailing blanks, and
// the name in the last "CTSS" segment; nothing in a file without one.
std::optional<std::string> lastUserLabel(const IffFile& iff);
std::optional<std::string> lastCatalogueName(const IffFile& iff);

}  // namespace marlowick
