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

// The rows that each generation of the file added. Age is row 1 as it stands.

void writeHotDateRows(const WardrobeFields& fields, StrSegment& strings) {
    strings.Entries[row::kFormal].Text = formalText(fields);
    strings.Entries[row::kSwimsuit].Text = outfitText(fields, Outfit::Swimsuit);
    strings.Entries[row::kPajamas].Text = outfitText(fields, Outfit::Pajamas);
}

void writeVacationRows(const WardrobeFields& fields, StrSegment& strings) {
    const std::string& age = strings.Entries[row::kAge].Text;
    writeHotDateRows(fields, strings);
    if (age != "adult") {
        strings.Entries[row::kFormal].Text = kAdded;
    }
    strings.Entries[row::kWinter].Text = outfitText(fields, Outfit::Winter);
    if (age == "child") {
        fillChildRows(strings);
    }
}

void writeSuperstarRows(const WardrobeFields& fields, StrSegment& strings) {
    writeVacationRows(fields, strings);
    const bool adult = strings.Entries[row::kAge].Text == "adult";
    strings.Entries[row::kFashion].Text =
        adult ? outfitText(fields, Outfit::Fashion) : std::string(kAdded);
}

void writeLaterRows(const WardrobeFields& fields, StrSegment& strings) {
    const int count = strings.Entries.bound();
    if (count > kVacationRows) {
        writeSuperstarRows(fields, strings);
    } else if (count > kHotDateRows) {
        writeVacationRows(fields, strings);
    } else if (count > kBaseRows && strings.Entries[row::kAge].Text == "adult") {
        writeHotDateRows(fields, strings);
    }
}

void writeHands(const WardrobeFields& fields, StrSegment& strings) {
    // Formal hands are worn as a pair or not at all.
    const bool formalWorn = !fields.txtHandFormalLeft.empty() && !fields.txtHandFormalRight.empty();
    for (const HandPair& pair : kHandPairs) {
        const bool worn = pair.pose != HandPose::Formal || formalWorn;
        for (const Hand& hand : {pair.left, pair.right}) {
            strings.Entries[hand.row].Text = worn ? handRow(fields, hand) : std::string();
        }
    }
}

}  // namespace

std::string outfitRow(std::string_view body, std::string_view skin) {
    return lowerCase(body) + std::string(kBlankOutfit) + lowerCase(skin);
}

std::string handRow(const WardrobeFields& fields, const Hand& hand) {
    const char* sim = !fields.isAdult() ? "Hu" : (fields.isFemale() ? "Hf" : "Hm");
    return sim + std::string(hand.sideAndPose) + ",HAND=" + fields.*hand.field;
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
