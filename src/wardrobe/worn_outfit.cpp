#include "wardrobe/worn_outfit.h"

#include "wardrobe/hands.h"
#include "wardrobe/wardrobe_rows.h"

namespace marlowick {

Wearer wearerOf(const WardrobeFields& fields, const StrSegment& wardrobe, Outfit outfit) {
    const HandPair& open = handPair(HandPose::Open);
    const HandPair& formal = handPair(HandPose::Formal);
    const auto handOf = [&](const Hand& plain, const Hand& dressed) {
        const bool isDressed = outfit == Outfit::Formal && !(fields.*dressed.field).empty();
        return handRow(fields, isDressed ? dressed : plain);
    };
    return {
        fields.txtAge,
        row::kHead <= wardrobe.Entries.bound() ? wardrobe.Entries[row::kHead].Text : std::string(),
        handOf(open.left, formal.left), handOf(open.right, formal.right)};
}

std::optional<Worn> wornOutfit(const WardrobeFields& fields, const StrSegment& wardrobe,
                               Outfit outfit) {
    const OutfitSlot& slot = outfitSlot(outfit);
    const std::optional<SuitAndSkin> body = clothes({fields.*slot.body, fields.*slot.skin},
                                                    {fields.txtNormalBody, fields.txtNormalSkin});
    if (!body) {
        return std::nullopt;
    }
    return wornBy(wearerOf(fields, wardrobe, outfit), *body);
}

}  // namespace marlowick
