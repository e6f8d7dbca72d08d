#include "wardrobe/pet_fields.h"

#include "foundation/error_trap.h"
#include "iff/sim_names.h"
#include "wardrobe/wardrobe_fields.h"
#include "wardrobe/wardrobe_rows.h"

namespace marlowick {
namespace {

struct Gender {
    std::string_view row;
    const char* word;
};

constexpr Gender kGenders[] = {
    {"dogmale", "Male"}, {"catmale", "Male"}, {"dogfemale", "Female"}, {"catfemale", "Female"}};

}  // namespace

void readPet(const StrSegment& strings, PetFields& fields) {
    CheckpointNumber = 1000;
    fields.txtType = strings.Entries[row::kAge].Text == "dog" ? "Dog" : "Cat";
    for (const Gender& gender : kGenders) {
        if (strings.Entries[row::kGender].Text == gender.row) {
            fields.txtGender = gender.word;
        }
    }
    const std::string& whole = strings.Entries[row::kNormal].Text;
    CheckpointNumber = 2000;
    const std::string outfit = whole.substr(0, whole.find(';'));
    fields.txtNormalBody = bodyOfRow(outfit);
    fields.txtNormalSkin = skinOfRow(outfit);
}

void readPetName(const IffFile& iff, PetFields& fields) {
    fields.txtName =
        shownName(lastUserLabel(iff).value_or(""), lastCatalogueName(iff).value_or(""));
}

void writePet(const PetFields& fields, StrSegment& strings) {
    strings.Entries[row::kNormal].Text = outfitRow(fields.txtNormalBody, fields.txtNormalSkin);
}

}  // namespace marlowick
