// A suit as it is worn: which meshes it is made of. docs/file-formats.md draws the file, in its
// binary form (.cmx.bcf) and in its text form (.cmx). mesh/suit.h reads the same for a head alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "preview/items.h"

namespace marlowick {

// The bone tells the game when to wear the part; where it is drawn, its mesh says.
struct SuitPart {
    std::string bone;
    std::string mesh;

    bool operator==(const SuitPart&) const = default;
};

struct Suit {
    std::string name;
    std::vector<SuitPart> parts;

    bool operator==(const Suit&) const = default;
};

// The suits of a whole file, behind its skeletons. What follows, animations, isn't looked at, and
// neither is whether it is there. Raises what the items and the skeletons raise, and 9 for a count
// below 0 or beyond reason.
std::vector<Suit> readSuits(std::string_view bytes, FileForm form);

// The suit of that name, blind to case, or else the first one; nullptr if there is none at all.
const Suit* suitNamed(const std::vector<Suit>& suits, std::string_view name);

}  // namespace marlowick
