#include "wardrobe/default_names.h"

#include "catalogue/names.h"

namespace marlowick {
namespace {

enum class Age { Adult, Child };
enum class Gender { Female, Male, Any };

struct DefaultName {
    Outfit outfit;
    Age age;
    Gender gender;
    int rowsOver;      // the row applies if the table has more rows than this
    const char* body;  // "%b" is the body type, "%t" the tone
    const char* skin;
};

// A later row that applies writes over an earlier one.
constexpr DefaultName kDefaultNames[] = {
    {Outfit::Swimsuit, Age::Adult, Gender::Female, 0, "nf%b_01", "uf%b%t_undies01"},
    {Outfit::Swimsuit, Age::Adult, Gender::Male, 0, "nm%b_01", "um%b%t_undies01"},
    {Outfit::Swimsuit, Age::Child, Gender::Female, 0, "nuchd_01", "ufchd%t_undies01"},
    {Outfit::Swimsuit, Age::Child, Gender::Male, 0, "nuchd_01", "umchd%t_undies01"},
    {Outfit::Swimsuit, Age::Adult, Gender::Female, kBaseRows, "s100fa%b_original",
     "s100fa%b%t_original"},
    {Outfit::Swimsuit, Age::Adult, Gender::Male, kBaseRows, "s100ma%b_original",
     "s100ma%b%t_original"},
    {Outfit::Swimsuit, Age::Child, Gender::Female, kBaseRows, "s100fc%b_original",
     "s100fc%b%t_original"},
    {Outfit::Swimsuit, Age::Child, Gender::Male, kBaseRows, "s100mc%b_original",
     "s100mc%b%t_original"},
    {Outfit::Formal, Age::Adult, Gender::Female, 0, "ff%b_01", "ff%b%t_01"},
    {Outfit::Formal, Age::Adult, Gender::Male, 0, "fm%b_01", "fm%b%t_01"},
    {Outfit::Formal, Age::Adult, Gender::Female, kBaseRows, "f100fa%b_original",
     "f100fa%b%t_original"},
    {Outfit::Formal, Age::Adult, Gender::Male, kBaseRows, "f100ma%b_original",
     "f100ma%b%t_original"},
    {Outfit::Formal, Age::Child, Gender::Any, 0, "", ""},
    {Outfit::Pajamas, Age::Adult, Gender::Female, kBaseRows, "l100fa%b_original",
     "l100fa%b%t_original"},
    {Outfit::Pajamas, Age::Adult, Gender::Male, kBaseRows, "l100ma%b_original",
     "l100ma%b%t_original"},
    {Outfit::Pajamas, Age::Child, Gender::Female, kBaseRows, "l100fc%b_original",
     "l100fc%b%t_original"},
    {Outfit::Pajamas, Age::Child, Gender::Male, kBaseRows, "l100mc%b_original",
     "l100mc%b%t_original"},
    {Outfit::Winter, Age::Adult, Gender::Female, kHotDateRows, "W100fa%b_original",
     "W100fa%b%t_original"},
    {Outfit::Winter, Age::Adult, Gender::Male, kHotDateRows, "W100ma%b_original",
     "W100ma%b%t_original"},
    {Outfit::Winter, Age::Child, Gender::Female, kHotDateRows, "W100fc%b_original",
     "W100fc%b%t_original"},
    {Outfit::Winter, Age::Child, Gender::Male, kHotDateRows, "W100mc%b_original",
     "W100mc%b%t_original"},
};

std::string filledIn(std::string_view pattern, const std::string& body, const std::string& tone) {
    std::string name;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%') {
            name += pattern[++i] == 'b' ? body : tone;
        } else {
            name += pattern[i];
        }
    }
    return name;
}

bool applies(const DefaultName& name, Outfit outfit, int rows, const WardrobeFields& fields) {
    const Gender gender = fields.isFemale() ? Gender::Female : Gender::Male;
    return name.outfit == outfit && name.age == (fields.isAdult() ? Age::Adult : Age::Child) &&
           (name.gender == Gender::Any || name.gender == gender) && rows > name.rowsOver;
}

}  // namespace

void setDefaultOutfit(Outfit outfit, const StrSegment& strings, WardrobeFields& fields) {
    // A copy: the field itself may be among those that are filled in.
    const std::string body(charactersAt(fields.txtNormalBody, 7, 3));
    const std::string& tone = strings.Entries[row::kSkinTone].Text;
    const OutfitSlot& slot = outfitSlot(outfit);
    for (const DefaultName& name : kDefaultNames) {
        if (applies(name, outfit, strings.Entries.bound(), fields)) {
            fields.*slot.body = filledIn(name.body, body, tone);
            fields.*slot.skin = filledIn(name.skin, body, tone);
        }
    }
}

std::string defaultHand(HandPose pose, const StrSegment& strings, const WardrobeFields& fields) {
    if (pose == HandPose::Formal) {
        return fields.isFemale() ? "gfao_bride" : "";
    }
    return handPair(pose).defaultStem + strings.Entries[row::kSkinTone].Text;
}

}  // namespace marlowick
