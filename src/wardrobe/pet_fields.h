// A pet's wardrobe between loading and saving: one outfit. Rows of the table count
// from 1, as a sim's do, and it is the same table of the file.
#pragma once

#include <string>

#include "iff/iff_file.h"
#include "iff/string_segment.h"

namespace marlowick {

struct PetFields {
    std::string txtName;
    std::string txtType;    // "Dog" or "Cat"
    std::string txtGender;  // "Male", "Female", or empty for a text that tells neither
    std::string txtNormalBody, txtNormalSkin;

    bool operator==(const PetFields& other) const = default;
};

// Fills all but the name; sets CheckpointNumber to 1000 and 2000. Raises 9 for a missing row and
// 5 for an outfit that can't be split; what was read until then stays.
void readPet(const StrSegment& strings, PetFields& fields);

// Fills the name with the label of the pet's object and, in brackets, its catalogue name; the
// record stays as it is.
void readPetName(const IffFile& iff, PetFields& fields);

// Puts the outfit into its row, in lower case. Anything behind a ";" in the row goes.
void writePet(const PetFields& fields, StrSegment& strings);

}  // namespace marlowick
