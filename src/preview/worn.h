// What a sim or a pet wears, in words: which suit in which skin, as the rows of its wardrobe tell.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "iff/string_segment.h"

namespace marlowick {

// Game texts, both names without folder and extension.
struct SuitAndSkin {
    std::string suit;
    std::string skin;

    bool operator==(const SuitAndSkin&) const = default;
};

struct Worn {
    std::string kind;  // row 1 of the wardrobe: "adult", "child", "dog", "kat"
    SuitAndSkin body;
    SuitAndSkin head;  // without a suit: none, as each hand's
    SuitAndSkin leftHand;
    SuitAndSkin rightHand;

    bool operator==(const Worn&) const = default;
};

// "b001fafit_01,BODY=b001fafitlgt_01": the text before the first "," and the text behind the first
// "="; each is empty if its mark is missing.
SuitAndSkin splitRow(std::string_view row);

// What of an outfit is put on. One without a body is worn on the normal outfit's. Nothing where
// there are no clothes to show: both names empty, "ADDED", or a note ("*** ...").
std::optional<SuitAndSkin> clothes(const SuitAndSkin& outfit, const SuitAndSkin& normal);

// The head of row 3; "NONE" is none.
SuitAndSkin headOfRow(std::string_view row);

// Who wears clothes, in the texts of the wardrobe's rows.
struct Wearer {
    std::string kind;      // row 1
    std::string head;      // row 3
    std::string leftHand;  // "HfLO,HAND=huaolgt"; empty for none
    std::string rightHand;
};

// The body on its wearer. A pet has neither head nor hands.
Worn wornBy(const Wearer& wearer, const SuitAndSkin& body);

// The normal outfit with the open hands; nothing where the rows tell of no clothes. Rows that
// are missing count as empty.
std::optional<Worn> normalClothes(const StrSegment& wardrobe);

// Whether row 1 names a pet.
bool isPetKind(std::string_view kind);

// The file of the skeleton, without extension. It may have "_" for "-" and the other way round.
std::string_view skeletonOf(std::string_view kind);

}  // namespace marlowick
