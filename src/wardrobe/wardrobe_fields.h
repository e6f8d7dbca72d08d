// A sim's wardrobe between loading and saving: one record of texts. The window's
// boxes show it one to one and bear the same names. Rows of the wardrobe table
// count from 1; how many rows there are tells the file's generation.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "iff/iff_file.h"
#include "iff/string_segment.h"

namespace marlowick {

enum class BodyType { Fit, Fat, Skinny };

// How a body type reads in names, in lower case, and the option of the window that chooses it.
struct BodyTypeOption {
    BodyType type;
    std::string_view code;
    const char* button;
};
extern const std::array<BodyTypeOption, 3> kBodyTypes;
const BodyTypeOption& bodyTypeOption(BodyType type);

struct WardrobeFields {
    std::string txtName, txtAge, txtGender, txtSkinTone;
    std::string txtNormalBody, txtNormalSkin;
    std::string txtSwimsuitBody, txtSwimsuitSkin;
    std::string txtFormalBody, txtFormalSkin;
    std::string txtPajamasBody, txtPajamasSkin;
    std::string txtNudeBody, txtNudeSkin;
    std::string txtWinterBody, txtWinterSkin;
    std::string txtFashionBody, txtFashionSkin;
    std::string txtHandOpenLeft, txtHandOpenRight;
    std::string txtHandPointLeft, txtHandPointRight;
    std::string txtHandClosedLeft, txtHandClosedRight;
    std::string txtHandFormalLeft, txtHandFormalRight;
    BodyType bodyType = BodyType::Fit;

    bool isAdult() const { return txtAge == "adult"; }
    bool isFemale() const { return txtGender == "female"; }
    bool operator==(const WardrobeFields& other) const = default;
};

using Field = std::string WardrobeFields::*;

// Every text of the record under the name of its box.
struct NamedField {
    const char* name;
    Field field;
};
extern const std::array<NamedField, 26> kNamedFields;

// The seven outfits, in the order of the window's tabs.
enum class Outfit { Normal, Swimsuit, Formal, Pajamas, Nude, Winter, Fashion };

struct OutfitSlot {
    Outfit outfit;
    char letter;  // the last character of the request to the skin chooser
    Field body;
    Field skin;
    const char* picture;
    bool adultsOnly;
};
extern const std::array<OutfitSlot, 7> kOutfitSlots;
const OutfitSlot& outfitSlot(Outfit outfit);

// The generations, by the number of rows of the wardrobe table.
inline constexpr int kBaseRows = 30;      // more: rows 31 to 33 exist
inline constexpr int kHotDateRows = 33;   // more: row 34 exists, and "ADDED" may stand in row 31
inline constexpr int kVacationRows = 34;  // more: row 35 exists

// Rows with a meaning of their own.
namespace row {
inline constexpr int kAge = 1;
inline constexpr int kNormal = 2;
inline constexpr int kHead = 3;
inline constexpr int kGender = 13;
inline constexpr int kSkinTone = 15;
inline constexpr int kNude = 16;
inline constexpr int kFirstSwimsuit = 17;
inline constexpr int kFirstFormal = 28;
inline constexpr int kFormalHandLeft = 29;
inline constexpr int kFormalHandRight = 30;
inline constexpr int kFormal = 31;
inline constexpr int kSwimsuit = 32;
inline constexpr int kPajamas = 33;
inline constexpr int kWinter = 34;
inline constexpr int kFashion = 35;
}  // namespace row

inline constexpr std::string_view kAdded = "ADDED";
inline constexpr std::string_view kAdultsOnly = "*** ADULT SIMS ONLY ***";
inline constexpr std::string_view kHotDateOnly = "*** HOT DATE/VACATION ONLY ***";
inline constexpr std::string_view kVacationOnly = "*** VACATION ONLY ***";
inline constexpr std::string_view kSuperstarOnly = "*** SUPERSTAR ADULTS ONLY ***";

// The body before the first "," of an outfit row: 5 without one. The skin behind the first "=":
// the whole text without one.
std::string bodyOfRow(std::string_view rowText);
std::string skinOfRow(std::string_view rowText);

// What txtName reads: of a sim the catalogue name and, in brackets, the label of its object; of a
// pet the other way round.
std::string shownName(std::string_view name, std::string_view inBrackets);

// Fills outfits, hands and body type from the rows; sets CheckpointNumber from 1000 to 2000.
// Raises 9 for a missing row and 5 for a row that can't be split; what was read until then stays.
void readWardrobe(const StrSegment& strings, WardrobeFields& fields);

// Fills txtName from the file's names and pads the labels of all its segments with blanks behind
// their first zero byte, as the next save writes them.
void readSimName(IffFile& iff, WardrobeFields& fields);

// Fills gender, age and skin tone.
void readPerson(const StrSegment& strings, WardrobeFields& fields);

// The request to the skin chooser for an outfit: gender, age, the raw tone of row 15, body type,
// letter. Raises 9 for a table without that row.
std::string skinRequest(const WardrobeFields& fields, const StrSegment& strings, char letter);

}  // namespace marlowick
