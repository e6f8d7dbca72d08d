#include "wardrobe/wardrobe_fields.h"

#include "catalogue/names.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/sim_names.h"
#include "system/game_text.h"
#include "wardrobe/hands.h"

namespace marlowick {

using F = WardrobeFields;

const std::array<NamedField, 26> kNamedFields = {{
    {"txtName", &F::txtName},
    {"txtAge", &F::txtAge},
    {"txtGender", &F::txtGender},
    {"txtSkinTone", &F::txtSkinTone},
    {"txtNormalBody", &F::txtNormalBody},
    {"txtNormalSkin", &F::txtNormalSkin},
    {"txtSwimsuitBody", &F::txtSwimsuitBody},
    {"txtSwimsuitSkin", &F::txtSwimsuitSkin},
    {"txtFormalBody", &F::txtFormalBody},
    {"txtFormalSkin", &F::txtFormalSkin},
    {"txtPajamasBody", &F::txtPajamasBody},
    {"txtPajamasSkin", &F::txtPajamasSkin},
    {"txtNudeBody", &F::txtNudeBody},
    {"txtNudeSkin", &F::txtNudeSkin},
    {"txtWinterBody", &F::txtWinterBody},
    {"txtWinterSkin", &F::txtWinterSkin},
    {"txtFashionBody", &F::txtFashionBody},
    {"txtFashionSkin", &F::txtFashionSkin},
    {"txtHandOpenLeft", &F::txtHandOpenLeft},
    {"txtHandOpenRight", &F::txtHandOpenRight},
    {"txtHandPointLeft", &F::txtHandPointLeft},
    {"txtHandPointRight", &F::txtHandPointRight},
    {"txtHandClosedLeft", &F::txtHandClosedLeft},
    {"txtHandClosedRight", &F::txtHandClosedRight},
    {"txtHandFormalLeft", &F::txtHandFormalLeft},
    {"txtHandFormalRight", &F::txtHandFormalRight},
}};

const std::array<OutfitSlot, 7> kOutfitSlots = {{
    {Outfit::Normal, 'B', &F::txtNormalBody, &F::txtNormalSkin, "picNormal", false},
    {Outfit::Swimsuit, 'S', &F::txtSwimsuitBody, &F::txtSwimsuitSkin, "picSwimsuit", false},
    {Outfit::Formal, 'F', &F::txtFormalBody, &F::txtFormalSkin, "picFormal", true},
    {Outfit::Pajamas, 'L', &F::txtPajamasBody, &F::txtPajamasSkin, "picPajamas", false},
    {Outfit::Nude, 'N', &F::txtNudeBody, &F::txtNudeSkin, "picNude", false},
    {Outfit::Winter, 'W', &F::txtWinterBody, &F::txtWinterSkin, "picWinter", false},
    {Outfit::Fashion, 'H', &F::txtFashionBody, &F::txtFashionSkin, "picFashion", true},
}};

const std::array<BodyTypeOption, 3> kBodyTypes = {{
    {BodyType::Fit, "fit", "optFit"},
    {BodyType::Fat, "fat", "optFat"},
    {BodyType::Skinny, "skn", "optSkinny"},
}};

namespace {

constexpr std::size_t kLabelWidth = 64;

// A sim's rows as the stages of loading see them.
struct Rows {
    const StrSegment& strings;
    WardrobeFields& fields;

    int count() const { return strings.Entries.bound(); }
    bool adult() const { return text(row::kAge) == "adult"; }
    const std::string& text(int number) const { return strings.Entries[number].Text; }

    void split(int number, Outfit outfit) const { split(text(number), outfit); }

    void split(const std::string& rowText, Outfit outfit) const {
        const OutfitSlot& slot = outfitSlot(outfit);
        fields.*slot.body = bodyOfRow(rowText);
        fields.*slot.skin = skinOfRow(rowText);
    }

    void splitUnlessEmpty(int number, Outfit outfit) const {
        if (!text(number).empty()) {
            split(number, outfit);
        }
    }

    void mark(Outfit outfit, std::string_view note) const {
        const OutfitSlot& slot = outfitSlot(outfit);
        fields.*slot.body = note;
        fields.*slot.skin = note;
    }
};

void readNormal(const Rows& rows) {
    const std::string& whole = rows.text(row::kNormal);
    rows.split(whole.substr(0, whole.find(';')), Outfit::Normal);
    const std::string code = bodyType(rows.fields.txtNormalBody);
    for (const BodyTypeOption& option : kBodyTypes) {
        if (equalsIgnoringCase(code, option.code)) {
            rows.fields.bodyType = option.type;
        }
    }
}

void readSwimsuit(const Rows& rows) {
    if (rows.count() > kHotDateRows) {
        rows.splitUnlessEmpty(row::kSwimsuit, Outfit::Swimsuit);
    } else if (rows.count() > kBaseRows && rows.adult()) {
        rows.split(row::kSwimsuit, Outfit::Swimsuit);
    } else {
        rows.split(row::kFirstSwimsuit, Outfit::Swimsuit);
    }
}

void readFormal(const Rows& rows) {
    if (rows.count() > kHotDateRows) {
        if (rows.text(row::kFormal) == kAdded) {
            rows.mark(Outfit::Formal, kAdultsOnly);
        } else {
            rows.splitUnlessEmpty(row::kFormal, Outfit::Formal);
        }
    } else if (rows.count() > kBaseRows && rows.adult()) {
        rows.splitUnlessEmpty(row::kFormal, Outfit::Formal);
    } else if (!rows.adult()) {
        rows.mark(Outfit::Formal, kAdultsOnly);
    } else {
        rows.splitUnlessEmpty(row::kFirstFormal, Outfit::Formal);
    }
}

void readPajamas(const Rows& rows) {
    if (rows.count() > kHotDateRows) {
        rows.splitUnlessEmpty(row::kPajamas, Outfit::Pajamas);
    } else if (rows.count() <= kBaseRows || !rows.adult()) {
        rows.mark(Outfit::Pajamas, kHotDateOnly);
    } else {
        rows.split(row::kPajamas, Outfit::Pajamas);
    }
}

void readWinter(const Rows& rows) {
    if (rows.count() <= kHotDateRows) {
        rows.mark(Outfit::Winter, kVacationOnly);
    } else {
        rows.split(row::kWinter, Outfit::Winter);
    }
}

void readFashion(const Rows& rows) {
    if (rows.count() <= kVacationRows || !rows.adult()) {
        rows.mark(Outfit::Fashion, kSuperstarOnly);
    } else {
        rows.split(row::kFashion, Outfit::Fashion);
    }
}

void readNude(const Rows& rows) {
    rows.split(row::kNude, Outfit::Nude);
}

void readHands(const Rows& rows) {
    // The formal hands come first, so that a table that ends early fails before any hand is read.
    for (const HandPose pose :
         {HandPose::Formal, HandPose::Open, HandPose::Closed, HandPose::Point}) {
        for (const Hand& hand : {handPair(pose).left, handPair(pose).right}) {
            rows.fields.*hand.field = skinOfRow(rows.text(hand.row));
        }
    }
}

}  // namespace

const BodyTypeOption& bodyTypeOption(BodyType type) {
    return kBodyTypes.at(static_cast<std::size_t>(type));
}

const OutfitSlot& outfitSlot(Outfit outfit) {
    return kOutfitSlots.at(static_cast<std::size_t>(outfit));
}

std::string bodyOfRow(std::string_view rowText) {
    const std::size_t comma = rowText.find(',');
    if (comma == std::string_view::npos) {
        throw RuntimeError(error::kInvalidArgument);
    }
    return std::string(rowText.substr(0, comma));
}

std::string skinOfRow(std::string_view rowText) {
    const std::size_t equals = rowText.find('=');
    return std::string(equals == std::string_view::npos ? rowText : rowText.substr(equals + 1));
}

std::string shownName(std::string_view name, std::string_view inBrackets) {
    return std::string(name) + "  (" + std::string(inBrackets) + ")";
}

void readWardrobe(const StrSegment& strings, WardrobeFields& fields) {
    struct Stage {
        int checkpoint;
        void (*read)(const Rows&);
    };
    static constexpr Stage kStages[] = {
        {1000, readNormal}, {1100, readSwimsuit}, {1200, readFormal}, {1300, readPajamas},
        {1350, readWinter}, {1400, readFashion},  {1450, readNude},   {2000, readHands},
    };
    const Rows rows{strings, fields};
    for (const Stage& stage : kStages) {
        CheckpointNumber = stage.checkpoint;
        stage.read(rows);
    }
}

void readSimName(IffFile& iff, WardrobeFields& fields) {
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        std::string& label = iff.Segments[i].Label;
        label = gfstrTrimAtNull(label);
        label.resize(kLabelWidth, ' ');
    }
    fields.txtName =
        shownName(lastCatalogueName(iff).value_or(""), lastUserLabel(iff).value_or(fields.txtName));
}

void readPerson(const StrSegment& strings, WardrobeFields& fields) {
    fields.txtGender = strings.Entries[row::kGender].Text;
    fields.txtAge = strings.Entries[row::kAge].Text;
    fields.txtSkinTone = toneWord(strings.Entries[row::kSkinTone].Text);
}

std::string skinRequest(const WardrobeFields& fields, const StrSegment& strings, char letter) {
    std::string request = fields.isFemale() ? "f" : "m";
    request += fields.isAdult() ? 'a' : 'c';
    request += strings.Entries[row::kSkinTone].Text;
    request += fields.isAdult() ? bodyTypeOption(fields.bodyType).code : "chd";
    return request + letter;
}

}  // namespace marlowick
