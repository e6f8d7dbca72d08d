#include "wardrobe/wardrobe_rows.h"

#include "foundation/error_trap.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::string_view kBlankOutfit = ",BODY=";

// What a child wears when the save would otherwise leave a row blank: always in the light skin.
struct ChildRow {
    int row;
    const char* girl;
    const char* other;
};

constexpr ChildRow kChildRows[] = {
    {row::kSwimsuit, "s100fcchd_original,BODY=s100fcchdlgt_original",
     "s100mcchd_original,BODY=s100mcchdlgt_original"},
    {row::kPajamas, "l100fcchd_original,BODY=l100fcchdlgt_original",
     "l100mcchd_original,BODY=l100mcchdlgt_original"},
    {row::kWinter, "w100fcchd_original,BODY=w100fcchdlgt_original",
     "w100mcchd_original,BODY=w100mcchdlgt_original"},
};

std::string outfitText(const WardrobeFields& fields, Outfit outfit) {
    const OutfitSlot& slot = outfitSlot(outfit);
    return outfitRow(fields.*slot.body, fields.*slot.skin);
}

std::string formalText(const WardrobeFields& fields) {
    return fields.txtFormalBody.empty() ? std::string(kBlankOutfit)
                                        : outfitText(fields, Outfit::Formal);
}

void fillChildRows(StrSegment& strings) {
    const bool girl = strings.Entries[row::kGender].Text == "female";
    for (const ChildRow& child : kChildRows) {
        std::string& text = strings.Entries[child.row].Text;
        if (text == kBlankOutfit) {
            text = girl ? child.girl : child.other;
        }
    }
}

// The rows that only later generations of the file have. Age is row 1 as it stands.
void writeLaterRows(const WardrobeFields& fields, StrSegment& strings) {
    const int count = strings.Entries.bound();
    const std::string& age = strings.Entries[row::kAge].Text;
    const bool adult = age == "adult";
    if (count <= kHotDateRows && (count <= kBaseRows || !adult)) {
        return;
    }
    const auto put = [&](int number, std::string text) {
        strings.Entries[number].Text = std::move(text);
    };
    put(row::kFormal, count <= kHotDateRows || adult ? formalText(fields) : std::string(kAdded));
    put(row::kSwimsuit, outfitText(fields, Outfit::Swimsuit));
    put(row::kPajamas, outfitText(fields, Outfit::Pajamas));
    if (count <= kHotDateRows) {
        return;
    }
    put(row::kWinter, outfitText(fields, Outfit::Winter));
    if (age == "child") {
        fillChildRows(strings);
    }
    if (count > kVacationRows) {
        put(row::kFashion, adult ? outfitText(fields, Outfit::Fashion) : std::string(kAdded));
    }
}

// The code before a hand's skin: H, the class of the sim, the side, the pose.
std::string handPrefix(const WardrobeFields& fields, std::string_view sideAndPose) {
    const char* sim = !fields.isAdult() ? "Hu" : (fields.isFemale() ? "Hf" : "Hm");
    return sim + std::string(sideAndPose) + ",HAND=";
}

void writeHands(const WardrobeFields& fields, StrSegment& strings) {
    struct Hand {
        int row;
        const char* sideAndPose;
        Field field;
    };
    static constexpr Hand kNormalHands[] = {
        {18, "LO", &WardrobeFields::txtHandOpenLeft},
        {19, "RO", &WardrobeFields::txtHandOpenRight},
        {20, "LP", &WardrobeFields::txtHandPointLeft},
        {21, "RP", &WardrobeFields::txtHandPointRight},
        {22, "LC", &WardrobeFields::txtHandClosedLeft},
        {23, "RC", &WardrobeFields::txtHandClosedRight},
    };
    for (const Hand& hand : kNormalHands) {
        strings.Entries[hand.row].Text = handPrefix(fields, hand.sideAndPose) + fields.*hand.field;
    }
    // Formal hands are worn as a pair or not at all.
    const bool worn = !fields.txtHandFormalLeft.empty() && !fields.txtHandFormalRight.empty();
    strings.Entries[row::kFormalHandLeft].Text =
        worn ? handPrefix(fields, "LO") + fields.txtHandFormalLeft : std::string();
    strings.Entries[row::kFormalHandRight].Text =
        worn ? handPrefix(fields, "RO") + fields.txtHandFormalRight : std::string();
}

}  // namespace

std::string outfitRow(std::string_view body, std::string_view skin) {
    return lowerCase(body) + std::string(kBlankOutfit) + lowerCase(skin);
}

void writeWardrobe(const WardrobeFields& fields, StrSegment& strings) {
    strings.Entries[row::kNormal].Text = outfitText(fields, Outfit::Normal);
    strings.Entries[row::kFirstFormal].Text = formalText(fields);
    strings.Entries[row::kNude].Text = outfitText(fields, Outfit::Nude);
    writeLaterRows(fields, strings);
    CheckpointNumber = 2000;
    writeHands(fields, strings);
}

}  // namespace marlowick
