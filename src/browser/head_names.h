// What a sim's wardrobe table says of its head.
#pragma once

#include <string>

#include "iff/string_segment.h"

namespace marlowick {

struct HeadNames {
    std::string mesh;
    std::string skin;
};

// The names in row 3, "mesh,HEAD=skin"; where that row is "NONE", those of the body in row 2.
// Raises 9 for a table without the row, 5 for a row without a comma.
HeadNames headNames(const StrSegment& wardrobe);

}  // namespace marlowick
