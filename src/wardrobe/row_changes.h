// What changed between two versions of a wardrobe table, in words for a person.
#pragma once

#include <string>
#include <vector>

#include "iff/string_segment.h"

namespace marlowick {

struct RowChange {
    std::string name;  // of the row, as the wardrobe window calls it: "Formal", "Left open hand"
    // Game texts: of an outfit its body, or its skin where the body is the same; of a hand its
    // skin; else the row's whole text. Empty where nothing is worn, or there is no such row.
    std::string before;
    std::string after;
};

// In the order of the rows. Of two rows that tell the same of one outfit, as those of two
// generations of the file do, one is told.
std::vector<RowChange> rowChanges(const StrSegment& before, const StrSegment& after);

// "Formal: f100fafit_original → f301fafit_rose", a line each without an end behind the last, UTF-8.
std::string inWords(const std::vector<RowChange>& changes);

}  // namespace marlowick
